#include "util/frmProgress.h"

#include "util/ElapsedTime.h"

namespace lumarin {

namespace {
constexpr int HelpPage = 9;
constexpr int TickInterval = 250;  // milliseconds: no second is skipped
/// Before that, how long the rest takes is a guess.
constexpr std::int64_t ShortestMeasure = 2000;  // milliseconds
constexpr const char* Unknown = "--:--";
constexpr int Percent = 100;

double Share(std::uint64_t part, std::uint64_t whole) {
    return whole > 0 ? static_cast<double>(part) / static_cast<double>(whole) : 0;
}
}  // namespace

frmProgress::frmProgress(Desktop& desktop, const Clock& clock, HostLink& host)
    : Form(desktop, "frmProgress"), clock_(clock), host_(host) {
    SetCaption("Upload in progress");
    SetHelpContext(HelpPage);
    lblTime.SetCaption(ElapsedText(0));
    lblRemaining.SetCaption(Unknown);
    prgSent.SetMax(Percent);
    Timer.SetInterval(TickInterval);
    Timer.Elapsed = [this] { ShowTimes(); };
    cmdCancel.Click = [this] { cancelled_ = true; };
}

void frmProgress::Display(ShowMode Modal, const OwnerWindow* OwnerForm) {
    Animation.SetAutoPlay(true);
    Animation.Open(host_.Common().ProgramFolder() + "FileMove.avi");
    cancelled_ = false;
    started_ = WallClockMilliseconds(clock_.Now());
    ShowSent(0, 0);
    ShowTimes();
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

void frmProgress::ShowSent(std::uint64_t sent, std::uint64_t total) {
    sent_ = sent;
    total_ = total;
    prgSent.SetValue(static_cast<int>(Percent * Share(sent, total)));
    ShowPart();
}

void frmProgress::ShowPart() {
    std::uint64_t all = 0;
    for (const SentPart& part : parts_) all += part.bytes;
    // The file is packed: the parts' shares of it are close to those of what went into it.
    double share = Share(sent_, total_);
    std::size_t now = 0;
    while (now + 1 < parts_.size() && share >= Share(parts_[now].bytes, all))
        share -= Share(parts_[now++].bytes, all);
    lblPart.SetCaption(parts_.empty() ? std::string()
                                      : parts_[now].name + " (" + std::to_string(now + 1) + " of " +
                                            std::to_string(parts_.size()) + ")");
}

void frmProgress::ShowTimes() {
    const std::int64_t elapsed = WallClockMilliseconds(clock_.Now()) - started_;
    lblTime.SetCaption(ElapsedText(elapsed));
    const double share = Share(sent_, total_);
    const bool isKnown = elapsed >= ShortestMeasure && share > 0;
    const double rest = isKnown ? static_cast<double>(elapsed) * (1 - share) / share : 0;
    lblRemaining.SetCaption(isKnown ? ElapsedText(static_cast<std::int64_t>(rest)) : Unknown);
}

}  // namespace lumarin
