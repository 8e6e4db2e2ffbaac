#pragma once

#include <cstdint>
#include <string>

namespace lumarin {

/// What the "Photo Size" setting says about finished photos.
struct PhotoSize {
    std::int32_t TargetWidth = 0;   ///< pixels
    std::int32_t TargetHeight = 0;  ///< pixels
    std::int32_t JpegQuality = 0;   ///< quality factor of the JPEG writer: lower is better and larger
    std::int32_t MaxFileBytes = 0;  ///< a source of this length or longer never passes unchanged
    std::string MarkerText;         ///< drawn on every photo, which is then marked as processed; "" for none
};

/// Reads "width,height,quality,bytes[,unused[,marker text]]". Throws IndexError when one of the four
/// numbers is missing, Error when one is not a number or the size is not that of a photo.
PhotoSize ParsePhotoSize(const std::string& setting);

}  // namespace lumarin
