#include "host/server/PackageReader.h"

#include "base/FileSystem.h"
#include "base/Numbers.h"
#include "host/server/Jpeg.h"
#include "host/server/Refusal.h"

#include <zip.h>

#include <algorithm>
#include <utility>

namespace host {

namespace {

constexpr zip_int64_t MostEntries = 100'000;
/// 81 texts of the greatest length and the two numbers.
constexpr std::size_t LargestManifest = 81 * (2 + 0xFFFF) + 8;

std::string ReasonOf(zip_error_t& error) {
    std::string reason = zip_error_strerror(&error);
    zip_error_fini(&error);
    return reason;
}

/// Opens the archive in `source`, which it takes over. The consistency check refuses a name that occurs
/// twice.
zip_t* OpenArchive(zip_source_t* source, zip_error_t& error) {
    zip_t* archive =
        source == nullptr ? nullptr : zip_open_from_source(source, ZIP_RDONLY | ZIP_CHECKCONS, &error);
    if (archive == nullptr) {
        zip_source_free(source);
        throw Refusal("The package cannot be read as a zip archive: " + ReasonOf(error));
    }
    return archive;
}

/// The listing number of "N.dat"; 0 when the name has another form.
std::int32_t ManifestListing(std::string_view name) {
    constexpr std::string_view Ending = ".dat";
    if (!name.ends_with(Ending)) return 0;
    return lumarin::ParseListingNumber(name.substr(0, name.size() - Ending.size())).value_or(0);
}

bool IsPhotoName(std::string_view name) {
    constexpr std::string_view Ending = ".jpg";
    if (!name.ends_with(Ending) || name.size() < Ending.size() + 2) return false;
    const char letter = name[name.size() - Ending.size() - 1];
    return letter >= 'a' && letter <= 'z' &&
           lumarin::ParseListingNumber(name.substr(0, name.size() - Ending.size() - 1)).has_value();
}

std::string PhotoName(std::int32_t listing, std::size_t photo) {
    return std::to_string(listing) + PhotoLetter(photo) + ".jpg";
}

}  // namespace

PackageReader PackageReader::FromFile(const std::string& path) {
    zip_error_t error;
    zip_error_init(&error);
    return PackageReader(
        OpenArchive(zip_source_file_create(lumarin::files::LibraryPath(path).c_str(), 0, -1, &error), error));
}

PackageReader PackageReader::FromBytes(std::string_view bytes) {
    zip_error_t error;
    zip_error_init(&error);
    return PackageReader(OpenArchive(zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error), error));
}

PackageReader::PackageReader(zip* archive) : archive_(archive) {
    try {
        ReadEntries();
        CheckPhotos();
    } catch (...) {
        zip_discard(archive_);
        throw;
    }
}

PackageReader::PackageReader(PackageReader&& other) noexcept
    : archive_(std::exchange(other.archive_, nullptr)),
      manifests_(std::move(other.manifests_)),
      photoEntries_(std::move(other.photoEntries_)) {}

PackageReader::~PackageReader() {
    if (archive_ != nullptr) zip_discard(archive_);
}

void PackageReader::ReadEntries() {
    const zip_int64_t count = zip_get_num_entries(archive_, 0);
    if (count <= 0) throw Refusal("The package is empty");
    if (count > MostEntries) throw Refusal("The package has too many entries");
    zip_uint64_t total = 0;
    for (zip_uint64_t index = 0; index < static_cast<zip_uint64_t>(count); ++index) {
        zip_stat_t entry;
        if (zip_stat_index(archive_, index, 0, &entry) != 0 || (entry.valid & ZIP_STAT_SIZE) == 0)
            throw Refusal("The package's directory cannot be read");
        const std::string name = entry.name;
        total += std::min<zip_uint64_t>(entry.size, LargestPackage);
        if (entry.size > LargestEntry) throw Refusal("The package's " + name + " is too large");
        if (total > LargestPackage) throw Refusal("The package is too large");
        if (IsPhotoName(name)) {
            photoEntries_.insert(name);
        } else if (const std::int32_t listing = ManifestListing(name); listing != 0) {
            manifests_.push_back(ReadManifest(ReadEntry(name, LargestManifest)));
            if (manifests_.back().listing != listing)
                throw Refusal("The manifest " + name + " is another listing's");
        } else {
            throw Refusal("The package holds something unknown: " + name);
        }
    }
}

void PackageReader::CheckPhotos() const {
    std::set<std::string_view> announced;
    for (const Manifest& manifest : manifests_) {
        for (std::size_t photo = 0; photo < manifest.photos.size(); ++photo) {
            if (manifest.photos[photo].published != ManifestPhoto::NoneYet) continue;
            const auto entry = photoEntries_.find(PhotoName(manifest.listing, photo));
            if (entry == photoEntries_.end())
                throw Refusal("The package lacks the photo " + PhotoName(manifest.listing, photo));
            announced.insert(*entry);
        }
    }
    for (const std::string& name : photoEntries_)
        if (!announced.contains(name)) throw Refusal("No manifest announces the photo " + name);
}

std::string PackageReader::ReadPhoto(std::int32_t listing, std::size_t photo) const {
    const std::string name = PhotoName(listing, photo);
    std::string bytes = ReadEntry(name, LargestEntry);
    if (!IsWholeJpeg(bytes)) throw Refusal("The photo " + name + " is not a whole JPEG picture");
    return bytes;
}

std::string PackageReader::ReadEntry(const std::string& name, std::size_t largest) const {
    zip_stat_t entry;
    zip_file_t* file = nullptr;
    if (zip_stat(archive_, name.c_str(), 0, &entry) == 0) {
        if (entry.size > largest) throw Refusal("The package's " + name + " is too large");
        file = zip_fopen(archive_, name.c_str(), 0);
    }
    if (file == nullptr)
        throw Refusal("The package's " + name + " cannot be read: " + zip_strerror(archive_));
    // One byte more than announced: only reading past the end compares the check sum.
    std::string bytes(static_cast<std::size_t>(entry.size) + 1, '\0');
    std::size_t filled = 0;
    zip_int64_t got = 1;
    while (got > 0 && filled < bytes.size()) {
        got = zip_fread(file, bytes.data() + filled, bytes.size() - filled);
        if (got > 0) filled += static_cast<std::size_t>(got);
    }
    zip_fclose(file);
    if (got != 0 || filled != entry.size) throw Refusal("The package's " + name + " is damaged");
    bytes.resize(filled);
    return bytes;
}

}  // namespace host
