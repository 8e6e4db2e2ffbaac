#include "platform/vips/BlackAndWhite.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/vips/InkLimits.h"
#include "platform/vips/Paper.h"
#include "platform/vips/PhotoRegions.h"

namespace lumarin::vips {

namespace {

constexpr std::uint8_t Black = 0;
constexpr std::uint8_t White = 255;

// Once the light is evened out, scans and screens have 70 to 99 percent of their pixels near the paper's
// brightness, with a photo on the page too; photos have less than 50.
constexpr int NearPaper = 216;
constexpr double PaperOfPage = 0.6;
/// What is lighter than this share of the paper gets no dots: they would be dirt at the edges of a photo.
constexpr float WhiteOfPhoto = 0.95F;

bool IsMostlyPaper(const GreyPixels& whitened) {
    const auto paper = std::count_if(whitened.values.begin(), whitened.values.end(),
                                     [](std::uint8_t value) { return value >= NearPaper; });
    return static_cast<double>(paper) >= PaperOfPage * static_cast<double>(whitened.values.size());
}

/// The order in which the 64 dots of a square of 8 x 8 turn black, spread as evenly as can be: the bits of
/// the two coordinates, mixed and mirrored.
constexpr int DotOrder(int x, int y) {
    int order = 0;
    for (int bit = 0; bit < 3; ++bit) {
        const int across = x >> bit & 1;
        const int down = y >> bit & 1;
        order = order << 2 | (across ^ down) << 1 | down;
    }
    return order;
}

/// Up to which value a pixel of a row becomes black, by the last bits of its place.
/// A regular pattern and not the spreading of each pixel's error to the next ones: that shows a little more
/// detail, but its dots are so irregular that the file becomes eight times as large.
std::array<float, 8> DotLimits(int y) {
    std::array<float, 8> limits{};
    for (int x = 0; x < 8; ++x)
        limits[static_cast<std::size_t>(x)] = static_cast<float>(DotOrder(x, y & 7) * 4 + 2);
    return limits;
}

void MakeDots(GreyPixels& picture) {
    for (int y = 0; y < picture.height; ++y) {
        const std::array<float, 8> limits = DotLimits(y);
        std::uint8_t* row = picture.Row(y);
        for (int x = 0; x < picture.width; ++x)
            row[x] = static_cast<float>(row[x]) > limits[static_cast<std::size_t>(x & 7)] ? White : Black;
    }
}

/// Ink and paper, and the photos in dots.
void MakeInkAndDots(GreyPixels& page, const GreyPixels& whitened, const PhotoRegions& photos) {
    const InkLimits ink(whitened, photos);
    std::vector<float> inkLimits, light;
    std::vector<std::uint8_t> isPhoto;
    for (int y = 0; y < page.height; ++y) {
        ink.OfRow(y, inkLimits);
        photos.Light().OfRow(y, light);
        photos.OfRow(y, isPhoto);
        const std::array<float, 8> dotLimits = DotLimits(y);
        const std::uint8_t* paper = whitened.Row(y);
        std::uint8_t* row = page.Row(y);
        for (int x = 0; x < page.width; ++x) {
            const auto at = static_cast<std::size_t>(x);
            const bool isWhite = isPhoto[at] != 0 ? static_cast<float>(row[x]) * White >
                                                        dotLimits[at & 7] * WhiteOfPhoto * light[at]
                                                  : static_cast<float>(paper[x]) > inkLimits[at];
            row[x] = isWhite ? White : Black;
        }
    }
}

}  // namespace

void MakeBlackAndWhite(GreyPixels& picture) {
    const GreyPixels whitened = Paper(picture).Whiten(picture);
    const PhotoRegions photos(picture);
    if (photos.HasPaper() || IsMostlyPaper(whitened))
        MakeInkAndDots(picture, whitened, photos);
    else
        MakeDots(picture);
}

}  // namespace lumarin::vips
