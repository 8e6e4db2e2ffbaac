#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace host {

/// A photo as it is sent, or as the server holds it: its file's bytes and its description's text.
struct PhotoContent {
    std::string bytes;
    std::string description;
    bool operator==(const PhotoContent&) const = default;
};

/// The photos of a listing that the server holds, in order. Throws lumarin::Error when it cannot be read.
std::vector<PhotoContent> PublishedListing(const std::string& dataFolder, std::int32_t listing);

}  // namespace host
