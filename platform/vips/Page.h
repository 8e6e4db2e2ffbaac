#pragma once

#include <string>

#include "imaging/Imaging.h"

namespace lumarin::vips {

/// The bytes of a page's PNG file. Throws VError.
std::string EncodePage(const Picture& picture, PageColours colours);

}  // namespace lumarin::vips
