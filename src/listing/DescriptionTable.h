#pragma once

#include <string>
#include <utility>
#include <vector>

#include "entry/VelCommon.h"

namespace lumarin {

/// Maps a photo's description code to the text that is shown for it.
class DescriptionTable {
public:
    DescriptionTable() = default;
    explicit DescriptionTable(std::vector<PhotoDescription> entries) : entries_(std::move(entries)) {}

    const std::vector<PhotoDescription>& Entries() const { return entries_; }

    /// The code itself when the table does not have it, so that nothing shows as blank.
    std::string Text(const std::string& code) const {
        for (const PhotoDescription& entry : entries_)
            if (std::to_string(entry.code) == code) return entry.text;
        return code;
    }

private:
    std::vector<PhotoDescription> entries_;
};

}  // namespace lumarin
