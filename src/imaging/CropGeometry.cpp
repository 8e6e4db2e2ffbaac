#include "imaging/CropGeometry.h"

#include <algorithm>
#include <cstdlib>

#include "base/Numbers.h"

namespace lumarin::crop {

namespace {

// A box of this side is still seen and taken hold of, and is too small to be captured.
constexpr double ShortestSide = 20 * TwipsPerPixel;
constexpr float LongestPreviewSide = 320.0F;
constexpr int SnapDistance = 6;

struct Span {
    int start = 0;
    int length = 0;
};

/// One direction of `PlaceInPhoto`: what is `before` and `after` the cut within the box, as margins.
Span PlaceAlong(int length, int before, int after, double factor, int photoLength) {
    // A cut that nothing is missing from fills the photo, however coarsely its few pixels were rounded.
    if (before >= 0 && after >= 0) return {0, photoLength};
    const int placed = std::max(1, Snapped(RoundToWhole(length * factor), photoLength));
    if (placed == photoLength || before >= 0) return {0, placed};
    if (after >= 0) return {photoLength - placed, placed};
    return {RoundToWhole(-before * factor), placed};
}

double AtLeastShortestWidth(double width, float aspectRatio) {
    return std::max({width, ShortestSide, ShortestSide * aspectRatio});
}

Rect DraggedByCorner(const Rect& box, HitZone corner, int dX, int dY, float aspectRatio) {
    const double across = box.width + (HoldsRight(corner) ? dX : -dX);
    const double down = box.height + (HoldsBottom(corner) ? dY : -dY);
    const double width = AtLeastShortestWidth(std::max(across, down * aspectRatio), aspectRatio);
    const double height = width / aspectRatio;
    return {HoldsRight(corner) ? box.left : box.Right() - width,
            HoldsBottom(corner) ? box.top : box.Bottom() - height, width, height};
}

}  // namespace

bool HoldsRight(HitZone zone) {
    return zone == HitZone::RightEdge || zone == HitZone::TopRight || zone == HitZone::BottomRight;
}

bool HoldsBottom(HitZone zone) {
    return zone == HitZone::BottomEdge || zone == HitZone::BottomLeft || zone == HitZone::BottomRight;
}

HitZone HitTest(const Rect& box, double x, double y) {
    const int left = RoundToWhole(box.left);
    const int right = RoundToWhole(box.Right());
    const int top = RoundToWhole(box.top);
    const int bottom = RoundToWhole(box.Bottom());
    const auto near = [](double inwards) { return inwards >= -CornerOutside && inwards <= CornerInside; };
    if (near(y - top) && near(x - left)) return HitZone::TopLeft;
    if (near(y - top) && near(right - x)) return HitZone::TopRight;
    if (near(bottom - y) && near(x - left)) return HitZone::BottomLeft;
    if (near(bottom - y) && near(right - x)) return HitZone::BottomRight;
    if (x < left || x > right || y < top || y > bottom) return HitZone::Outside;
    if (x < left + BorderBand) return HitZone::LeftEdge;
    if (x > right - BorderBand) return HitZone::RightEdge;
    if (y < top + BorderBand) return HitZone::TopEdge;
    if (y > bottom - BorderBand) return HitZone::BottomEdge;
    return HitZone::Inside;
}

Rect CenteredByWidth(const Rect& preview, float aspectRatio) {
    const double height = preview.width / aspectRatio;
    return {preview.left, preview.top + (preview.height - height) / 2, preview.width, height};
}

Rect CenteredByHeight(const Rect& preview, float aspectRatio) {
    const double width = preview.height * aspectRatio;
    return {preview.left + (preview.width - width) / 2, preview.top, width, preview.height};
}

Size LargestPlacements(float aspectRatio) {
    const double longest = LongestPreviewSide * TwipsPerPixel;
    return {longest * std::max(1.0F, aspectRatio), longest * std::max(1.0F, 1 / aspectRatio)};
}

Rect Dragged(const Rect& box, HitZone zone, int dX, int dY, float aspectRatio) {
    if (zone == HitZone::Inside) return Moved(box, dX, dY);
    if (zone == HitZone::LeftEdge || zone == HitZone::RightEdge) {
        const bool leftEdge = zone == HitZone::LeftEdge;
        const double width = AtLeastShortestWidth(leftEdge ? box.width - dX : box.width + dX, aspectRatio);
        const double height = width / aspectRatio;
        return {leftEdge ? box.Right() - width : box.left, box.top - (height - box.height) / 2, width,
                height};
    }
    if (zone == HitZone::TopEdge || zone == HitZone::BottomEdge) {
        const bool topEdge = zone == HitZone::TopEdge;
        const double dragged = topEdge ? box.height - dY : box.height + dY;
        const double width = AtLeastShortestWidth(dragged * aspectRatio, aspectRatio);
        const double height = width / aspectRatio;
        return {box.left - (width - box.width) / 2, topEdge ? box.Bottom() - height : box.top, width, height};
    }
    if (zone == HitZone::Outside) return box;
    return DraggedByCorner(box, zone, dX, dY, aspectRatio);
}

Rect Widened(const Rect& box, double dWidth, float aspectRatio) {
    const double width = AtLeastShortestWidth(box.width + dWidth, aspectRatio);
    const double height = width / aspectRatio;
    return {box.left - (width - box.width) / 2, box.top - (height - box.height) / 2, width, height};
}

Rect Moved(const Rect& box, double dX, double dY) {
    return {box.left + dX, box.top + dY, box.width, box.height};
}

PreviewSize PreviewSizeOf(int pictureWidth, int pictureHeight) {
    const float scale = LongestPreviewSide / static_cast<float>(std::max(pictureWidth, pictureHeight));
    const auto scaled = [scale](int side) {
        return std::max(1, RoundToWhole(static_cast<double>(side) * scale));
    };
    return {scale, scaled(pictureWidth), scaled(pictureHeight)};
}

MappedBox MapToPicture(const Rect& box, const Rect& preview, float scale, int pictureWidth,
                       int pictureHeight) {
    const auto toPixels = [scale](double twips) { return RoundToWhole(twips / TwipsPerPixel / scale); };
    const int width = toPixels(box.width);
    const int height = toPixels(box.height);

    MappedBox mapped;
    mapped.leftMargin = toPixels(box.left - preview.left);
    mapped.topMargin = toPixels(box.top - preview.top);
    mapped.rightMargin = pictureWidth - mapped.leftMargin - width;
    mapped.bottomMargin = pictureHeight - mapped.topMargin - height;
    mapped.cut.left = std::max(0, mapped.leftMargin);
    mapped.cut.top = std::max(0, mapped.topMargin);
    mapped.cut.width = pictureWidth - std::max(0, mapped.rightMargin) - mapped.cut.left;
    mapped.cut.height = pictureHeight - std::max(0, mapped.bottomMargin) - mapped.cut.top;
    return mapped;
}

PixelRect PlaceInPhoto(const MappedBox& box, double factor, int photoWidth, int photoHeight) {
    const Span across = PlaceAlong(box.cut.width, box.leftMargin, box.rightMargin, factor, photoWidth);
    const Span down = PlaceAlong(box.cut.height, box.topMargin, box.bottomMargin, factor, photoHeight);
    return {across.start, down.start, across.length, down.length};
}

int Snapped(int length, int wanted) { return std::abs(length - wanted) < SnapDistance ? wanted : length; }

}  // namespace lumarin::crop
