#pragma once

#include <vector>

#include "platform/vips/Cells.h"
#include "platform/vips/GreyPixels.h"
#include "platform/vips/PhotoRegions.h"

namespace lumarin::vips {

/// Up to which brightness a pixel is ink, in every part of a page that has been whitened: letters in black
/// and a note in pencil beside them both stand out.
class InkLimits {
public:
    InkLimits(const GreyPixels& whitened, const PhotoRegions& photos);

    void OfRow(int y, std::vector<float>& limits) const { limits_.OfRow(y, limits); }

private:
    Cells limits_;
};

}  // namespace lumarin::vips
