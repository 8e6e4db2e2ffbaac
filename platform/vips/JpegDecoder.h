#pragma once

#include <functional>

#include "platform/vips/Library.h"
#include "platform/vips/StoredPicture.h"

namespace lumarin::vips {

/// The stored pixels of a JPEG file and what says whether they are sound.
struct DecodedJpeg {
    VImage image;  ///< grey, RGB or CMYK, to be read in one pass from top to bottom
    std::function<void(Rows)> check;
};

/// Reads the header; the file is decoded at a whole, half, quarter or eighth of its size (`shrink` 1, 2, 4,
/// 8), fractions of a pixel rounded up. Throws VError when the header cannot be read.
///
/// Rows are damaged when the decoder complains about their data, or when other data than filling stand
/// between the last one and the end marker. A missing end marker is not damage, nor is anything behind it,
/// nor an oddity of the header that leaves the picture whole.
DecodedJpeg DecodeJpeg(const VSource& source, int shrink);

}  // namespace lumarin::vips
