#include "platform/vips/InkLimits.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

namespace lumarin::vips {

namespace {

constexpr int CellsOfLongerSide = 72;  // half a line of text each
// The grain of an empty sheet is not ink, nor are letters paper because a few of them are very black.
constexpr int LightestInk = 216;
constexpr int DarkestPaper = 128;
// Of a part of the page that has a limit of its own.
constexpr double LeastInk = 0.002;      // of its pixels
constexpr double LeastContrast = 45.0;  // between ink and paper

using Histogram = std::array<std::uint32_t, 256>;

void Add(Histogram& sum, const Histogram& histogram) {
    for (std::size_t value = 0; value < sum.size(); ++value) sum[value] += histogram[value];
}

/// The lightest value of the darker ones, where the values fall apart best into two groups (Otsu: the largest
/// variance between the groups). Nothing where there is too little ink to tell.
std::optional<int> LimitOf(const Histogram& histogram) {
    double count = 0, sum = 0;
    for (std::size_t value = 0; value < histogram.size(); ++value) {
        count += histogram[value];
        sum += static_cast<double>(histogram[value]) * static_cast<double>(value);
    }
    double dark = 0, darkSum = 0, best = 0;
    std::optional<int> limit;
    for (std::size_t value = 0; value + 1 < histogram.size(); ++value) {
        dark += histogram[value];
        darkSum += static_cast<double>(histogram[value]) * static_cast<double>(value);
        if (dark == 0 || dark == count) continue;
        const double apart = (sum - darkSum) / (count - dark) - darkSum / dark;
        const double variance = dark * (count - dark) * apart * apart;
        if (variance <= best) continue;
        best = variance;
        const bool isInk = dark >= LeastInk * count && apart >= LeastContrast;
        limit = isInk ? std::optional(std::clamp(static_cast<int>(value), DarkestPaper, LightestInk))
                      : std::nullopt;
    }
    return limit;
}

}  // namespace

InkLimits::InkLimits(const GreyPixels& whitened, const PhotoRegions& photos)
    : limits_(whitened.width, whitened.height,
              std::max(whitened.width, whitened.height) / CellsOfLongerSide) {
    std::vector<Histogram> histograms(limits_.All().size());
    const auto place = [this](int column, int row) {
        return static_cast<std::size_t>(row * limits_.Across() + column);
    };
    std::vector<std::uint8_t> isPhoto;
    for (int y = 0; y < whitened.height; ++y) {
        photos.OfRow(y, isPhoto);
        const std::uint8_t* row = whitened.Row(y);
        for (int x = 0; x < whitened.width; ++x)
            if (isPhoto[static_cast<std::size_t>(x)] == 0)
                ++histograms[place(x / limits_.Side(), y / limits_.Side())][row[x]];
    }

    Histogram whole{};
    for (const Histogram& histogram : histograms) Add(whole, histogram);
    const int common = LimitOf(whole).value_or(DarkestPaper);
    for (int row = 0; row < limits_.Down(); ++row)
        for (int column = 0; column < limits_.Across(); ++column) {
            Histogram around{};
            for (int y = std::max(0, row - 1); y <= std::min(limits_.Down() - 1, row + 1); ++y)
                for (int x = std::max(0, column - 1); x <= std::min(limits_.Across() - 1, column + 1); ++x)
                    Add(around, histograms[place(x, y)]);
            limits_.At(column, row) = static_cast<float>(LimitOf(around).value_or(common));
        }
}

}  // namespace lumarin::vips
