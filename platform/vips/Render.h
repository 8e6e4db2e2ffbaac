#pragma once

#include "imaging/Imaging.h"
#include "platform/vips/StoredPicture.h"

namespace lumarin::vips {

/// Size of the picture once it stands upright.
int UprightWidth(const StoredPicture& picture);
int UprightHeight(const StoredPicture& picture);

/// Cuts a part out of the upright picture and resamples it to exactly width x height pixels: upright, sRGB,
/// alpha on white. The cut must lie inside the picture and the size be positive, else ImagingError.
/// Decodes no rows below the cut. Throws VError when the file is damaged up to there, for the whole picture
/// also when only its last rows are.
Picture Render(const StoredPicture& picture, const PixelRect& cut, int width, int height);

/// The pixels of an image of three bands of bytes.
Picture PixelsOf(const VImage& image);

}  // namespace lumarin::vips
