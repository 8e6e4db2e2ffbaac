#include "platform/vips/PageContents.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "platform/vips/GreyPixels.h"
#include "platform/vips/Skew.h"

namespace lumarin::vips {

namespace {

constexpr std::size_t Bands = 3;
constexpr double DarkestPaper = 96;  // what is darker may be a photo of the night
constexpr double Beside = 10;        // pixels of paper that are left beside what is on the page

/// The middle one of all values, which is of the paper where that is most of the page.
std::vector<double> MiddleColour(const Picture& page) {
    std::array<std::array<std::size_t, 256>, Bands> counts{};
    for (std::size_t i = 0; i < page.pixels.size(); ++i) ++counts[i % Bands][page.pixels[i]];
    std::vector<double> colour;
    for (const auto& band : counts) {
        std::size_t value = 0, below = 0;
        while (value < 255 && (below += band[value]) * 2 * Bands < page.pixels.size()) ++value;
        colour.push_back(static_cast<double>(value));
    }
    return colour;
}

}  // namespace

PageContents::PageContents(const Picture& page) : PageContents(page, ToGrey(page)) {}

PageContents::PageContents(const Picture& page, const GreyPixels& grey)
    : ink_(grey), photos_(grey), paper_(MiddleColour(page)) {}

PageLook PageContents::Look() const {
    const bool isPaper = *std::max_element(paper_.begin(), paper_.end()) >= DarkestPaper;
    if (!ink_.HasContents()) return {.isBlank = isPaper};
    return {.skew = SkewOf(ink_, photos_)};
}

PaperEdges PageContents::EdgesFor(double degrees) const {
    const double angle = degrees * std::numbers::pi / 180;
    const double middleX = ink_.Width() / 2.0, middleY = ink_.Height() / 2.0;
    double farX = 0, farY = 0;
    for (int y = 0; y < ink_.Height(); ++y)
        for (int x = 0; x < ink_.Width(); ++x) {
            if (!ink_.At(x, y)) continue;
            const double fromX = x + 0.5 - middleX, fromY = y + 0.5 - middleY;
            farX = std::max(farX, std::abs(fromX * std::cos(angle) - fromY * std::sin(angle)) + Beside);
            farY = std::max(farY, std::abs(fromX * std::sin(angle) + fromY * std::cos(angle)) + Beside);
        }
    return {std::max(1.0, farX / middleX), std::max(1.0, farY / middleY), paper_};
}

}  // namespace lumarin::vips
