#pragma once

#include "host/database/Database.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// One published photo of a listing: a file of the store, and what the photo is of.
struct PublishedPhoto {
    std::string fileName;
    std::uint64_t bytes = 0;
    std::string code;
};

/// The server's published photos: files under names that are used once and never written again, in one
/// folder per listing, and the rows that say which file is which photo. Whoever adds or sweeps holds the
/// database's write lock (a Transaction), so that the files of a change that is under way elsewhere are
/// never taken for leftovers. Failures throw lumarin::Error.
class PhotoStore {
public:
    /// `folder` ends in a separator.
    explicit PhotoStore(std::string folder) : folder_(std::move(folder)) {}

    /// Writes a photo that is not published yet.
    PublishedPhoto Add(std::int32_t listing, std::string_view jpeg, std::string code) const;
    std::string Path(std::int32_t listing, const std::string& fileName) const;

    /// The photos of a listing in order.
    static std::vector<PublishedPhoto> Published(Database& database, std::int32_t listing);
    /// Makes these the listing's photos, for the server and for everybody who asks the database.
    static void Publish(Database& database, std::int32_t listing, const std::vector<PublishedPhoto>& photos);

    /// Deletes the files that no row names, and the folders that become empty.
    void Sweep(Database& database) const;
    void Sweep(Database& database, std::int32_t listing) const;

private:
    std::string ListingFolder(std::int32_t listing) const;

    std::string folder_;
};

}  // namespace host
