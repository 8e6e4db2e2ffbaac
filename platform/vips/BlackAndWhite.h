#pragma once

#include "platform/vips/GreyPixels.h"

namespace lumarin::vips {

/// Makes every pixel 0 or 255. Paper, also unevenly lit paper, becomes plain white with sharp black on it;
/// the photos on it, and a picture without any paper, become a regular pattern of dots that looks grey from
/// afar.
void MakeBlackAndWhite(GreyPixels& picture);

}  // namespace lumarin::vips
