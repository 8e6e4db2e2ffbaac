#pragma once

#include "host/server/Manifest.h"

#include <cstddef>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

struct zip;
struct zip_error;

namespace host {

/// A photo package: a zip archive of N.dat manifests and the N<letter>.jpg photos that they announce as new,
/// by plain names. A constructed reader stands for a package that is whole in itself: every entry belongs
/// to a manifest, every manifest's new photos are there, and nothing is larger than the limits. Whether
/// a photo is a picture is seen when it is read. Everything that is wrong throws Refusal.
class PackageReader {
public:
    static constexpr std::size_t LargestEntry = 64U << 20;
    static constexpr std::size_t LargestPackage = 1U << 30;  ///< Of the archive, and of what is in it.

    static PackageReader FromFile(const std::string& path);
    /// The bytes must stay as long as the reader.
    static PackageReader FromBytes(std::string_view bytes);
    ~PackageReader();
    PackageReader(PackageReader&&) noexcept;
    PackageReader& operator=(PackageReader&&) = delete;

    const std::vector<Manifest>& Manifests() const { return manifests_; }

    /// The JPEG bytes of a listing's new photo, counted from 0.
    std::string ReadPhoto(std::int32_t listing, std::size_t photo) const;

private:
    explicit PackageReader(zip* archive);
    void ReadEntries();
    void CheckPhotos() const;
    std::string ReadEntry(const std::string& name, std::size_t largest) const;

    zip* archive_;
    std::vector<Manifest> manifests_;
    std::set<std::string, std::less<>> photoEntries_;
};

}  // namespace host
