#pragma once

#include <string>
#include <vector>

namespace lumarin {

/// Port: writes one standard zip archive.
class ZipArchiver {
public:
    virtual ~ZipArchiver() = default;

    /// Creates `archive` with the files, each stored under its plain file name, without folders. Photos
    /// are packed already, so an implementation may store them as they are. An older archive of that name
    /// is replaced. Throws Error, with nothing left at `archive`, when a file cannot be read or the archive
    /// not be written.
    virtual void Create(const std::string& archive, const std::vector<std::string>& files) = 0;
};

}  // namespace lumarin
