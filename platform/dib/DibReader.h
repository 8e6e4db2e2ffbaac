#pragma once

#include <cstddef>
#include <span>

#include "forms/Picture.h"
#include "imaging/Imaging.h"

namespace lumarin::dib {

/// The bytes end before the picture does.
class CutShortError : public ImagingError {
public:
    CutShortError() : ImagingError(InvalidPictureError, "The picture is cut short.") {}
};

/// Reads a device-independent bitmap: header, colours, rows; uncompressed, with 1, 4, 8, 16, 24 or 32 bits
/// per pixel, from the bottom or from the top. The bytes come from another program, so nothing that they say
/// is trusted. Throws ImagingError with InvalidPictureError for another kind and for more than MaximumPixels.
Picture ReadDib(std::span<const std::byte> bytes);

}  // namespace lumarin::dib
