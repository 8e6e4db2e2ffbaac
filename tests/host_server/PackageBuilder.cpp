#include "host_server/PackageBuilder.h"

#include "base/Files.h"
#include "listing/StateFile.h"
#include "support/TemporaryFolder.h"

#include <zip.h>

namespace host {

std::string TinyJpeg(std::size_t size, char seed) {
    std::string jpeg("\xFF\xD8\xFF\xC0\x00\x04\x00\x00\xFF\xDA\x00\x04\x00\x00", 14);
    return jpeg + std::string(size - jpeg.size() - 2, seed) + "\xFF\xD9";
}

std::string ManifestBytes(std::int32_t listing,
                          const std::vector<std::pair<std::string, std::string>>& photos) {
    lumarin::ListingState state;
    state.ListNum = listing;
    state.PhotoCount = static_cast<std::int32_t>(photos.size());
    for (std::size_t i = 0; i < photos.size(); ++i) {
        state.Photos[i].DescCode = photos[i].first;
        state.Photos[i].SentLetter = photos[i].second;
    }
    return lumarin::state_file::Encode(state);
}

PackageBuilder& PackageBuilder::Entry(std::string name, std::string bytes) {
    entries_.emplace_back(std::move(name), std::move(bytes));
    return *this;
}

std::string PackageBuilder::Bytes(bool compressed) const {
    const lumarin::testing::TemporaryFolder folder;
    const std::string path = folder.Path() + "package";
    zip_t* archive = zip_open(path.c_str(), ZIP_CREATE, nullptr);
    for (const auto& [name, bytes] : entries_) {
        zip_source_t* source = zip_source_buffer(archive, bytes.data(), bytes.size(), 0);
        const auto index =
            static_cast<zip_uint64_t>(zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_UTF_8));
        zip_set_file_compression(archive, index, compressed ? ZIP_CM_DEFLATE : ZIP_CM_STORE, 0);
    }
    zip_close(archive);
    return lumarin::files::ReadAll(path);
}

}  // namespace host
