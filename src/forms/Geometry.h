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

}  // namespace lumarin
