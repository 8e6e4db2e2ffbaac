#pragma once

namespace lumarin {

/// Twips in one pixel of a screen at 100 percent. The toolkit's logical pixels are used throughout, so
/// the figure holds at every scale factor.
inline constexpr double TwipsPerPixel = 15.0;

/// A size in twips.
struct Size {
    double width = 0;
    double height = 0;
    bool operator==(const Size&) const = default;
};

/// A place and size in twips, relative to the container.
struct Rect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    double Right() const { return left + width; }
    double Bottom() const { return top + height; }
    bool operator==(const Rect&) const = default;
};

/// How the contents of a frame are seen: what stands at `x` is shown at `x * scale + left`.
struct Lens {
    double scale = 1;
    double left = 0;  ///< twips
    double top = 0;   ///< twips

    Rect Shown(const Rect& place) const {
        return {place.left * scale + left, place.top * scale + top, place.width * scale,
                place.height * scale};
    }
    bool operator==(const Lens&) const = default;
};

}  // namespace lumarin
