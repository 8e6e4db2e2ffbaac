#pragma once

#include "platform/vips/Cells.h"

namespace lumarin::vips {

/// How bright the paper of a page is, or would be where something else lies over it: a light that gets weaker
/// to a side or a corner, from how bright the parts of the page are.
Cells PaperLight(const Cells& brightness);

}  // namespace lumarin::vips
