#include "imaging/Tones.h"

#include <algorithm>

#include "base/Numbers.h"

namespace lumarin {

namespace {

constexpr double White = 255.0;
constexpr double Middle = 127.5;

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

ToneTable PlainTones() { return MakeToneTable(0, 0); }

Picture WithTones(const Picture& picture, const ToneTable& tones) {
    Picture changed{picture.width, picture.height, std::vector<std::uint8_t>(picture.pixels.size())};
    std::transform(picture.pixels.begin(), picture.pixels.end(), changed.pixels.begin(),
                   [&](std::uint8_t value) { return tones[value]; });
    return changed;
}

}  // namespace lumarin
