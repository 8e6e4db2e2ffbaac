#pragma once

#include "base/FileCalls.h"

namespace lumarin::windows {

/// Adapter: files by the system's own functions. Paths may be longer than the usual 260 characters. What a
/// scanner for viruses or an index holds open for a moment is tried again for half a second. The mark
/// "read-only" keeps a file from being written, as elsewhere, not from being renamed, replaced or deleted.
/// Reasons are the system's words, in its language.
class WindowsFiles final : public files::FileCalls {
public:
    Kind KindOf(const Path& path) const override;
    std::uint64_t Length(const Path& file, std::error_code& problem) const override;
    std::error_code MakeFolder(const Path& folder) const override;
    std::error_code Copy(const Path& from, const Path& to) const override;
    std::error_code Replace(const Path& from, const Path& to) const override;
    std::error_code Remove(const Path& path) const override;
    std::error_code ForEachEntry(const Path& folder, const Visit& visit) const override;
    std::string ReasonOf(const std::error_code& problem) const override;
    std::string LastReason() const override;
};

}  // namespace lumarin::windows
