#pragma once

#include <windows.h>

namespace lumarin::automation {

/// An interface's description, from the type library in the library's own file: so it is there without any
/// registration.
HRESULT LoadInterface(REFIID iid, ITypeInfo** information);

}  // namespace lumarin::automation
