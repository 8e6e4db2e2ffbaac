#include "host_server/PackageBuilder.h"

#include "base/Files.h"
#include "support/TemporaryFolder.h"

#include <zip.h>

#include <stdexcept>

namespace host {

namespace {

std::string LittleEndian(std::size_t value, int bytes) {
    std::string out;
    for (int i = 0; i < bytes; ++i) out += static_cast<char>((value >> (8 * i)) & 0xFF);
    return out;
}

std::string Text(const std::string& text) { return LittleEndian(text.size(), 2) + text; }

}  // namespace

std::string TinyJpeg(std::size_t size, char seed) {
    std::string jpeg("\xFF\xD8\xFF\xC0\x00\x04\x00\x00\xFF\xDA\x00\x04\x00\x00", 14);
    return jpeg + std::string(size - jpeg.size() - 2, seed) + "\xFF\xD9";
}

std::string ManifestBytes(std::int32_t listing,
                          const std::vector<std::pair<std::string, std::string>>& photos) {
    constexpr std::size_t Entries = 26;
    std::string bytes = LittleEndian(static_cast<std::uint32_t>(listing), 4) + LittleEndian(photos.size(), 4);
    bytes += Text("") + Text("") + Text("");
    for (std::size_t i = 0; i < Entries; ++i) {
        const bool used = i < photos.size();
        bytes += Text(used ? photos[i].first : "") + Text("") + Text(used ? photos[i].second : "");
    }
    return bytes;
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
        const zip_int64_t index = zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_UTF_8);
        if (index < 0) throw std::runtime_error("the entry " + name + " cannot be added");
        zip_set_file_compression(archive, static_cast<zip_uint64_t>(index),
                                 compressed ? ZIP_CM_DEFLATE : ZIP_CM_STORE, 0);
    }
    if (zip_close(archive) != 0) throw std::runtime_error("the archive cannot be written");
    return lumarin::files::ReadAll(path);
}

}  // namespace host
