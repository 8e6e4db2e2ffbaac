#include "util/PictureAcquisition.h"

#include "imaging/frmAcquire.h"
#include "imaging/frmSelectSource.h"

namespace lumarin {

namespace {

/// The progress window over a window that takes no input.
class ShownProgress {
public:
    ShownProgress(frmAcquire& progress, Form& window) : progress_(progress), window_(window) {
        window_.SetEnabled(false);
        progress_.Display(&window_);
    }
    ~ShownProgress() {
        progress_.Unload();
        window_.SetEnabled(true);
    }
    ShownProgress(const ShownProgress&) = delete;
    ShownProgress& operator=(const ShownProgress&) = delete;

private:
    frmAcquire& progress_;
    Form& window_;
};

}  // namespace

void AcquirePictures(Desktop& desktop, Form& window, Scanner& scanner, const ScanOrder& order,
                     const std::function<AfterPage(const ScannedPage&)>& pageArrived) {
    frmAcquire progress(desktop);
    const ShownProgress shown(progress, window);
    scanner.Acquire(order, {.whileWaiting =
                                [&] {
                                    desktop.ProcessPendingEvents();
                                    return !progress.Cancelled();
                                },
                            .progress = [&](int page, int percent) { progress.ShowProgress(page, percent); },
                            .pageArrived = pageArrived});
}

AfterPage AskForNextPicture(Desktop& desktop, const Form& window) {
    const Answer next =
        desktop.ShowMessage({.text = "Do you want to acquire another picture? Change the original first.",
                             .title = "Acquire Multiple",
                             .buttons = Buttons::YesNo,
                             .icon = Icon::Question,
                             .enter = Answer::Yes},
                            &window);
    return next == Answer::Yes ? AfterPage::Continue : AfterPage::Stop;
}

std::string ChooseSource(Desktop& desktop, const Form& window, Scanner& scanner, const std::string& current) {
    std::vector<ScannerSource> sources;
    {
        const HourglassPointer hourglass(desktop);
        sources = scanner.Sources([&] {
            desktop.ProcessPendingEvents();
            return true;
        });
    }
    return frmSelectSource(desktop).Choose(sources, current, &window);
}

}  // namespace lumarin
