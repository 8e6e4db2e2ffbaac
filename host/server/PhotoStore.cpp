#include "host/server/PhotoStore.h"

#include "base/FileSystem.h"
#include "base/Files.h"
#include "base/Numbers.h"

#include <algorithm>
#include <filesystem>
#include <random>

namespace host {

namespace {

namespace files = lumarin::files;

std::string UniqueName() {
    static std::random_device random;
    const std::uint64_t number = static_cast<std::uint64_t>(random()) << 32 | random();
    std::string name;
    for (int shift = 60; shift >= 0; shift -= 4) name += "0123456789abcdef"[(number >> shift) & 0xF];
    return name + ".jpg";
}

}  // namespace

std::string PhotoStore::ListingFolder(std::int32_t listing) const {
    return folder_ + std::to_string(listing) + files::Separator;
}

std::string PhotoStore::Path(std::int32_t listing, const std::string& fileName) const {
    return ListingFolder(listing) + fileName;
}

PublishedPhoto PhotoStore::Add(std::int32_t listing, std::string_view jpeg, std::string code) const {
    files::EnsureFolder(ListingFolder(listing));
    PublishedPhoto photo{UniqueName(), jpeg.size(), std::move(code)};
    while (files::FileExists(Path(listing, photo.fileName))) photo.fileName = UniqueName();
    files::WriteWhole(Path(listing, photo.fileName), jpeg);
    return photo;
}

std::vector<PublishedPhoto> PhotoStore::Published(Database& database, std::int32_t listing) {
    Statement rows(database,
                   "SELECT FileName, Bytes, Code FROM ServerPhotos WHERE ListNum = ? ORDER BY Position");
    rows.Bind(1, std::int64_t{listing});
    std::vector<PublishedPhoto> photos;
    while (rows.Step())
        photos.push_back({rows.Text(0), static_cast<std::uint64_t>(rows.Integer(1)), rows.Text(2)});
    return photos;
}

void PhotoStore::Publish(Database& database, std::int32_t listing,
                         const std::vector<PublishedPhoto>& photos) {
    Statement(database, "DELETE FROM ServerPhotos WHERE ListNum = ?").Bind(1, std::int64_t{listing}).Finish();
    Statement insert(
        database,
        "INSERT INTO ServerPhotos (ListNum, Position, FileName, Bytes, Code) VALUES (?, ?, ?, ?, ?)");
    std::string version;
    std::string codes = photos.empty() ? "" : std::to_string(photos.size());
    std::int64_t position = 0;
    for (const PublishedPhoto& photo : photos) {
        version += (version.empty() ? "" : ",") + std::to_string(photo.bytes);
        codes += "," + photo.code;
        insert.Bind(1, std::int64_t{listing}).Bind(2, ++position).Bind(3, photo.fileName);
        insert.Bind(4, static_cast<std::int64_t>(photo.bytes)).Bind(5, photo.code).Finish();
    }
    Statement row(
        database,
        "INSERT OR REPLACE INTO Photo (PhoListNum, PhotoCount, PhotoVersion, PhotoDesc) VALUES (?, ?, ?, ?)");
    row.Bind(1, std::int64_t{listing}).Bind(2, position).Bind(3, version).Bind(4, codes).Finish();
}

void PhotoStore::Sweep(Database& database) const {
    std::error_code ignored;
    std::vector<std::int32_t> listings;
    for (const auto& entry : std::filesystem::directory_iterator(files::ToPath(folder_), ignored))
        if (const auto listing = lumarin::ParseListingNumber(files::ToUtf8(entry.path().filename())))
            listings.push_back(*listing);
    for (const std::int32_t listing : listings) Sweep(database, listing);
}

void PhotoStore::Sweep(Database& database, std::int32_t listing) const {
    const std::vector<PublishedPhoto> photos = Published(database, listing);
    const auto leftover = [&](const std::string& name) {
        return std::none_of(photos.begin(), photos.end(),
                            [&](const auto& photo) { return photo.fileName == name; });
    };
    for (const std::string& name : files::List(ListingFolder(listing), leftover))
        files::TryDelete(Path(listing, name));
    if (photos.empty()) files::TryDelete(ListingFolder(listing));
}

}  // namespace host
