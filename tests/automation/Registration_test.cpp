#include <windows.h>

#include <initguid.h>
// After it: here the identifiers of the type libraries are defined.
#include <QorLumarin.h>

#include <set>

#include "automation/TestHost.h"

namespace lumarin::automation {

namespace {

/// Every key and value below a key, as one text each.
void Collect(HKEY root, const std::wstring& path, std::set<std::wstring>& found) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    wchar_t name[512], data[1024];
    for (DWORD index = 0;; ++index) {
        DWORD length = 512, bytes = sizeof data;
        if (RegEnumValueW(key, index, name, &length, nullptr, nullptr, reinterpret_cast<BYTE*>(data),
                          &bytes) != ERROR_SUCCESS)
            break;
        found.insert(path + L"@" + name + L"=" + std::wstring(data, bytes / sizeof(wchar_t)));
    }
    for (DWORD index = 0;; ++index) {
        DWORD length = 512;
        if (RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        found.insert(path + L"\\" + name);
        Collect(root, path + L"\\" + name, found);
    }
    RegCloseKey(key);
}

std::set<std::wstring> Classes() {
    std::set<std::wstring> found;
    for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER})
        for (const wchar_t* part : {L"CLSID", L"TypeLib", L"Interface", L"QorLumarin.clsLumarin"})
            Collect(root, std::wstring(L"Software\\Classes\\") + part, found);
    return found;
}

HRESULT Install(bool install, const wchar_t* command) {
    const auto call = reinterpret_cast<HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR)>(
        reinterpret_cast<void*>(GetProcAddress(LoadLibraryW(L"QorLumarin.dll"), "DllInstall")));
    return call(install, command);
}

}  // namespace

class RegistrationTest : public TestHost {
protected:
    /// As a host makes it, and as the system marshals its calls.
    void UseClass() {
        CLSID id;
        ASSERT_EQ(CLSIDFromProgID(L"QorLumarin.clsLumarin", &id), S_OK);
        Microsoft::WRL::ComPtr<_clsLumarin> job;
        ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(job.GetAddressOf())),
                  S_OK);
        EXPECT_EQ(Start(*job.Get()), S_OK);
        EXPECT_EQ(job->UnloadObj(), S_OK);
        Microsoft::WRL::ComPtr<ITypeLib> types;
        EXPECT_EQ(LoadRegTypeLib(LIBID_QorVelCommon, 1, 0, 0, types.GetAddressOf()), S_OK);
    }
};

TEST_F(RegistrationTest, Registration_ForMachineOrUser_MakesTheClassAndGoesWithoutATrace) {
    for (const wchar_t* command : {L"", L"user"}) Install(false, command);
    for (const wchar_t* command : {L"", L"user"}) {
        const std::set<std::wstring> before = Classes();
        ASSERT_EQ(Install(true, command), S_OK);
        const std::set<std::wstring> registered = Classes();
        EXPECT_EQ(Install(true, command), S_OK);  // repairs
        EXPECT_EQ(Classes(), registered);
        EXPECT_GT(registered.size(), before.size() + 50) << "keys and values";
        if (*command == L'\0') UseClass();  // Wine looks for classes among the machine's alone
        EXPECT_EQ(Install(false, command), S_OK);
        EXPECT_EQ(Classes(), before);
    }
    EXPECT_EQ(Install(true, L"everybody"), E_INVALIDARG);
}

TEST_F(TestHost, TypeInformation_OfTheInstance_IsTheContract) {
    Microsoft::WRL::ComPtr<ITypeInfo> information;
    ASSERT_EQ(NewClass()->GetTypeInfo(0, 0, information.GetAddressOf()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(information->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, __uuidof(_clsLumarin));
    EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FDUAL, 0);
    information->ReleaseTypeAttr(attributes);
    Bstr names[4];
    UINT count = 0;
    ASSERT_EQ(information->GetNames(1, reinterpret_cast<BSTR*>(names), 4, &count), S_OK);
    std::string all;
    for (UINT index = 0; index < count; ++index) all += names[index].Text() + " ";
    EXPECT_EQ(all, "Start pVelCommon JobIndex MenuButton ");
}

}  // namespace lumarin::automation
