#pragma once

#include <vector>

#include "imaging/Imaging.h"
#include "platform/vips/InkMask.h"
#include "platform/vips/PhotoRegions.h"
#include "platform/vips/Turning.h"

namespace lumarin::vips {

/// The longer side of the picture that this wants, in pixels; a longer one only takes more time.
inline constexpr int ContentsSide = InkMask::LongerSide;

/// What is on a page, found in a reduced picture of it.
class PageContents {
public:
    /// Throws VError.
    explicit PageContents(const Picture& page);

    PageLook Look() const;
    /// What a turn by some degrees clockwise has to leave, and has to fill its corners with.
    PaperEdges EdgesFor(double degrees) const;

private:
    PageContents(const Picture& page, const GreyPixels& grey);

    InkMask ink_;
    PhotoRegions photos_;
    std::vector<double> paper_;  ///< red, green and blue
};

}  // namespace lumarin::vips
