#include "host/automation/ComponentLibrary.h"

#include <QorLumarin.h>

#include <filesystem>

#include "base/Error.h"

namespace host {

namespace {

constexpr const wchar_t* FileName = L"QorLumarin.dll";

[[noreturn]] void Fail(HRESULT status, const char* what) {
    throw lumarin::Error(status, "lumarin-host", what);
}

std::filesystem::path BesideProgram() {
    std::wstring program(MAX_PATH, L'\0');
    DWORD length = 0;
    // Filled to the brim it is cut off.
    while ((length = GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()))) ==
           program.size())
        program.resize(program.size() * 2);
    program.resize(length);
    return std::filesystem::path(program).replace_filename(FileName);
}

}  // namespace

ComponentLibrary::ComponentLibrary() {
    const HMODULE module = LoadLibraryExW(BesideProgram().c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (module == nullptr)
        Fail(HRESULT_FROM_WIN32(GetLastError()), "The component's library QorLumarin.dll cannot be loaded.");
    const FARPROC found = GetProcAddress(module, "DllGetClassObject");
    if (found == nullptr) Fail(CO_E_ERRORINDLL, "QorLumarin.dll is not the component's library.");
    getClassObject_ = reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(found));
}

lumarin::automation::Object ComponentLibrary::NewClass() const {
    Microsoft::WRL::ComPtr<IClassFactory> factory;
    Microsoft::WRL::ComPtr<IDispatch> instance;
    HRESULT status = getClassObject_(__uuidof(clsLumarin), IID_PPV_ARGS(factory.GetAddressOf()));
    if (SUCCEEDED(status)) status = factory->CreateInstance(nullptr, IID_PPV_ARGS(instance.GetAddressOf()));
    if (FAILED(status)) Fail(status, "QorLumarin.dll does not give its class clsLumarin.");
    return {instance, "clsLumarin"};
}

}  // namespace host
