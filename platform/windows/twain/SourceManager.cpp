#include "platform/windows/twain/SourceManager.h"

#include <algorithm>
#include <cstring>

#include "base/Text.h"
#include "imaging/Scanner.h"
#include "platform/windows/twain/ConditionCodes.h"

namespace lumarin::twain {

namespace {

constexpr bool Is64Bit = sizeof(void*) == 8;
constexpr const char* NoManager =
    Is64Bit
        ? "Scanners and cameras cannot be used: the TWAIN source manager, TWAINDSM.dll for 64-bit programs, "
          "is missing on this computer. Install the software that came with the scanner or camera."
        : "Scanners and cameras cannot be used: the TWAIN source manager, TWAINDSM.dll or twain_32.dll, is "
          "missing on this computer. Install the software that came with the scanner or camera.";

template <class Function>
Function AddressIn(HMODULE library, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

using FolderFunction = UINT(WINAPI*)(LPWSTR, UINT);

std::wstring FileIn(FolderFunction folder, const wchar_t* name) {
    wchar_t path[MAX_PATH];
    const UINT length = folder(path, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return {};
    return std::wstring(path, length) + L"\\" + name;
}

TW_IDENTITY Program() {
    TW_IDENTITY program{};
    program.Version = {1, 0, TWLG_USA, TWCY_USA, ""};
    program.ProtocolMajor = 2;
    program.SupportedGroups = DG_CONTROL | DG_IMAGE | DF_APP2;
    std::strcpy(program.Manufacturer, "Lumarin");
    std::strcpy(program.ProductFamily, "Lumarin");
    std::strcpy(program.ProductName, "Lumarin");
    return program;
}

}  // namespace

std::string TextOf(const TW_STR32& bytes) {
    const auto length =
        static_cast<int>(std::find(std::begin(bytes), std::end(bytes), '\0') - std::begin(bytes));
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    const int units = MultiByteToWideChar(CP_ACP, 0, bytes, length, wide.data(), length);
    return text::FromUtf16(std::u16string(wide.begin(), wide.begin() + units));
}

HMODULE SourceManager::LoadManager() {
    // By their whole paths, so that a file of that name elsewhere is never taken.
    const std::wstring paths[] = {
        FileIn(GetSystemDirectoryW, L"TWAINDSM.dll"), FileIn(GetSystemWindowsDirectoryW, L"TWAINDSM.dll"),
        FileIn(GetSystemWindowsDirectoryW, L"twain_32.dll"), FileIn(GetSystemDirectoryW, L"twain_32.dll")};
    for (const std::wstring& path : paths)
        if (const HMODULE library = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH))
            return library;
    throw ScannerError(NoManager);
}

SourceManager::SourceManager(HWND window) : library_(LoadManager()), program_(Program()), window_(window) {
    entry_ = AddressIn<Entry>(library_.get(), "DSM_Entry");
    if (entry_ == nullptr) throw ScannerError(NoManager);
    if (Call(nullptr, DG_CONTROL, DAT_PARENT, MSG_OPENDSM, &window_) != TWRC_SUCCESS)
        throw ScannerError(ConditionText(Condition(nullptr)));
    TakeMemoryFunctions();
}

SourceManager::~SourceManager() { Call(nullptr, DG_CONTROL, DAT_PARENT, MSG_CLOSEDSM, &window_); }

void SourceManager::TakeMemoryFunctions() {
    if ((program_.SupportedGroups & DF_DSM2) == 0) return;
    TW_ENTRYPOINT functions{};
    functions.Size = sizeof functions;
    if (Call(nullptr, DG_CONTROL, DAT_ENTRYPOINT, MSG_GET, &functions) == TWRC_SUCCESS) memory_ = functions;
}

TW_UINT16 SourceManager::Call(TW_IDENTITY* source, TW_UINT32 group, TW_UINT16 type, TW_UINT16 message,
                              TW_MEMREF data) {
    return entry_(&program_, source, group, type, message, data);
}

TW_UINT16 SourceManager::Condition(TW_IDENTITY* source) {
    TW_STATUS status{};
    const TW_UINT16 answer = Call(source, DG_CONTROL, DAT_STATUS, MSG_GET, &status);
    return answer == TWRC_SUCCESS ? status.ConditionCode : TWCC_BUMMER;
}

std::vector<TW_IDENTITY> SourceManager::Sources() {
    std::vector<TW_IDENTITY> sources;
    TW_IDENTITY source{};
    std::string usual;
    if (Call(nullptr, DG_CONTROL, DAT_IDENTITY, MSG_GETDEFAULT, &source) == TWRC_SUCCESS)
        usual = TextOf(source.ProductName);
    for (TW_UINT16 message = MSG_GETFIRST;; message = MSG_GETNEXT) {
        source = {};
        if (Call(nullptr, DG_CONTROL, DAT_IDENTITY, message, &source) != TWRC_SUCCESS) return sources;
        if ((source.SupportedGroups & DG_IMAGE) == 0) continue;
        const bool first = usual == TextOf(source.ProductName);
        sources.insert(first ? sources.begin() : sources.end(), source);
    }
}

TW_HANDLE SourceManager::Allocate(std::size_t size) {
    using Function = TW_HANDLE(__stdcall*)(TW_UINT32);
    if (memory_.DSM_MemAllocate == nullptr) return GlobalAlloc(GHND, size);
    return reinterpret_cast<Function>(memory_.DSM_MemAllocate)(static_cast<TW_UINT32>(size));
}

void SourceManager::Free(TW_HANDLE memory) {
    using Function = void(__stdcall*)(TW_HANDLE);
    if (memory == nullptr) return;
    if (memory_.DSM_MemFree == nullptr)
        GlobalFree(memory);
    else
        reinterpret_cast<Function>(memory_.DSM_MemFree)(memory);
}

std::span<std::byte> SourceManager::Lock(TW_HANDLE memory) {
    using Function = TW_MEMREF(__stdcall*)(TW_HANDLE);
    if (memory == nullptr) return {};
    void* const start = memory_.DSM_MemLock == nullptr
                            ? GlobalLock(memory)
                            : reinterpret_cast<Function>(memory_.DSM_MemLock)(memory);
    // The manager's functions allocate the system's global memory too, and have none that gives its size.
    return {static_cast<std::byte*>(start), start == nullptr ? 0 : GlobalSize(memory)};
}

void SourceManager::Unlock(TW_HANDLE memory) {
    using Function = void(__stdcall*)(TW_HANDLE);
    if (memory == nullptr) return;
    if (memory_.DSM_MemUnlock == nullptr)
        GlobalUnlock(memory);
    else
        reinterpret_cast<Function>(memory_.DSM_MemUnlock)(memory);
}

}  // namespace lumarin::twain
