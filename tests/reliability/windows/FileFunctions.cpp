#include "reliability/DiskFaults.h"

#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <array>
#include <cwchar>
#include <iterator>
#include <utility>

#include "base/FileCalls.h"
#include "platform/windows/WindowsFiles.h"
#include "reliability/Fate.h"

// In each module of this program, the addresses at which it finds the system's functions are replaced by
// those of functions that count and then call the system's. So the libraries, too, find these.

namespace lumarin::disk_faults {

namespace {

/// The program's own file calls, as in the component.
const windows::WindowsFiles ownCalls;
[[maybe_unused]] const bool areUsed = (files::Use(&ownCalls), true);

constexpr std::size_t LongestPath = 1024;

/// A path as a test writes it, without memory of its own.
class Utf8 {
public:
    explicit Utf8(const wchar_t* path) {
        wchar_t whole[LongestPath];
        const wchar_t* text = path;
        if (std::wcsncmp(path, L"\\\\?\\", 4) == 0)
            text = path + 4;
        else if (GetFullPathNameW(path, std::size(whole), whole, nullptr) - 1 < std::size(whole) - 1)
            text = whole;
        if (WideCharToMultiByte(CP_UTF8, 0, text, -1, text_, sizeof text_, nullptr, nullptr) == 0)
            text_[0] = '\0';
    }
    operator std::string_view() const { return text_; }

private:
    char text_[LongestPath];
};

Fate FateOf(const wchar_t* path, Use use) { return IsOn() ? FateOf(Utf8(path), use) : Fate::Well; }

Fate FateOf(HANDLE file, Use use) {
    wchar_t path[LongestPath];
    if (!IsOn() || GetFileType(file) != FILE_TYPE_DISK) return Fate::Well;
    const DWORD length = GetFinalPathNameByHandleW(file, path, std::size(path), 0);
    return length > 0 && length < std::size(path) ? FateOf(path, use) : Fate::Well;
}

Use UseOf(const wchar_t* path, DWORD access, DWORD disposition) {
    constexpr DWORD Writing = GENERIC_WRITE | GENERIC_ALL | FILE_WRITE_DATA | FILE_APPEND_DATA | DELETE;
    if ((access & Writing) == 0) return Use::Read;
    const bool makes = disposition != OPEN_EXISTING && disposition != TRUNCATE_EXISTING;
    return makes && GetFileAttributesW(path) == INVALID_FILE_ATTRIBUTES ? Use::Make : Use::Change;
}

/// The system's own function of this name.
#define REAL(name)                                                                        \
    reinterpret_cast<decltype(&::name)>([] {                                              \
        static void* const real =                                                         \
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("kernel32"), #name)); \
        return real;                                                                      \
    }())
#define REPLACE(result, name, failure, fate, parameters, arguments)               \
    result WINAPI name parameters {                                               \
        return Does<result>(fate, failure, [&] { return REAL(name) arguments; }); \
    }

namespace ours {

REPLACE(HANDLE, CreateFileW, INVALID_HANDLE_VALUE, FateOf(path, UseOf(path, access, how)),
        (LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES rights, DWORD how, DWORD flags,
         HANDLE like),
        (path, access, share, rights, how, flags, like))
REPLACE(BOOL, ReadFile, FALSE, FateOf(file, Use::Take),
        (HANDLE file, LPVOID bytes, DWORD count, LPDWORD got, LPOVERLAPPED at), (file, bytes, count, got, at))
REPLACE(BOOL, MoveFileExW, FALSE, FateOf(to, Use::Change), (LPCWSTR from, LPCWSTR to, DWORD flags),
        (from, to, flags))
REPLACE(BOOL, ReplaceFileW, FALSE, FateOf(to, Use::Change),
        (LPCWSTR to, LPCWSTR from, LPCWSTR kept, DWORD flags, LPVOID a, LPVOID b),
        (to, from, kept, flags, a, b))
REPLACE(BOOL, DeleteFileW, FALSE, FateOf(path, Use::Change), (LPCWSTR path), (path))
REPLACE(BOOL, RemoveDirectoryW, FALSE, FateOf(path, Use::Change), (LPCWSTR path), (path))
REPLACE(BOOL, CreateDirectoryW, FALSE, FateOf(path, Use::Make), (LPCWSTR path, LPSECURITY_ATTRIBUTES rights),
        (path, rights))
// What was copied when it fails, the system itself removes.
REPLACE(BOOL, CopyFileW, FALSE, FateOf(to, Use::Make), (LPCWSTR from, LPCWSTR to, BOOL onlyNew),
        (from, to, onlyNew))
REPLACE(BOOL, SetEndOfFile, FALSE, FateOf(file, Use::Change), (HANDLE file), (file))

BOOL WINAPI WriteFile(HANDLE file, LPCVOID bytes, DWORD count, LPDWORD done, LPOVERLAPPED at) {
    const Fate fate = FateOf(file, Use::Grow);
    if (fate == Fate::Middle) count /= 2;
    return Does<BOOL>(fate, FALSE, [&] { return REAL(WriteFile)(file, bytes, count, done, at); });
}
/// Nobody waits for a file that is never let go.
void WINAPI Sleep(DWORD milliseconds) { REAL(Sleep)(IsOn() ? 0 : milliseconds); }

}  // namespace ours

#define PAIR(name) std::pair(reinterpret_cast<void*>(REAL(name)), reinterpret_cast<void*>(&ours::name))

/// Where the module keeps the address of a replaced function, ours goes.
void ReplaceAt(void** kept) {
    static const std::pair<void*, void*> pairs[] = {PAIR(CreateFileW),
                                                    PAIR(ReadFile),
                                                    PAIR(WriteFile),
                                                    PAIR(MoveFileExW),
                                                    PAIR(ReplaceFileW),
                                                    PAIR(DeleteFileW),
                                                    PAIR(RemoveDirectoryW),
                                                    PAIR(CreateDirectoryW),
                                                    PAIR(CopyFileW),
                                                    PAIR(SetEndOfFile),
                                                    PAIR(Sleep)};
    for (const auto& [real, replacement] : pairs) {
        if (*kept != real) continue;
        DWORD before = 0;
        VirtualProtect(kept, sizeof *kept, PAGE_READWRITE, &before);
        *kept = replacement;
        VirtualProtect(kept, sizeof *kept, before, &before);
    }
}

void ReplaceIn(HMODULE module) {
    auto* const base = reinterpret_cast<char*>(module);
    const auto* headers =
        reinterpret_cast<IMAGE_NT_HEADERS*>(base + reinterpret_cast<IMAGE_DOS_HEADER*>(base)->e_lfanew);
    const auto& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (imports.Size == 0) return;
    for (auto* from = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
         from->Name != 0; ++from)
        for (auto** kept = reinterpret_cast<void**>(base + from->FirstThunk); *kept != nullptr; ++kept)
            ReplaceAt(kept);
}

}  // namespace

const int Stride = 4;

void Prepare() {
    std::array<HMODULE, 256> modules{};
    DWORD bytes = 0;
    if (!EnumProcessModules(GetCurrentProcess(), modules.data(), sizeof modules, &bytes)) return;
    for (std::size_t i = 0; i < std::min<std::size_t>(modules.size(), bytes / sizeof(HMODULE)); ++i) {
        const auto isIt = [&](const char* name) { return modules[i] == GetModuleHandleA(name); };
        if (!isIt("kernel32") && !isIt("kernelbase") && !isIt("ntdll")) ReplaceIn(modules[i]);
    }
}

void SetReason(Reason reason) {
    constexpr DWORD Numbers[] = {0, ERROR_DISK_FULL, ERROR_WRITE_PROTECT, ERROR_SHARING_VIOLATION, ERROR_CRC};
    SetLastError(Numbers[static_cast<int>(reason)]);
}

void RemoveFile(std::string_view path) {
    wchar_t wide[LongestPath];
    if (MultiByteToWideChar(CP_UTF8, 0, path.data(), -1, wide, std::size(wide)) != 0) REAL(DeleteFileW)(wide);
}

void KillThisProgram() { TerminateProcess(GetCurrentProcess(), 1); }

}  // namespace lumarin::disk_faults
