#pragma once

#include "platform/vips/Cells.h"
#include "platform/vips/GreyPixels.h"

namespace lumarin::vips {

/// How bright the paper is in every part of a picture: the brightest value around, so that letters do not
/// count, smoothed from part to part, so that shadows do.
class Paper {
public:
    explicit Paper(const GreyPixels& picture);

    /// The picture as it would look on white paper in even light.
    GreyPixels Whiten(const GreyPixels& picture) const;

private:
    Cells brightness_;
};

}  // namespace lumarin::vips
