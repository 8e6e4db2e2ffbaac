#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/vips/GreyPixels.h"

namespace lumarin::vips {

/// Where a page is darker than the paper around, small enough for what is looked for on it: letters and
/// lines, but hardly the grain of the paper, and none of the dust.
class InkMask {
public:
    /// How long the page's longer side should be for this, in pixels.
    static constexpr int LongerSide = 1650;

    explicit InkMask(const GreyPixels& page);

    int Width() const { return width_; }
    int Height() const { return height_; }
    bool At(int x, int y) const { return ink_[Place(x, y)] != 0; }
    /// Whether there is anything that somebody has written or printed.
    bool HasContents() const { return hasContents_; }

private:
    /// Dark pixels that hang together.
    struct Spot {
        std::vector<std::size_t> pixels;
        int left, top, right, bottom;  ///< of its outermost pixels
        int Across() const { return right - left + 1; }
        int Down() const { return bottom - top + 1; }
    };

    std::size_t Place(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
    }
    double Millimetres(int pixels) const;
    void MarkDark(const GreyPixels& page);
    Spot TakeSpot(int x, int y, std::vector<std::uint8_t>& left) const;
    double FromEdge(const Spot& spot) const;
    bool IsOfTheSheet(const Spot& spot) const;
    bool IsPunchedHole(const Spot& spot) const;

    int width_;
    int height_;
    std::vector<std::uint8_t> ink_;
    bool hasContents_ = false;
};

}  // namespace lumarin::vips
