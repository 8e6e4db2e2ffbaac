#include "imaging/Tones.h"

#include <algorithm>

#include "base/Numbers.h"

namespace lumarin {

namespace {

constexpr double White = 255.0;
constexpr double Middle = 127.5;
constexpr std::size_t LeftOutOf = 200;  // one of so many pixels at either end
constexpr int FewestTones = 8;          // a picture with fewer is one plain colour
constexpr int MostAutomatic = 150;

double WithIntensity(double value, int intensity) {
    return value + (intensity > 0 ? White - value : value) * intensity / 1000.0;
}

double WithContrast(double value, int contrast) {
    const double slope = contrast > 0 ? 1.0 + contrast / 250.0 : 1.0 + contrast / 1000.0;
    return Middle + (value - Middle) * slope;
}

}  // namespace

ToneTable MakeToneTable(int intensity, int contrast) {
    ToneTable table{};
    for (std::size_t value = 0; value < table.size(); ++value) {
        const double changed = WithContrast(WithIntensity(static_cast<double>(value), intensity), contrast);
        table[value] = static_cast<std::uint8_t>(std::clamp(RoundToWhole(changed), 0, 255));
    }
    return table;
}

ToneChange AutomaticTones(const Picture& picture) {
    std::array<std::size_t, 256> counts{};
    for (std::size_t i = 0; i + 2 < picture.pixels.size(); i += 3) {
        const std::uint8_t* pixel = &picture.pixels[i];
        ++counts[static_cast<std::size_t>((pixel[0] * 299 + pixel[1] * 587 + pixel[2] * 114) / 1000)];
    }
    const std::size_t leftOut = picture.pixels.size() / 3 / LeftOutOf;
    const auto firstBeyond = [&](int value, int step) {
        for (std::size_t passed = counts[static_cast<std::size_t>(value)]; passed <= leftOut;
             passed += counts[static_cast<std::size_t>(value)])
            value += step;
        return value;
    };
    if (picture.IsEmpty()) return {};
    const double darkest = firstBeyond(0, 1);
    const double brightest = firstBeyond(255, -1);
    if (brightest - darkest < FewestTones) return {};

    // First the middle of what there is goes to the middle grey, then the contrast spreads it.
    const double sum = darkest + brightest;
    const double share = sum < White ? (White - sum) / (2 * White - sum) : White / sum - 1;
    const int intensity = std::clamp(RoundToWhole(share * 1000), -MostAutomatic, MostAutomatic);
    const double reach =
        std::max(Middle - WithIntensity(darkest, intensity), WithIntensity(brightest, intensity) - Middle);
    const int contrast = std::clamp(RoundToWhole((Middle / reach - 1) * 250), 0, MostAutomatic);
    return {intensity, contrast};
}

ToneTable PlainTones() { return MakeToneTable(0, 0); }

Picture WithTones(const Picture& picture, const ToneTable& tones) {
    Picture changed{picture.width, picture.height, std::vector<std::uint8_t>(picture.pixels.size())};
    std::transform(picture.pixels.begin(), picture.pixels.end(), changed.pixels.begin(),
                   [&](std::uint8_t value) { return tones[value]; });
    return changed;
}

}  // namespace lumarin
