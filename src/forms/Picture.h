#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace lumarin {

/// A picture in memory: 24 bits per pixel, red, green, blue, rows from the top without padding.
struct Picture {
    int width = 0;   ///< pixels
    int height = 0;  ///< pixels
    std::vector<std::uint8_t> pixels;

    bool IsEmpty() const { return width <= 0 || height <= 0; }
};

using PicturePtr = std::shared_ptr<const Picture>;

/// What a step does to each colour value: the new value by the old one, the same for all three colours.
using ToneTable = std::array<std::uint8_t, 256>;

}  // namespace lumarin
