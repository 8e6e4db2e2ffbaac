#pragma once

#include <cstdint>
#include <vector>

namespace lumarin::vips {

/// Grey values, one byte per pixel, row after row.
struct GreyPixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> values;

    const std::uint8_t* Row(int y) const {
        return &values[static_cast<std::size_t>(y) * static_cast<std::size_t>(width)];
    }
    std::uint8_t* Row(int y) {
        return &values[static_cast<std::size_t>(y) * static_cast<std::size_t>(width)];
    }
};

/// Makes every pixel 0 or 255. A page that is mostly paper, also unevenly lit paper, becomes sharp black on
/// plain white; everything else a regular pattern of dots that looks grey from afar.
void MakeBlackAndWhite(GreyPixels& picture);

}  // namespace lumarin::vips
