#pragma once

#include <string>
#include <string_view>

#include "imaging/Imaging.h"

namespace lumarin {

/// The mark of a photo that has been through the crop window already: the file's 25th byte is 108. In a
/// marked file that byte is the first letter of a JPEG comment, so that the file stays a sound JPEG.

bool HasProcessedMarker(std::string_view file);

/// The JPEG file's bytes with the mark. Throws ImagingError when they are not a JPEG.
std::string WithProcessedMarker(const std::string& jpeg);

/// `SourcePicture::Capture` of a marked photo. The destination appears whole, with its mark, or not at all.
void CaptureMarked(SourcePicture& source, const CaptureOrder& order, const std::string& destination);

}  // namespace lumarin
