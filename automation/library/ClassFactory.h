#pragma once

#include <windows.h>

namespace lumarin::automation {

/// The factory of `clsLumarin`, for `DllGetClassObject`.
HRESULT GetFactory(REFCLSID wanted, REFIID iid, void** factory);

}  // namespace lumarin::automation
