#pragma once

#include "forms/Geometry.h"
#include "imaging/Imaging.h"

/// The crop window's arithmetic. Boxes and previews are in twips on the stage, one coordinate system for
/// both; `aspectRatio` is the finished photo's width by its height. Nothing here keeps a box within the
/// picture: what runs past the picture becomes white in the photo.
namespace lumarin::crop {

/// What the pointer takes hold of.
enum class HitZone {
    Outside = 0,
    LeftEdge = 1,
    TopEdge = 2,
    RightEdge = 3,
    BottomEdge = 4,
    Inside = 5,
    TopLeft = 6,
    TopRight = 7,
    BottomLeft = 8,
    BottomRight = 9
};

/// Width of the band along the box's edges, on its inside, that sizes instead of moving.
inline constexpr int BorderBand = 150;
/// How far a corner's handle reaches out of the box and into it. It lies outside for the most part, so that
/// it takes little from the edges.
inline constexpr int CornerOutside = 120;
inline constexpr int CornerInside = 60;

bool HoldsRight(HitZone zone);
bool HoldsBottom(HitZone zone);

HitZone HitTest(const Rect& box, double x, double y);

/// As wide as the preview, in the middle of its height.
Rect CenteredByWidth(const Rect& preview, float aspectRatio);
/// As high as the preview, in the middle of its width.
Rect CenteredByHeight(const Rect& preview, float aspectRatio);

/// Twips that hold any preview with its box in either placement.
Size LargestPlacements(float aspectRatio);

/// The box after the pointer moved by (`dX`, `dY`) whole twips with this hold on it. An edge takes the other
/// side's length along, about its middle, so that the ratio stays; a corner leaves the opposite one where it
/// is, and the box reaches as far as the pointer in at least one direction. No side gets shorter than 300
/// twips: an edge that is dragged past the opposite one stops before it.
Rect Dragged(const Rect& box, HitZone zone, int dX, int dY, float aspectRatio);

/// The box made wider (narrower below 0) by `dWidth` about its middle.
Rect Widened(const Rect& box, double dWidth, float aspectRatio);

Rect Moved(const Rect& box, double dX, double dY);

/// Pixels of a picture of this size in its preview; the longer side is 320, neither is below 1.
struct PreviewSize {
    float scale = 1;  ///< preview pixels per picture pixel
    int width = 0;
    int height = 0;
};
PreviewSize PreviewSizeOf(int pictureWidth, int pictureHeight);

/// A box in the picture's pixels.
struct MappedBox {
    // From the picture's edge inwards to the box's; below 0 where the box runs past the picture.
    int leftMargin = 0, topMargin = 0, rightMargin = 0, bottomMargin = 0;
    PixelRect cut;  ///< the box's part of the picture; a side is 0 or less when there is none

    int SumOfMargins() const { return leftMargin + topMargin + rightMargin + bottomMargin; }
};
MappedBox MapToPicture(const Rect& box, const Rect& preview, float scale, int pictureWidth,
                       int pictureHeight);

/// Where the cut comes to lie in the finished photo, in the photo's pixels.
PixelRect PlaceInPhoto(const MappedBox& box, double factor, int photoWidth, int photoHeight);

/// The length that the photo should have when it is fewer than 6 pixels away, otherwise `length`.
int Snapped(int length, int wanted);

}  // namespace lumarin::crop
