#pragma once

#include <cstdint>

#include "imaging/Imaging.h"

namespace lumarin {

/// A picture's size in pixels; scaling leaves fractions.
struct PixelSize {
    double width = 0;
    double height = 0;
};

/// The size reduced to what a page of this colour mode may have, proportions kept; never enlarged.
PixelSize WithinLimit(PixelSize size, PageColours colours);

/// Where a picture is drawn on its page, in whole points from the upper left corner.
struct PagePlace {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// As large as fits the usable area of a page with this page size code, in the middle, at the top.
PagePlace PlaceOnPage(PixelSize picture, std::int32_t pageSize);

}  // namespace lumarin
