#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace lumarin::platform {

/// Reads a tree of folders by names within it, which costs less than by whole paths. Any thread.
class FolderTree {
public:
    /// Throws FileError when there is no such folder. `root` ends in a separator.
    explicit FolderTree(const std::string& root);
    ~FolderTree();
    FolderTree(const FolderTree&) = delete;
    FolderTree& operator=(const FolderTree&) = delete;

    /// Bytes of a regular file; nothing when there is none of that name.
    std::optional<std::uint64_t> LengthOf(const std::string& name) const;

    /// Takes a file's name, without its folder, and its bytes; false ends the reading.
    using TakeFile = std::function<bool(std::string_view name, std::uint64_t length)>;
    enum class Reading { Whole, Ended, NoFolder };
    /// Hands over the regular files of a folder that `wanted` names, in any order.
    Reading ReadFolder(const std::string& folder, const std::function<bool(std::string_view)>& wanted,
                       const TakeFile& take) const;

private:
    struct Root;
    std::unique_ptr<Root> root_;
};

/// Milliseconds of a clock that only goes on, to within a few; it costs next to nothing to read.
std::int64_t CoarseMilliseconds();

}  // namespace lumarin::platform
