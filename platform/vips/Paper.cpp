#include "platform/vips/Paper.h"

#include <algorithm>
#include <cstdint>

namespace lumarin::vips {

namespace {

constexpr int CellsOfLongerSide = 48;  // a line or two of text each
constexpr float DarkestShadow = 0.5F;  // of the brightest paper; what is darker is dark itself
constexpr float White = 255.0F;

}  // namespace

Paper::Paper(const GreyPixels& picture)
    : brightness_(picture.width, picture.height,
                  std::max(picture.width, picture.height) / CellsOfLongerSide) {
    const int side = brightness_.Side();
    for (int y = 0; y < picture.height; ++y) {
        const std::uint8_t* row = picture.Row(y);
        for (int x = 0; x < picture.width; x += side) {
            const float brightest = *std::max_element(row + x, row + std::min(picture.width, x + side));
            float& cell = brightness_.At(x / side, y / side);
            cell = std::max(cell, brightest);
        }
    }
    brightness_.CombineNeighbours([](float best, float value) { return std::max(best, value); });
    brightness_.CombineNeighbours([](float sum, float value) { return sum + value; });
    for (float& cell : brightness_.All()) cell /= 9;
    const float brightest = *std::max_element(brightness_.All().begin(), brightness_.All().end());
    for (float& cell : brightness_.All()) cell = std::max({cell, brightest * DarkestShadow, 1.0F});
}

GreyPixels Paper::Whiten(const GreyPixels& picture) const {
    std::vector<float> brightness;
    GreyPixels whitened{picture.width, picture.height, std::vector<std::uint8_t>(picture.values.size())};
    for (int y = 0; y < picture.height; ++y) {
        brightness_.OfRow(y, brightness);
        const std::uint8_t* from = picture.Row(y);
        std::uint8_t* to = whitened.Row(y);
        for (int x = 0; x < picture.width; ++x) {
            const float value = static_cast<float>(from[x]) * White / brightness[static_cast<std::size_t>(x)];
            to[x] = static_cast<std::uint8_t>(std::min(White, value + 0.5F));
        }
    }
    return whitened;
}

}  // namespace lumarin::vips
