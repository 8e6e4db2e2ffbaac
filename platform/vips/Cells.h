#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace lumarin::vips {

/// A value for each part of a picture, all parts squares of the same side; from the middle of one to the
/// middle of the next the values pass into each other.
class Cells {
public:
    Cells(int width, int height, int side);

    int Width() const { return width_; }  ///< of the picture
    int Side() const { return side_; }    ///< pixels
    int Across() const { return across_; }
    int Down() const { return down_; }
    float& At(int column, int row) { return values_[Place(column, row)]; }
    /// Beyond the edge it goes on as at the edge.
    float Near(int column, int row) const;
    std::vector<float>& All() { return values_; }
    const std::vector<float>& All() const { return values_; }

    /// Gives each cell what `combine` makes, one after the other, of it and the eight around it.
    void CombineNeighbours(const std::function<float(float soFar, float value)>& combine);

    /// The values of a row of pixels.
    void OfRow(int y, std::vector<float>& values) const;

private:
    struct Between {
        int first = 0;
        float second = 0;  ///< how far the second one counts
    };
    static Between Position(int pixel, int side, int count);
    std::size_t Place(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(across_) +
               static_cast<std::size_t>(column);
    }

    int width_;
    int side_;
    int across_;
    int down_;
    std::vector<float> values_;
};

}  // namespace lumarin::vips
