#pragma once

#include <cstdint>
#include <string>

namespace host {

/// Writes a JPEG as a camera would deliver it: any size in pixels, detailed, high quality. The same picture
/// for the same arguments. Needs no application object. Throws lumarin::Error when it cannot be written.
void DrawLargePhoto(const std::string& path, int width, int height, std::uint32_t seed);

}  // namespace host
