#include "platform/vips/BlackAndWhite.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>
#include <utility>

#include "platform/vips/Paper.h"

namespace lumarin::vips {

namespace {

constexpr std::uint8_t Black = 0;
constexpr std::uint8_t White = 255;

// Once the light is evened out, scans and screens have 70 to 99 percent of their pixels near the paper's
// brightness, with a photo on the page too; photos have less than 50.
constexpr int NearPaper = 216;
constexpr double PaperOfPage = 0.6;
// The grain of an empty sheet is not ink, nor are letters paper because a few of them are very black.
constexpr int LightestInk = 216;
constexpr int DarkestPaper = 128;

using Histogram = std::array<double, 256>;

Histogram CountValues(const GreyPixels& picture) {
    std::array<std::size_t, 256> counts{};
    for (const std::uint8_t value : picture.values) ++counts[value];
    Histogram histogram;
    std::copy(counts.begin(), counts.end(), histogram.begin());
    return histogram;
}

bool IsMostlyPaper(const Histogram& histogram) {
    const double paper = std::accumulate(histogram.begin() + NearPaper, histogram.end(), 0.0);
    return paper >= PaperOfPage * std::accumulate(histogram.begin(), histogram.end(), 0.0);
}

/// The lightest value of the darker ones, where the values fall apart best into two groups (Otsu: the largest
/// variance between the groups).
int InkLimit(const Histogram& histogram) {
    double count = 0, sum = 0;
    for (std::size_t value = 0; value < histogram.size(); ++value) {
        count += histogram[value];
        sum += histogram[value] * static_cast<double>(value);
    }
    double dark = 0, darkSum = 0, best = 0;
    int limit = DarkestPaper;
    for (std::size_t value = 0; value + 1 < histogram.size(); ++value) {
        dark += histogram[value];
        darkSum += histogram[value] * static_cast<double>(value);
        if (dark == 0 || dark == count) continue;
        const double apart = darkSum / dark - (sum - darkSum) / (count - dark);
        const double variance = dark * (count - dark) * apart * apart;
        if (variance <= best) continue;
        best = variance;
        limit = static_cast<int>(value);
    }
    return std::clamp(limit, DarkestPaper, LightestInk);
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

/// A regular pattern and not the spreading of each pixel's error to the next ones: that shows a little more
/// detail, but its dots are so irregular that the file becomes eight times as large.
void Dither(GreyPixels& picture) {
    for (int y = 0; y < picture.height; ++y) {
        std::array<int, 8> limits{};
        for (int x = 0; x < 8; ++x) limits[static_cast<std::size_t>(x)] = DotOrder(x, y & 7) * 4 + 2;
        std::uint8_t* row = picture.Row(y);
        for (int x = 0; x < picture.width; ++x)
            row[x] = row[x] > limits[static_cast<std::size_t>(x & 7)] ? White : Black;
    }
}

}  // namespace

void MakeBlackAndWhite(GreyPixels& picture) {
    GreyPixels whitened = Paper(picture).Whiten(picture);
    const Histogram histogram = CountValues(whitened);
    if (!IsMostlyPaper(histogram)) {
        Dither(picture);
        return;
    }
    const int limit = InkLimit(histogram);
    for (std::uint8_t& value : whitened.values) value = value > limit ? White : Black;
    picture = std::move(whitened);
}

}  // namespace lumarin::vips
