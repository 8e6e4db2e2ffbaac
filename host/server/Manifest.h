#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// A listing's photos are named by the letters a to z.
inline constexpr std::size_t MostPhotos = 26;

/// One photo as the sender wants it published.
struct ManifestPhoto {
    std::string code;                   ///< Its description code.
    int published = NoneYet;            ///< The published photo that it is, counted from 0.
    static constexpr int NoneYet = -1;  ///< It is new and comes in the package.
};

/// What a listing's photos are to be, in order.
struct Manifest {
    std::int32_t listing = 0;
    std::vector<ManifestPhoto> photos;
};

/// Reads a listing's state file as it was made for sending; bytes behind the structure do not count.
/// Throws Refusal for anything that is cut short or impossible.
Manifest ReadManifest(std::string_view bytes);

/// The letter of a photo, counted from 0.
char PhotoLetter(std::size_t photo);

}  // namespace host
