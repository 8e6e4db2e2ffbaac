#include "platform/vips/Cells.h"

#include <algorithm>

namespace lumarin::vips {

namespace {
float Mix(float first, float second, float share) { return first + (second - first) * share; }
}  // namespace

Cells::Cells(int width, int height, int side)
    : width_(width),
      side_(std::max(1, side)),
      across_((width + side_ - 1) / side_),
      down_((height + side_ - 1) / side_),
      values_(static_cast<std::size_t>(across_) * static_cast<std::size_t>(down_)) {}

float Cells::Near(int column, int row) const {
    return values_[Place(std::clamp(column, 0, across_ - 1), std::clamp(row, 0, down_ - 1))];
}

void Cells::CombineNeighbours(const std::function<float(float, float)>& combine) {
    std::vector<float> combined;
    combined.reserve(values_.size());
    for (int row = 0; row < down_; ++row)
        for (int column = 0; column < across_; ++column) {
            float value = Near(column, row);
            for (int i = 0; i < 9; ++i)
                if (i != 4) value = combine(value, Near(column + i % 3 - 1, row + i / 3 - 1));
            combined.push_back(value);
        }
    values_ = std::move(combined);
}

Cells::Between Cells::Position(int pixel, int side, int count) {
    const float position = (static_cast<float>(pixel) + 0.5F) / static_cast<float>(side) - 0.5F;
    const float inside = std::clamp(position, 0.0F, static_cast<float>(count - 1));
    const int first = static_cast<int>(inside);
    return {first, inside - static_cast<float>(first)};
}

void Cells::OfRow(int y, std::vector<float>& values) const {
    const Between row = Position(y, side_, down_);
    std::vector<float> columns(static_cast<std::size_t>(across_) + 1);
    for (int column = 0; column <= across_; ++column)
        columns[static_cast<std::size_t>(column)] =
            Mix(Near(column, row.first), Near(column, row.first + 1), row.second);
    values.resize(static_cast<std::size_t>(width_));
    for (int x = 0; x < width_; ++x) {
        const auto [first, second] = Position(x, side_, across_);
        const float* column = &columns[static_cast<std::size_t>(first)];
        values[static_cast<std::size_t>(x)] = Mix(column[0], column[1], second);
    }
}

}  // namespace lumarin::vips
