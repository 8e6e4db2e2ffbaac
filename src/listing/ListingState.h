#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace lumarin {

/// Photo files carry one letter, a to z: no listing has more photos.
inline constexpr int MaximumPhotoSlots = 26;

/// The description code of a photo for which none is stored.
inline constexpr const char* DefaultDescriptionCode = "2110";

struct PhotoEntry {
    std::string DescCode;
    std::string DescText;  ///< display text of the code
    std::string
        SentLetter;  ///< in a manifest: letter of the published photo that this one is; "" when it is sent
    bool operator==(const PhotoEntry&) const = default;
};

/// What is known of one listing between two runs, and what its manifest says.
struct ListingState {
    std::int32_t ListNum = 0;
    std::int32_t PhotoCount = 0;  ///< 0 to MaximumPhotoSlots
    std::string StreetNumber;
    std::string StreetDirection;
    std::string StreetName;
    std::array<PhotoEntry, MaximumPhotoSlots> Photos;  ///< the first PhotoCount are used
    bool operator==(const ListingState&) const = default;
};

}  // namespace lumarin
