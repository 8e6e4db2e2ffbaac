#pragma once

#include <cstdint>

namespace lumarin::platform {

/// A window of the operating system, which need not be of the toolkit; 0 is none.
using WindowNumber = std::uintptr_t;

struct WindowPlace {
    int left = 0, top = 0, width = 0, height = 0;  ///< with the frame, in the system's pixels
};

/// Puts a window above another for good: it goes and is minimised with that one.
void SetOwner(WindowNumber window, WindowNumber owner);
WindowPlace PlaceOf(WindowNumber window);

/// While one of these lives, the window takes no input. At the end it takes input again if it did before, and
/// is the active one with the focus where it was if it had been that. A window that is gone meanwhile is left
/// alone.
class WindowPause {
public:
    explicit WindowPause(WindowNumber window);
    ~WindowPause();
    WindowPause(const WindowPause&) = delete;
    WindowPause& operator=(const WindowPause&) = delete;

private:
    WindowNumber window_;
    WindowNumber focus_ = 0;
    bool wasActive_ = false;
};

}  // namespace lumarin::platform
