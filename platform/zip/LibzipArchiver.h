#pragma once

#include <string>
#include <vector>

#include "photo_window/ZipArchiver.h"

namespace lumarin::zip {

/// Adapter: the zip archiver port over libzip. Entries are stored, not compressed: photos do not get smaller.
/// The archive is written under another name and renamed. Every failure is a FileError that names the file it
/// is about; two files with the same plain name are one.
class LibzipArchiver final : public ZipArchiver {
public:
    void Create(const std::string& archive, const std::vector<std::string>& files) override;
};

}  // namespace lumarin::zip
