#include "platform/system/FolderTree.h"

#include <windows.h>

#include <filesystem>

#include "base/Error.h"
#include "base/FileSystem.h"

namespace lumarin::platform {

struct FolderTree::Root {
    std::filesystem::path path;
};

namespace {

struct SearchCloser {
    using pointer = HANDLE;
    void operator()(HANDLE search) const { FindClose(search); }
};
using Search = std::unique_ptr<HANDLE, SearchCloser>;

std::uint64_t Length(DWORD high, DWORD low) { return (std::uint64_t{high} << 32) | low; }

bool IsFile(DWORD attributes) { return (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0; }

}  // namespace

FolderTree::FolderTree(const std::string& root) : root_(std::make_unique<Root>()) {
    root_->path = files::ToPath(root);
    std::error_code problem;
    if (!std::filesystem::is_directory(root_->path, problem))
        throw FileError("open the folder", root, problem ? problem.message() : "there is no such folder");
}

FolderTree::~FolderTree() = default;

std::optional<std::uint64_t> FolderTree::LengthOf(const std::string& name) const {
    WIN32_FILE_ATTRIBUTE_DATA found{};
    const std::filesystem::path path = root_->path / files::ToPath(name);
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &found) || !IsFile(found.dwFileAttributes))
        return std::nullopt;
    return Length(found.nFileSizeHigh, found.nFileSizeLow);
}

FolderTree::Reading FolderTree::ReadFolder(const std::string& folder,
                                           const std::function<bool(std::string_view)>& wanted,
                                           const TakeFile& take) const {
    WIN32_FIND_DATAW found{};
    const std::filesystem::path pattern = root_->path / files::ToPath(folder) / L"*";
    // The names come with the lengths, many at a time.
    const HANDLE first = FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch,
                                          nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (first == INVALID_HANDLE_VALUE) return Reading::NoFolder;
    const Search search(first);
    do {
        if (!IsFile(found.dwFileAttributes)) continue;
        const std::string name = files::ToUtf8(found.cFileName);
        if (wanted(name) && !take(name, Length(found.nFileSizeHigh, found.nFileSizeLow)))
            return Reading::Ended;
    } while (FindNextFileW(search.get(), &found));
    return Reading::Whole;
}

std::int64_t CoarseMilliseconds() { return static_cast<std::int64_t>(GetTickCount64()); }

}  // namespace lumarin::platform
