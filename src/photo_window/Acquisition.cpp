#include "imaging/frmAcquire.h"
#include "imaging/frmSelectSource.h"
#include "photo_window/frmLumarin.h"

// Pictures from scanners and cameras: each page goes through the crop window as it comes in.

namespace lumarin {

namespace {

class ShownProgress {
public:
    ShownProgress(frmAcquire& window, const OwnerWindow* owner) : window_(window) { window_.Display(owner); }
    ~ShownProgress() { window_.Unload(); }
    ShownProgress(const ShownProgress&) = delete;
    ShownProgress& operator=(const ShownProgress&) = delete;

private:
    frmAcquire& window_;
};

}  // namespace

void frmLumarin::UpdateAcquireTools() {
    const bool ready = sourceAvailable_ && !acquiring_;
    for (const char* tool : {"AcquireSingle", "AcquireMultiple"}) Menu.EnableTool(tool, ready && canAdd_);
    Menu.EnableTool("SelectSource", ready);
}

void frmLumarin::Acquire(bool several) {
    RunCommand(several ? "AcquireMultiple" : "AcquireSingle", [&] {
        if (current_ == nullptr || ports_.scanner == nullptr) return;
        acquiring_ = true;
        UpdateAcquireTools();
        SetEnabled(false);  // the pages go to the listing that is current now
        Guarded(several ? "AcquireMultiple" : "AcquireSingle", [&] {
            frmAcquire progress(desktop());
            const ShownProgress shown(progress, this);
            ports_.scanner->Acquire(
                {.source = scannerSource_, .several = several},
                {.whileWaiting =
                     [&] {
                         desktop().ProcessPendingEvents();
                         return !progress.Cancelled();
                     },
                 .progress = [&](int page, int percent) { progress.ShowProgress(page, percent); },
                 .pageArrived = [&](const ScannedPage& page) { return TakePage(page, several); }});
        });
        SetEnabled(true);
        acquiring_ = false;
        UpdateAcquireTools();
    });
}

AfterPage frmLumarin::TakePage(const ScannedPage& page, bool several) {
    cropWindow_->SetTwainPicture(page.picture);
    cropWindow_->SetProgress(several ? "Picture " + std::to_string(page.number) : "");
    const PhotoResult result = current_->AddPhoto("", CropMode::Twain, several);
    cropWindow_->SetProgress("");
    if (!several || result == PhotoResult::Cancel) return AfterPage::Stop;
    if (page.fromFeeder) return AfterPage::Continue;
    if (!canAdd_) return AfterPage::Stop;
    const Answer next =
        desktop().ShowMessage({.text = "Do you want to acquire another picture? Change the original first.",
                               .title = "Acquire Multiple",
                               .buttons = Buttons::YesNo,
                               .icon = Icon::Question},
                              this);
    return next == Answer::Yes ? AfterPage::Continue : AfterPage::Stop;
}

void frmLumarin::SelectSource() {
    RunCommand("SelectSource", [this] {
        if (ports_.scanner == nullptr) return;
        std::vector<ScannerSource> sources;
        {
            const HourglassPointer hourglass(desktop());
            sources = ports_.scanner->Sources([this] {
                desktop().ProcessPendingEvents();
                return true;
            });
        }
        scannerSource_ = frmSelectSource(desktop()).Choose(sources, scannerSource_, this);
    });
}

}  // namespace lumarin
