// What the system and installers call in the library, whether it is registered or not.
#include "automation/library/ClassFactory.h"
#include "automation/library/Module.h"
#include "automation/library/Registration.h"

#include <windows.h>

#include <cwchar>

namespace automation = lumarin::automation;

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) automation::module::Loaded(instance);
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID wanted, REFIID iid, void** factory) {
    return automation::GetFactory(wanted, iid, factory);
}

STDAPI DllCanUnloadNow() { return automation::module::IsInUse() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() try { return automation::Register(automation::Scope::Machine); } catch (...) {
    return E_OUTOFMEMORY;
}

STDAPI DllUnregisterServer() try { return automation::Unregister(automation::Scope::Machine); } catch (...) {
    return E_OUTOFMEMORY;
}

/// `regsvr32 /n /i:user` registers for the user who runs it, without an administrator's rights.
STDAPI DllInstall(BOOL install, LPCWSTR command) try {
    const bool user = command != nullptr && _wcsicmp(command, L"user") == 0;
    if (!user && command != nullptr && *command != L'\0') return E_INVALIDARG;
    const auto scope = user ? automation::Scope::User : automation::Scope::Machine;
    return install ? automation::Register(scope) : automation::Unregister(scope);
} catch (...) {
    return E_OUTOFMEMORY;
}

}  // extern "C"
