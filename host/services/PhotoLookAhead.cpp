#include "host/services/PhotoLookAhead.h"

#include "base/Numbers.h"

#include <algorithm>
#include <limits>
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

}  // namespace

PhotoLookAhead::PhotoLookAhead(const lumarin::platform::FolderTree& tree) : tree_(tree) {
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

void PhotoLookAhead::Run() noexcept {
    try {
        for (int folder = 0; folder < FolderCount && !stop_; ++folder) Look(folder);
    } catch (...) {
        // What was not seen is looked at when it is asked for.
    }
}

void PhotoLookAhead::Look(int folderNumber) {
    const std::string name = std::to_string(folderNumber / 10) + "/" + std::to_string(folderNumber % 10);
    Folder& folder = folders_[static_cast<std::size_t>(folderNumber)];
    std::int64_t photo = 0;
    const auto isPhoto = [&](std::string_view file) {
        const auto key = KeyOfName(file);
        photo = key.value_or(0);
        return key.has_value();
    };
    const auto take = [&](std::string_view, std::uint64_t length) {
        folder.photos.push_back({photo, length});
        return !stop_;
    };
    if (tree_.ReadFolder(name, isPhoto, take) != lumarin::platform::FolderTree::Reading::Whole) return;
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
