#include "host/services/PhotoLookAhead.h"

#include "base/Numbers.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace host {

namespace {

constexpr int FolderCount = 100;  // by the last two digits of the listing's number
constexpr std::uint64_t Taken = std::numeric_limits<std::uint64_t>::max();

constexpr std::int64_t Key(std::int32_t listingNumber, int photo) {
    return std::int64_t{listingNumber} * 256 + photo;
}

/// Nothing for a name that is not a photo's.
std::optional<std::int64_t> KeyOfName(std::string_view name) {
    constexpr std::string_view Ending = ".jpg";
    if (name.size() <= Ending.size() + 1 || !name.ends_with(Ending)) return std::nullopt;
    name.remove_suffix(Ending.size());
    const int photo = name.back() - 'a' + 1;
    name.remove_suffix(1);
    const auto listing = lumarin::ParseListingNumber(name);
    return listing && photo > 0 ? std::optional(Key(*listing, photo)) : std::nullopt;
}

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

}  // namespace

PhotoLookAhead::PhotoLookAhead(int tree) : tree_(tree) {
    try {
        if (std::thread::hardware_concurrency() > 1) thread_ = std::thread([this] { Run(); });
    } catch (const std::system_error&) {
        // Then everything is looked at when it is asked for.
    }
}

PhotoLookAhead::~PhotoLookAhead() {
    stop_ = true;
    if (thread_.joinable()) thread_.join();
}

/// The clock that costs next to nothing: it is read for every photo.
std::int64_t PhotoLookAhead::Milliseconds() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
}

void PhotoLookAhead::Run() noexcept {
    try {
        for (int folder = 0; folder < FolderCount && !stop_; ++folder) Look(folder);
    } catch (...) {
        // What was not seen is looked at when it is asked for.
    }
}

void PhotoLookAhead::Look(int folderNumber) {
    const std::string name = std::to_string(folderNumber / 10) + "/" + std::to_string(folderNumber % 10);
    const OpenFolder open = Open(tree_, name);
    if (open == nullptr) return;
    Folder& folder = folders_[static_cast<std::size_t>(folderNumber)];
    while (const dirent* entry = readdir(open.get())) {
        if (stop_) return;
        const auto photo = KeyOfName(entry->d_name);
        struct stat found {};
        if (!photo || fstatat(dirfd(open.get()), entry->d_name, &found, 0) != 0) continue;
        if (S_ISREG(found.st_mode))
            folder.photos.push_back({*photo, static_cast<std::uint64_t>(found.st_size)});
    }
    std::sort(folder.photos.begin(), folder.photos.end(),
              [](const Seen& one, const Seen& other) { return one.photo < other.photo; });
    folder.ready.store(true, std::memory_order_release);
}

std::optional<std::uint64_t> PhotoLookAhead::TakeLength(std::int32_t listingNumber, int photo) {
    Folder& folder = folders_[static_cast<std::size_t>(listingNumber % FolderCount)];
    if (!folder.ready.load(std::memory_order_acquire)) return std::nullopt;
    const std::int64_t key = Key(listingNumber, photo);
    const auto seen =
        std::lower_bound(folder.photos.begin(), folder.photos.end(), key,
                         [](const Seen& one, std::int64_t wanted) { return one.photo < wanted; });
    if (seen == folder.photos.end() || seen->photo != key || seen->length == Taken) return std::nullopt;
    return std::exchange(seen->length, Taken);
}

}  // namespace host
