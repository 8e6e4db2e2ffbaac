#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>

#include "base/Files.h"

namespace lumarin::files {

/// Port: what the file layer asks of the system. These are the standard library's answers; a system that has
/// better ones of its own overrides them. Paths are those of `ToPath`. Any thread.
class FileCalls {
public:
    using Path = std::filesystem::path;
    enum class Kind { None, File, Folder, Other };
    /// Takes an entry's name, valid during the call, and its kind; false ends the listing.
    using Visit = std::function<bool(std::string_view name, EntryKind kind)>;

    virtual ~FileCalls() = default;

    /// What a path leads to, through links.
    virtual Kind KindOf(const Path& path) const;
    virtual std::uint64_t Length(const Path& file, std::error_code& problem) const;
    /// With its missing parents; one that is there is not an error.
    virtual std::error_code MakeFolder(const Path& folder) const;
    /// Overwrites the target, not as a whole.
    virtual std::error_code Copy(const Path& from, const Path& to) const;
    /// Renames; a target that is there gives way as a whole.
    virtual std::error_code Replace(const Path& from, const Path& to) const;
    /// A file, or an empty folder. What is not there is an error.
    virtual std::error_code Remove(const Path& path) const;
    virtual std::error_code ForEachEntry(const Path& folder, const Visit& visit) const;

    /// Why something failed, for a person to read.
    virtual std::string ReasonOf(const std::error_code& problem) const;
    /// Why the last call of a stream failed.
    virtual std::string LastReason() const;
};

/// What the file layer asks from now on; not owned. Null stands for the standard library. Set before any file
/// is touched, while one thread runs.
void Use(const FileCalls* calls);
const FileCalls& Calls();

}  // namespace lumarin::files
