#include "platform/windows/WindowsFiles.h"

#include <windows.h>

#include <memory>
#include <optional>

#include "base/Text.h"
#include "platform/windows/WideText.h"

namespace lumarin::windows {

namespace {

constexpr int Tries = 10;
constexpr DWORD Pause = 50;  // milliseconds

struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE file) const { CloseHandle(file); }
};
struct SearchCloser {
    using pointer = HANDLE;
    void operator()(HANDLE search) const { FindClose(search); }
};

std::error_code ErrorOf(DWORD number) { return {static_cast<int>(number), std::system_category()}; }
std::error_code LastError() { return ErrorOf(GetLastError()); }

bool IsFolder(DWORD attributes) { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

std::optional<WIN32_FILE_ATTRIBUTE_DATA> AttributesOf(const std::filesystem::path& path) {
    WIN32_FILE_ATTRIBUTE_DATA found{};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &found)) return std::nullopt;
    return found;
}

/// Takes the mark away; false when there was none.
bool MakeWritable(const std::filesystem::path& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || IsFolder(attributes) ||
        !(attributes & FILE_ATTRIBUTE_READONLY))
        return false;
    return SetFileAttributesW(path.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY}) != FALSE;
}

bool IsHeld(const std::filesystem::path& path) {
    const std::unique_ptr<HANDLE, HandleCloser> file(
        CreateFileW(path.c_str(), DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, 0, nullptr));
    if (file.get() != INVALID_HANDLE_VALUE) return false;
    return GetLastError() == ERROR_SHARING_VIOLATION;
}

/// Does what changes `path`, again where it is in the way for a moment.
template <class Step>
std::error_code Insist(const std::filesystem::path& path, Step step) {
    for (int tried = 1;; ++tried) {
        if (step()) return {};
        const DWORD problem = GetLastError();
        if (problem != ERROR_ACCESS_DENIED && problem != ERROR_SHARING_VIOLATION) return ErrorOf(problem);
        if (MakeWritable(path)) continue;
        const bool held = problem == ERROR_SHARING_VIOLATION || IsHeld(path);
        if (!held || tried == Tries) return ErrorOf(held ? ERROR_SHARING_VIOLATION : problem);
        Sleep(Pause);
    }
}

std::string WordsOf(DWORD number) {
    wchar_t text[512];
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK, nullptr,
        number, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    std::string words(text::Trim(FromWide({text, length})));
    while (words.ends_with('.')) words.pop_back();
    return words.empty() ? "error " + std::to_string(number) : words;
}

/// Renaming onto a file that somebody reads, and lets go, is what only the second call does on every system.
bool MoveOver(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_COPY_ALLOWED)) return true;
    const DWORD problem = GetLastError();
    if (problem == ERROR_ACCESS_DENIED &&
        ReplaceFileW(to.c_str(), from.c_str(), nullptr,
                     REPLACEFILE_IGNORE_MERGE_ERRORS | REPLACEFILE_IGNORE_ACL_ERRORS, nullptr, nullptr))
        return true;
    SetLastError(problem);
    return false;
}

}  // namespace

WindowsFiles::Kind WindowsFiles::KindOf(const Path& path) const {
    const auto found = AttributesOf(path);
    if (!found) return Kind::None;
    return IsFolder(found->dwFileAttributes)                        ? Kind::Folder
           : (found->dwFileAttributes & FILE_ATTRIBUTE_DEVICE) != 0 ? Kind::Other
                                                                    : Kind::File;
}

std::uint64_t WindowsFiles::Length(const Path& file, std::error_code& problem) const {
    const auto found = AttributesOf(file);
    problem = found ? std::error_code() : LastError();
    return found ? (std::uint64_t{found->nFileSizeHigh} << 32) | found->nFileSizeLow : 0;
}

std::error_code WindowsFiles::MakeFolder(const Path& folder) const {
    if (KindOf(folder) == Kind::Folder || CreateDirectoryW(folder.c_str(), nullptr)) return {};
    const std::error_code problem = LastError();
    const Path whole = folder.has_filename() ? folder : folder.parent_path();
    if (problem.value() != ERROR_PATH_NOT_FOUND || whole.parent_path() == whole) return problem;
    if (const std::error_code above = MakeFolder(whole.parent_path())) return above;
    return CreateDirectoryW(folder.c_str(), nullptr) ? std::error_code() : LastError();
}

std::error_code WindowsFiles::Copy(const Path& from, const Path& to) const {
    return Insist(to, [&] { return CopyFileW(from.c_str(), to.c_str(), FALSE); });
}

std::error_code WindowsFiles::Replace(const Path& from, const Path& to) const {
    if (IsHeld(from)) return ErrorOf(ERROR_SHARING_VIOLATION);
    return Insist(to, [&] { return MoveOver(from, to); });
}

std::error_code WindowsFiles::Remove(const Path& path) const {
    return Insist(path, [&] {
        const DWORD attributes = GetFileAttributesW(path.c_str());
        const bool folder = attributes != INVALID_FILE_ATTRIBUTES && IsFolder(attributes);
        return folder ? RemoveDirectoryW(path.c_str()) : DeleteFileW(path.c_str());
    });
}

std::error_code WindowsFiles::ForEachEntry(const Path& folder, const Visit& visit) const {
    WIN32_FIND_DATAW found{};
    const HANDLE first = FindFirstFileExW((folder / L"*").c_str(), FindExInfoBasic, &found,
                                          FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (first == INVALID_HANDLE_VALUE) return LastError();
    const std::unique_ptr<HANDLE, SearchCloser> search(first);
    do {
        const std::wstring_view name = found.cFileName;
        if (name == L"." || name == L"..") continue;
        const bool isLink = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
                            IsReparseTagNameSurrogate(found.dwReserved0);
        const auto kind = isLink                             ? files::EntryKind::Link
                          : IsFolder(found.dwFileAttributes) ? files::EntryKind::Folder
                                                             : files::EntryKind::File;
        if (!visit(FromWide(name), kind)) return {};
    } while (FindNextFileW(search.get(), &found));
    const DWORD end = GetLastError();
    return end == ERROR_NO_MORE_FILES ? std::error_code() : ErrorOf(end);
}

std::string WindowsFiles::ReasonOf(const std::error_code& problem) const {
    return problem.category() == std::system_category() ? WordsOf(static_cast<DWORD>(problem.value()))
                                                        : problem.message();
}

std::string WindowsFiles::LastReason() const {
    // The number behind `errno`, which knows no difference between "denied" and "held by another program".
    const DWORD number = GetLastError();
    return number != ERROR_SUCCESS ? WordsOf(number) : FileCalls::LastReason();
}

}  // namespace lumarin::windows
