#include "imaging/frmAcquire.h"

#include <algorithm>

namespace lumarin {

namespace {
constexpr int HelpPage = 8;
}

frmAcquire::frmAcquire(Desktop& desktop) : Form(desktop, "frmAcquire") {
    SetCaption("Acquire");
    SetHelpContext(HelpPage);
    pbBar.SetMax(100);
    cmdCancel.Click = [this] { Cancel(); };
}

void frmAcquire::Display(const OwnerWindow* owner) {
    cancelled_ = false;
    cmdCancel.SetEnabled(true);
    lblStatus.SetCaption("Connecting to the scanner or camera ...");
    pbBar.SetValue(0);
    Show(owner);
    desktop().ProcessPendingEvents();
}

void frmAcquire::ShowProgress(int page, int percent) {
    if (cancelled_) return;
    lblStatus.SetCaption("Acquiring picture " + std::to_string(page) + " ...");
    pbBar.SetValue(std::max(0, percent));
}

void frmAcquire::Cancel() {
    cancelled_ = true;
    cmdCancel.SetEnabled(false);
    lblStatus.SetCaption("Canceling ...");
}

bool frmAcquire::OnQueryClose(CloseReason reason) {
    if (reason != CloseReason::Frame) return true;
    Cancel();
    return false;
}

}  // namespace lumarin
