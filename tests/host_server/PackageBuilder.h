#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace host {

/// Bytes that pass for a JPEG picture, `size` of them (at least 40), told apart by `seed`.
std::string TinyJpeg(std::size_t size, char seed = 'x');

/// The bytes of a manifest: for each photo its description code and the letter of the published photo.
std::string ManifestBytes(std::int32_t listing,
                          const std::vector<std::pair<std::string, std::string>>& photos);

/// A zip archive put together entry by entry.
class PackageBuilder {
public:
    PackageBuilder& Entry(std::string name, std::string bytes);
    PackageBuilder& Listing(std::int32_t listing,
                            const std::vector<std::pair<std::string, std::string>>& photos) {
        return Entry(std::to_string(listing) + ".dat", ManifestBytes(listing, photos));
    }
    /// Entries are stored as they are unless they are to be compressed.
    std::string Bytes(bool compressed = false) const;

private:
    std::vector<std::pair<std::string, std::string>> entries_;
};

}  // namespace host
