#pragma once

namespace lumarin {

/// Key codes of key-down events, with the platform's numbers.
enum class Key : int {
    None = 0,
    Back = 8,
    Tab = 9,
    Enter = 13,
    Escape = 27,
    Space = 32,
    PageUp = 33,
    PageDown = 34,
    End = 35,
    Home = 36,
    Left = 37,
    Up = 38,
    Right = 39,
    Down = 40,
    Insert = 45,
    Delete = 46,
    Plus = 107,
    Minus = 109,
    F1 = 112
};

struct KeyDown {
    Key key = Key::None;
    bool shift = false;
    bool control = false;
    bool alt = false;
};

/// A typed character, as its code (13 for Enter, 8 for backspace, 22 for Ctrl+V). A handler that sets
/// `discarded` keeps it out of the box.
struct KeyPress {
    int code = 0;
    bool discarded = false;
};

enum class MouseButton { None, Left, Right };

/// A mouse event; `x` and `y` are twips relative to the control's top left corner.
struct Mouse {
    MouseButton button = MouseButton::None;
    double x = 0;
    double y = 0;
};

/// A turn of the wheel, or two fingers that part or close, at a place of the control in twips. More than 1
/// is nearer.
struct ZoomStep {
    double factor = 1;
    double x = 0;
    double y = 0;
};

/// Shapes of the mouse pointer. `SizeFalling` sizes along the diagonal from the upper left, `SizeRising`
/// along the one from the lower left.
enum class Pointer {
    Default,
    Hourglass,
    SizeWestEast,
    SizeNorthSouth,
    SizeAll,
    SizeFalling,
    SizeRising,
    Hand
};

}  // namespace lumarin
