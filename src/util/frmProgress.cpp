#include "util/frmProgress.h"

#include "util/ElapsedTime.h"

namespace lumarin {

namespace {
constexpr int HelpPage = 9;
constexpr int TickInterval = 250;  // milliseconds: no second is skipped
}  // namespace

frmProgress::frmProgress(Desktop& desktop, const Clock& clock, HostLink& host)
    : Form(desktop, "frmProgress"), clock_(clock), host_(host) {
    SetCaption("Upload in progress");
    SetHelpContext(HelpPage);
    lblTime.SetCaption(ElapsedText(0));
    Timer.SetInterval(TickInterval);
    Timer.Elapsed = [this] { ShowElapsedTime(); };
    cmdCancel.Click = [this] { cancelled_ = true; };
}

void frmProgress::Display(ShowMode Modal, const OwnerWindow* OwnerForm) {
    Animation.SetAutoPlay(true);
    Animation.Open(host_.Common().ProgramFolder() + "FileMove.avi");
    cancelled_ = false;
    started_ = WallClockMilliseconds(clock_.Now());
    ShowElapsedTime();
    Timer.SetEnabled(true);
    if (Modal == ShowMode::Modal)
        ShowModal(OwnerForm);
    else
        Show(OwnerForm);
    desktop().ProcessPendingEvents();
}

bool frmProgress::OnQueryClose(CloseReason reason) {
    if (reason != CloseReason::Frame) return true;
    cmdCancel.Press();
    return false;
}

void frmProgress::ShowElapsedTime() {
    lblTime.SetCaption(ElapsedText(WallClockMilliseconds(clock_.Now()) - started_));
}

}  // namespace lumarin
