#include "photo_window/frmLumarin.h"
#include "util/PictureAcquisition.h"

// Pictures from scanners and cameras: each page goes through the crop window as it comes in.

namespace lumarin {

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
        Guarded(several ? "AcquireMultiple" : "AcquireSingle", [&] {
            // The pages go to the listing that is current now.
            AcquirePictures(desktop(), *this, *ports_.scanner, {.source = scannerSource_, .several = several},
                            [&](const ScannedPage& page) { return TakePage(page, several); });
        });
        acquiring_ = false;
        UpdateAcquireTools();
    });
}

AfterPage frmLumarin::TakePage(const ScannedPage& page, bool several) {
    const SeveralPictures pictures(*cropWindow_);
    cropWindow_->SetTwainPicture(page.picture);
    cropWindow_->SetProgress(several ? "Picture " + std::to_string(page.number) : "");
    const PhotoResult result = current_->AddPhoto("", CropMode::Twain, several);
    if (!several || result == PhotoResult::Cancel) return AfterPage::Stop;
    if (page.fromFeeder) return AfterPage::Continue;
    if (!canAdd_) return AfterPage::Stop;
    return AskForNextPicture(desktop(), *this);
}

void frmLumarin::SelectSource() {
    RunCommand("SelectSource", [this] {
        if (ports_.scanner == nullptr) return;
        scannerSource_ = ChooseSource(desktop(), *this, *ports_.scanner, scannerSource_);
    });
}

}  // namespace lumarin
