#include "platform/vips/Shades.h"

#include <algorithm>
#include <numeric>

namespace lumarin::vips {

namespace {

// In bins, on white paper.
constexpr std::ptrdiff_t DarkestTone = 13;
constexpr std::ptrdiff_t BrightestTone = 56;
constexpr std::ptrdiff_t PeakReach = 3;  // on both sides of a single shade, for its grain

constexpr double LeastTones = 0.35;     // of the pixels
constexpr double LeastManyTones = 0.2;  // of the tones

}  // namespace

void Shades::Add(const Shades& others) {
    for (std::size_t bin = 0; bin < counts_.size(); ++bin) counts_[bin] += others.counts_[bin];
}

std::uint32_t Shades::Count() const { return std::accumulate(counts_.begin(), counts_.end(), 0U); }

float Shades::Quantile(float share) const {
    const auto enough = static_cast<std::uint32_t>(share * static_cast<float>(Count()));
    std::uint32_t below = 0;
    std::size_t bin = 0;
    while (bin + 1 < counts_.size() && (below += counts_[bin]) < enough) ++bin;
    return (static_cast<float>(bin) + 0.5F) * ValuesOfBin;
}

bool Shades::AreOfPhoto(std::uint32_t pixels) const {
    std::array<std::uint32_t, Bins> tones{};
    std::copy(counts_.begin() + DarkestTone, counts_.begin() + BrightestTone, tones.begin() + DarkestTone);
    const double all = std::accumulate(tones.begin(), tones.end(), 0.0);
    if (all < LeastTones * pixels || all == 0) return false;
    for (int shade = 0; shade < 2; ++shade) {
        const auto peak = std::max_element(tones.begin(), tones.end()) - tones.begin();
        const auto first = std::max<std::ptrdiff_t>(0, peak - PeakReach);
        const auto end = std::min<std::ptrdiff_t>(Bins, peak + PeakReach + 1);
        std::fill(tones.begin() + first, tones.begin() + end, 0U);
    }
    return std::accumulate(tones.begin(), tones.end(), 0.0) >= LeastManyTones * all;
}

}  // namespace lumarin::vips
