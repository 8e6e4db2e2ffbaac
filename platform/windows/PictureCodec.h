#pragma once

#include <string>

#include "forms/Picture.h"

namespace lumarin::windows {

/// Reads a HEIC picture with the codec that the system has for it: its first picture, upright and in sRGB.
/// Throws ImagingError: MissingCodecError when the system has none.
PicturePtr DecodeHeic(const std::string& path);

}  // namespace lumarin::windows
