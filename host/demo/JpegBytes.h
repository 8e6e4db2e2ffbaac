#pragma once

#include <string>

class QImage;

namespace host {

/// The picture as a JPEG file of a quality from 0 to 100. Throws lumarin::Error when it cannot be made.
std::string JpegBytes(const QImage& image, int quality);

}  // namespace host
