#include "platform/system/FolderTree.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ctime>

#include "base/Error.h"

namespace lumarin::platform {

struct FolderTree::Root {
    int handle = -1;
    ~Root() {
        if (handle >= 0) close(handle);
    }
};

namespace {

struct FolderCloser {
    void operator()(DIR* folder) const { closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, FolderCloser>;

OpenFolder Open(int tree, const std::string& name) {
    const int handle = openat(tree, name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    OpenFolder folder(handle < 0 ? nullptr : fdopendir(handle));
    if (folder == nullptr && handle >= 0) close(handle);
    return folder;
}

std::optional<std::uint64_t> LengthIn(int folder, const char* name) {
    struct stat found {};
    if (fstatat(folder, name, &found, 0) != 0 || !S_ISREG(found.st_mode)) return std::nullopt;
    return static_cast<std::uint64_t>(found.st_size);
}

}  // namespace

FolderTree::FolderTree(const std::string& root) : root_(std::make_unique<Root>()) {
    root_->handle = open(root.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (root_->handle < 0) throw FileError("open the folder", root, std::strerror(errno));
}

FolderTree::~FolderTree() = default;

std::optional<std::uint64_t> FolderTree::LengthOf(const std::string& name) const {
    return LengthIn(root_->handle, name.c_str());
}

FolderTree::Reading FolderTree::ReadFolder(const std::string& folder,
                                           const std::function<bool(std::string_view)>& wanted,
                                           const TakeFile& take) const {
    const OpenFolder open = Open(root_->handle, folder);
    if (open == nullptr) return Reading::NoFolder;
    while (const dirent* entry = readdir(open.get())) {
        if (!wanted(entry->d_name)) continue;
        const auto length = LengthIn(dirfd(open.get()), entry->d_name);
        if (length && !take(entry->d_name, *length)) return Reading::Ended;
    }
    return Reading::Whole;
}

std::int64_t CoarseMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
}

}  // namespace lumarin::platform
