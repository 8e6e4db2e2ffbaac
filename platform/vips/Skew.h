#pragma once

#include "platform/vips/InkMask.h"
#include "platform/vips/PhotoRegions.h"

namespace lumarin::vips {

/// By how many degrees the lines of a page are turned clockwise, letters of text as well as drawn lines, from
/// -10 to 10. 0 when they are level, and when that is not sure: the page then stays as it is.
double SkewOf(const InkMask& ink, const PhotoRegions& photos);

}  // namespace lumarin::vips
