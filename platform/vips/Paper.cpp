#include "platform/vips/Paper.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace lumarin::vips {

namespace {

constexpr int CellsOfLongerSide = 48;  // a line or two of text each
constexpr float DarkestShadow = 0.5F;  // of the brightest paper; what is darker is dark itself
constexpr float White = 255.0F;

/// A position between two cells: the first of them, and how far the second one counts.
struct Between {
    int first = 0;
    float second = 0;
};

Between CellsAt(int pixel, int cellSide, int cellCount) {
    const float position = (static_cast<float>(pixel) + 0.5F) / static_cast<float>(cellSide) - 0.5F;
    const float inside = std::clamp(position, 0.0F, static_cast<float>(cellCount - 1));
    const int first = static_cast<int>(inside);
    return {first, inside - static_cast<float>(first)};
}

float Mix(float first, float second, float share) { return first + (second - first) * share; }

}  // namespace

Paper::Paper(const GreyPixels& picture)
    : cellSide_(std::max(1, std::max(picture.width, picture.height) / CellsOfLongerSide)),
      across_((picture.width + cellSide_ - 1) / cellSide_),
      down_((picture.height + cellSide_ - 1) / cellSide_),
      cells_(static_cast<std::size_t>(across_) * static_cast<std::size_t>(down_)) {
    for (int y = 0; y < picture.height; ++y) {
        const std::uint8_t* row = picture.Row(y);
        float* cells = &cells_[static_cast<std::size_t>(y / cellSide_) * static_cast<std::size_t>(across_)];
        for (int x = 0; x < picture.width; x += cellSide_) {
            const int end = std::min(picture.width, x + cellSide_);
            const float brightest = *std::max_element(row + x, row + end);
            cells[x / cellSide_] = std::max(cells[x / cellSide_], brightest);
        }
    }
    CombineNeighbours([](float best, float value) { return std::max(best, value); }, 1);
    CombineNeighbours([](float sum, float value) { return sum + value; }, 9);
    const float brightest = *std::max_element(cells_.begin(), cells_.end());
    for (float& cell : cells_) cell = std::max({cell, brightest * DarkestShadow, 1.0F});
}

float Paper::Cell(int column, int row) const {
    const int inColumn = std::clamp(column, 0, across_ - 1);
    const int inRow = std::clamp(row, 0, down_ - 1);
    return cells_[static_cast<std::size_t>(inRow) * static_cast<std::size_t>(across_) +
                  static_cast<std::size_t>(inColumn)];
}

template <typename Combine>
void Paper::CombineNeighbours(Combine combine, float divisor) {
    std::vector<float> combined;
    combined.reserve(cells_.size());
    for (int row = 0; row < down_; ++row)
        for (int column = 0; column < across_; ++column) {
            float value = 0;
            for (int i = 0; i < 9; ++i) value = combine(value, Cell(column + i % 3 - 1, row + i / 3 - 1));
            combined.push_back(value / divisor);
        }
    cells_ = std::move(combined);
}

GreyPixels Paper::Whiten(const GreyPixels& picture) const {
    std::vector<Between> columns;
    columns.reserve(static_cast<std::size_t>(picture.width));
    for (int x = 0; x < picture.width; ++x) columns.push_back(CellsAt(x, cellSide_, across_));
    std::vector<float> factors(static_cast<std::size_t>(across_) + 1);

    GreyPixels whitened{picture.width, picture.height, std::vector<std::uint8_t>(picture.values.size())};
    for (int y = 0; y < picture.height; ++y) {
        const Between row = CellsAt(y, cellSide_, down_);
        for (int column = 0; column <= across_; ++column)
            factors[static_cast<std::size_t>(column)] =
                White / Mix(Cell(column, row.first), Cell(column, row.first + 1), row.second);
        const std::uint8_t* from = picture.Row(y);
        std::uint8_t* to = whitened.Row(y);
        for (int x = 0; x < picture.width; ++x) {
            const auto [first, second] = columns[static_cast<std::size_t>(x)];
            const float* factor = &factors[static_cast<std::size_t>(first)];
            const float value = static_cast<float>(from[x]) * Mix(factor[0], factor[1], second);
            to[x] = static_cast<std::uint8_t>(std::min(White, value + 0.5F));
        }
    }
    return whitened;
}

}  // namespace lumarin::vips
