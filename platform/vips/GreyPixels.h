#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "forms/Picture.h"

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

/// How light each pixel of a picture is. Throws VError.
GreyPixels ToGrey(const Picture& picture);

}  // namespace lumarin::vips
