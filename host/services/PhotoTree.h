#pragma once

#include "host/services/PhotoLookAhead.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/system/FolderTree.h"

namespace host {

/// The host's photo folder, a tree of digit folders. It is held open, so that a look at a photo does not take
/// its way through all folders above. All calls on one thread.
class PhotoTree {
public:
    /// `root` exists and ends in a separator. Throws lumarin::Error when it cannot be opened.
    explicit PhotoTree(std::string root);

    const std::string& Root() const { return root_; }
    /// With a separator at its end; relative to the root.
    static std::string FolderOf(std::int32_t listingNumber);
    /// `photo` counts from 1; relative to the root.
    static std::string NameOf(std::int32_t listingNumber, int photo);

    /// Most photos will be asked for soon, each once.
    void LookAhead();
    /// Bytes of a photo's file; nothing when there is no such file. `name` is its `NameOf`.
    std::optional<std::uint64_t> LengthOf(std::int32_t listingNumber, int photo, const std::string& name);

private:
    std::string root_;
    lumarin::platform::FolderTree tree_;
    std::unique_ptr<PhotoLookAhead> lookAhead_;
};

}  // namespace host
