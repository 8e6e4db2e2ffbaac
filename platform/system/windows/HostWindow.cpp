#include "platform/system/HostWindow.h"

#include <windows.h>

namespace lumarin::platform {

namespace {

HWND Handle(WindowNumber window) { return reinterpret_cast<HWND>(window); }
WindowNumber Number(HWND window) { return reinterpret_cast<WindowNumber>(window); }

}  // namespace

void SetOwner(WindowNumber window, WindowNumber owner) {
    SetWindowLongPtrW(Handle(window), GWLP_HWNDPARENT, static_cast<LONG_PTR>(owner));
}

WindowPlace PlaceOf(WindowNumber window) {
    RECT place{};
    if (IsIconic(Handle(window)) || !GetWindowRect(Handle(window), &place)) return {};
    return {place.left, place.top, place.right - place.left, place.bottom - place.top};
}

WindowPause::WindowPause(WindowNumber window) : window_(window) {
    if (!IsWindow(Handle(window)) || !IsWindowEnabled(Handle(window))) {
        window_ = 0;
        return;
    }
    wasActive_ = GetActiveWindow() == Handle(window);
    if (wasActive_) focus_ = Number(GetFocus());
    EnableWindow(Handle(window), FALSE);
}

WindowPause::~WindowPause() {
    if (window_ == 0 || !IsWindow(Handle(window_))) return;
    EnableWindow(Handle(window_), TRUE);
    if (!wasActive_) return;
    SetActiveWindow(Handle(window_));
    if (IsWindow(Handle(focus_))) SetFocus(Handle(focus_));
}

}  // namespace lumarin::platform
