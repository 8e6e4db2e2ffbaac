#include "automation/library/Registration.h"

#include "automation/library/Module.h"

#include <initguid.h>
// After it: here the identifiers of the type libraries are defined.
#include <QorLumarin.h>

#include <string>
#include <vector>

namespace lumarin::automation {

namespace {

constexpr const wchar_t* ProgId = L"QorLumarin.clsLumarin";
constexpr const wchar_t* ClassName = L"QorLumarin.clsLumarin";
constexpr const wchar_t* Version = L"1.0";
/// The system's own way of taking calls of dual interfaces into another apartment.
constexpr const wchar_t* Marshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* Word = sizeof(void*) == 8 ? L"win64" : L"win32";

struct Entry {
    std::wstring key, name, data;  ///< the name is empty for a key's own value
};

/// A type library of ours with its one interface, and where it lies in the library's file.
struct Types {
    GUID library, interfaceId;
    const wchar_t* description;
    const wchar_t* interfaceName;
    const wchar_t* place;
};

const Types AllTypes[] = {
    {LIBID_QorLumarin, __uuidof(_clsLumarin), L"Qor Veltrane Lumarin", L"_clsLumarin", L""},
    {LIBID_QorVelCommon, __uuidof(::VelCommon), L"Qor Veltrane Common Services", L"VelCommon", L"\\2"},
    {LIBID_QorToolBar, __uuidof(::Tool), L"Qor Tool Bar", L"Tool", L"\\3"},
};

std::wstring Text(const GUID& id) {
    wchar_t text[40];
    StringFromGUID2(id, text, 40);
    return text;
}

void AddClass(std::vector<Entry>& entries, const std::wstring& file) {
    const std::wstring id = Text(__uuidof(::clsLumarin));
    const std::wstring key = L"CLSID\\" + id;
    entries.insert(entries.end(), {{key, L"", ClassName},
                                   {key + L"\\InprocServer32", L"", file},
                                   {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
                                   {key + L"\\ProgID", L"", ProgId},
                                   {key + L"\\TypeLib", L"", Text(LIBID_QorLumarin)},
                                   {key + L"\\Version", L"", Version},
                                   {key + L"\\Programmable", L"", L""},
                                   {ProgId, L"", ClassName},
                                   {std::wstring(ProgId) + L"\\CLSID", L"", id}});
}

void AddTypes(std::vector<Entry>& entries, const std::wstring& file, const Types& types) {
    const std::wstring library = Text(types.library);
    const std::wstring all = L"TypeLib\\" + library;
    const std::wstring key = all + L"\\" + Version;
    const std::wstring type = L"Interface\\" + Text(types.interfaceId);
    entries.insert(entries.end(), {{all, L"", L""},
                                   {key, L"", types.description},
                                   {key + L"\\0", L"", L""},
                                   {key + L"\\0\\" + Word, L"", file + types.place},
                                   {key + L"\\FLAGS", L"", L"0"},
                                   {key + L"\\HELPDIR", L"", file.substr(0, file.find_last_of(L'\\'))},
                                   {type, L"", types.interfaceName},
                                   {type + L"\\ProxyStubClsid32", L"", Marshaller},
                                   {type + L"\\TypeLib", L"", library},
                                   {type + L"\\TypeLib", L"Version", Version}});
}

std::vector<Entry> Entries() {
    const std::wstring file = module::Path();
    std::vector<Entry> entries;
    AddClass(entries, file);
    for (const Types& types : AllTypes) AddTypes(entries, file, types);
    return entries;
}

HKEY Root(Scope scope) { return scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }

std::wstring Whole(const std::wstring& key) { return L"Software\\Classes\\" + key; }

}  // namespace

HRESULT Register(Scope scope) {
    for (const Entry& entry : Entries()) {
        const LSTATUS written = RegSetKeyValueW(
            Root(scope), Whole(entry.key).c_str(), entry.name.empty() ? nullptr : entry.name.c_str(), REG_SZ,
            entry.data.c_str(), static_cast<DWORD>((entry.data.size() + 1) * sizeof(wchar_t)));
        if (written != ERROR_SUCCESS) return HRESULT_FROM_WIN32(static_cast<DWORD>(written));
    }
    return S_OK;
}

HRESULT Unregister(Scope scope) {
    const std::vector<Entry> entries = Entries();
    HRESULT result = S_OK;
    // From the leaves up: a key with others' keys below it stays, as that of a library of the other word size
    // does.
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        const LSTATUS removed = RegDeleteKeyW(Root(scope), Whole(entry->key).c_str());
        const bool expected =
            removed == ERROR_SUCCESS || removed == ERROR_FILE_NOT_FOUND || removed == ERROR_ACCESS_DENIED;
        if (!expected && SUCCEEDED(result)) result = HRESULT_FROM_WIN32(static_cast<DWORD>(removed));
    }
    // A user who had no classes before has none afterwards.
    for (const wchar_t* shared : {L"CLSID", L"TypeLib", L"Interface"})
        RegDeleteKeyW(Root(scope), Whole(shared).c_str());
    return result;
}

}  // namespace lumarin::automation
