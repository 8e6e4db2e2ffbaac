#include "platform/windows/twain/EventWindow.h"

#include "imaging/Scanner.h"

namespace lumarin::twain {

EventWindow::EventWindow(HWND owner) {
    RECT place{};
    // Sources put their own windows beside it.
    if (owner != nullptr) GetWindowRect(owner, &place);
    window_ = CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP, place.left, place.top,
                              place.right - place.left, place.bottom - place.top, owner, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    if (window_ == nullptr) throw ScannerError("The window for the scanner cannot be made.");
}

}  // namespace lumarin::twain
