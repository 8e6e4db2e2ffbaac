#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/Files.h"
#include "base/Text.h"
#include "photo_window/ZipArchiver.h"

namespace lumarin::testing {

/// Keeps what was packaged; the archive's bytes are of a length that the test chooses.
struct FakeArchiver final : ZipArchiver {
    void Create(const std::string& archive, const std::vector<std::string>& files) override {
        packaged.clear();
        for (const std::string& file : files) {
            packaged.push_back(text::AfterLastSeparator(file));
            contents[packaged.back()] = files::ReadAll(file);
        }
        files::WriteWhole(archive, std::string(length, 'z'));
    }
    std::vector<std::string> packaged;            ///< plain names
    std::map<std::string, std::string> contents;  ///< bytes by plain name, as they were then
    std::size_t length = 100;
};

}  // namespace lumarin::testing
