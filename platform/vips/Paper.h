#pragma once

#include <cstddef>
#include <vector>

#include "platform/vips/BlackAndWhite.h"

namespace lumarin::vips {

/// How bright the paper is in every part of a picture: the brightest value around, so that letters do not
/// count, smoothed from part to part, so that shadows do.
class Paper {
public:
    explicit Paper(const GreyPixels& picture);

    /// The picture as it would look on white paper in even light.
    GreyPixels Whiten(const GreyPixels& picture) const;

private:
    template <typename Combine>
    void CombineNeighbours(Combine combine, float divisor);
    float Cell(int column, int row) const;

    int cellSide_;  ///< pixels
    int across_;
    int down_;
    std::vector<float> cells_;
};

}  // namespace lumarin::vips
