#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <optional>
#include <thread>
#include <vector>

#include "platform/system/FolderTree.h"

namespace host {

/// Looks at all files of the photo folder on a thread of its own, for somebody who will ask for most of them
/// soon. Never waits, and what it says is old quickly: each answer is given once, and none after `Lifetime`.
/// All calls on one thread.
class PhotoLookAhead {
public:
    static constexpr std::int64_t Lifetime = 2'000;  ///< milliseconds

    /// `tree` is the photo folder, and outlives this object.
    explicit PhotoLookAhead(const lumarin::platform::FolderTree& tree);
    ~PhotoLookAhead();
    PhotoLookAhead(const PhotoLookAhead&) = delete;
    PhotoLookAhead& operator=(const PhotoLookAhead&) = delete;

    bool IsOver() const { return lumarin::platform::CoarseMilliseconds() - start_ > Lifetime; }
    /// The file's bytes; nothing when it was not seen (yet), or asked for before.
    std::optional<std::uint64_t> TakeLength(std::int32_t listingNumber, int photo);

private:
    struct Seen {
        std::int64_t photo;  ///< listing and letter in one
        std::uint64_t length;
    };
    /// Written by the thread, then `ready`, then read by the others.
    struct Folder {
        std::vector<Seen> photos;
        std::atomic<bool> ready = false;
    };

    void Run() noexcept;
    void Look(int folderNumber);

    const lumarin::platform::FolderTree& tree_;
    std::int64_t start_ = lumarin::platform::CoarseMilliseconds();
    std::array<Folder, 100> folders_;
    std::atomic<bool> stop_ = false;
    std::thread thread_;
};

}  // namespace host
