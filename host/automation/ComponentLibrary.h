#pragma once

#include "automation/calls/Object.h"

namespace host {

/// The component's library QorLumarin.dll beside this program. It need not be registered, and once loaded it
/// stays in the process.
class ComponentLibrary {
public:
    /// Loads it. Throws lumarin::Error when it cannot be loaded.
    ComponentLibrary();

    /// A new instance of the class `clsLumarin`.
    lumarin::automation::Object NewClass() const;

private:
    using GetClassObject = HRESULT(STDMETHODCALLTYPE*)(REFCLSID, REFIID, void**);

    GetClassObject getClassObject_;
};

}  // namespace host
