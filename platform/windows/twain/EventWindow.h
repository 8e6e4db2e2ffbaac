#pragma once

#include <windows.h>

namespace lumarin::twain {

/// The hidden window that a source manager needs. Made and destroyed on the thread of the sources.
class EventWindow {
public:
    /// Windows that belong to it stay above `owner`, which may be null and of another thread. Throws
    /// ScannerError when it cannot be made.
    explicit EventWindow(HWND owner);
    ~EventWindow() { DestroyWindow(window_); }
    EventWindow(const EventWindow&) = delete;
    EventWindow& operator=(const EventWindow&) = delete;

    HWND Handle() const { return window_; }

private:
    HWND window_;
};

}  // namespace lumarin::twain
