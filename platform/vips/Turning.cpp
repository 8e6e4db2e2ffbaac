#include "platform/vips/Turning.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

#include "platform/vips/Render.h"

namespace lumarin::vips {

namespace {

constexpr std::int32_t InvalidParameterError = 20013;
constexpr int Margin = 2;  // pixels that the interpolation reads beside a cut

}  // namespace

int TurnedPicture::Orientation() const {
    // What an orientation becomes by a quarter clockwise; the mirrored ones (2, 4, 5, 7) among themselves.
    constexpr std::array<int, 9> Next{0, 6, 7, 8, 5, 2, 3, 4, 1};
    int orientation = stored_->Orientation();
    for (int i = 0; i < quarters_; ++i) orientation = Next.at(static_cast<std::size_t>(orientation));
    return orientation;
}

Straightening::Straightening(double degrees, std::optional<PaperEdges> edges)
    : degrees_(degrees), edges_(std::move(edges)) {
    const double angle = degrees * std::numbers::pi / 180;
    cosine_ = std::cos(angle);
    sine_ = std::sin(angle);
}

double Straightening::ShareLeft(const StoredPicture& picture) const {
    const double width = UprightWidth(picture);
    const double height = UprightHeight(picture);
    const double slope = std::abs(sine_);
    return std::min(width / (width * cosine_ + height * slope), height / (width * slope + height * cosine_));
}

int Straightening::WidthOf(const StoredPicture& picture) const {
    return std::max(1,
                    static_cast<int>(UprightWidth(picture) * (edges_ ? edges_->width : ShareLeft(picture))));
}

int Straightening::HeightOf(const StoredPicture& picture) const {
    return std::max(
        1, static_cast<int>(UprightHeight(picture) * (edges_ ? edges_->height : ShareLeft(picture))));
}

Straightening::Point Straightening::BeforeTurn(const StoredPicture& picture, Point turned) const {
    const double x = turned.x - WidthOf(picture) / 2.0;
    const double y = turned.y - HeightOf(picture) / 2.0;
    return {x * cosine_ + y * sine_ + UprightWidth(picture) / 2.0,
            y * cosine_ - x * sine_ + UprightHeight(picture) / 2.0};
}

/// The upright part that a cut out of the turned picture needs.
PixelRect Straightening::Around(const StoredPicture& picture, const PixelRect& cut) const {
    double left = UprightWidth(picture), right = 0, top = UprightHeight(picture), bottom = 0;
    for (const int x : {cut.left, cut.left + cut.width})
        for (const int y : {cut.top, cut.top + cut.height}) {
            const Point corner = BeforeTurn(picture, {static_cast<double>(x), static_cast<double>(y)});
            left = std::min(left, corner.x);
            right = std::max(right, corner.x);
            top = std::min(top, corner.y);
            bottom = std::max(bottom, corner.y);
        }
    const int fromX = std::max(0, static_cast<int>(left) - Margin);
    const int fromY = std::max(0, static_cast<int>(top) - Margin);
    return {fromX, fromY, std::min(UprightWidth(picture), static_cast<int>(right) + Margin + 1) - fromX,
            std::min(UprightHeight(picture), static_cast<int>(bottom) + Margin + 1) - fromY};
}

Picture Straightening::Render(const StoredPicture& picture, const PixelRect& cut, int width,
                              int height) const {
    if (IsPlain()) return vips::Render(picture, cut, width, height);
    const bool inside = cut.left >= 0 && cut.top >= 0 && cut.width > 0 && cut.height > 0 &&
                        cut.left + cut.width <= WidthOf(picture) && cut.top + cut.height <= HeightOf(picture);
    if (!inside || width <= 0 || height <= 0)
        throw ImagingError(InvalidParameterError, "The cut does not lie inside the photo.");

    // The upright part is reduced as the photo will be, so that turning it only interpolates.
    const double across = static_cast<double>(width) / cut.width;
    const double down = static_cast<double>(height) / cut.height;
    const double reduction = std::min(1.0, std::max(across, down));
    const PixelRect part = Around(picture, cut);
    const auto reduced = [reduction](int side) {
        return std::max(1, static_cast<int>(std::lround(side * reduction)));
    };
    const Picture upright = vips::Render(picture, part, reduced(part.width), reduced(part.height));
    const double scaleX = static_cast<double>(upright.width) / part.width;
    const double scaleY = static_cast<double>(upright.height) / part.height;

    // Forwards: from a pixel of the upright part to one of the result.
    const double a = across * cosine_ / scaleX, b = -across * sine_ / scaleY;
    const double c = down * sine_ / scaleX, d = down * cosine_ / scaleY;
    const Point middle = BeforeTurn(picture, {cut.left + cut.width / 2.0, cut.top + cut.height / 2.0});
    const double fromX = (middle.x - part.left) * scaleX - 0.5;
    const double fromY = (middle.y - part.top) * scaleY - 0.5;
    const auto interpolation = ::vips::VInterpolate::new_from_name("bicubic");
    VOption* options = VImage::option()
                           ->set("oarea", std::vector<int>{0, 0, width, height})
                           ->set("odx", (width - 1) / 2.0 - a * fromX - b * fromY)
                           ->set("ody", (height - 1) / 2.0 - c * fromX - d * fromY)
                           ->set("interpolate", interpolation)
                           ->set("extend", edges_ ? VIPS_EXTEND_BACKGROUND : VIPS_EXTEND_COPY);
    if (edges_) options->set("background", edges_->colour);
    return PixelsOf(ImageOver(upright).affine({a, b, c, d}, options));
}

}  // namespace lumarin::vips
