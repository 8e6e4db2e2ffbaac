#pragma once

#include "forms/Desktop.h"

namespace lumarin {

/// A window that takes no input while the pointer is the hourglass, even when the work fails. `Interrupt`
/// gives both back for a question, until `Begin`.
class BusyWindow {
public:
    BusyWindow(Form& window, Desktop& desktop) : window_(window), desktop_(desktop) { Begin(); }
    ~BusyWindow() { Interrupt(); }
    BusyWindow(const BusyWindow&) = delete;
    BusyWindow& operator=(const BusyWindow&) = delete;

    void Begin() {
        window_.SetEnabled(false);
        desktop_.SetPointer(Pointer::Hourglass);
    }
    void Interrupt() {
        window_.SetEnabled(true);
        desktop_.SetPointer(Pointer::Default);
    }

private:
    Form& window_;
    Desktop& desktop_;
};

}  // namespace lumarin
