#include "util/PictureAcquisition.h"

#include "base/PutBack.h"
#include "imaging/frmAcquire.h"
#include "imaging/frmSelectSource.h"

namespace lumarin {

ScanOutcome AcquirePictures(Desktop& desktop, Form& window, Scanner& scanner, const ScanOrder& order,
                            const std::function<AfterPage(const ScannedPage&)>& pageArrived) {
    frmAcquire progress(desktop);
    window.SetEnabled(false);
    const AtEnd restored([&] {
        progress.Unload();
        window.SetEnabled(true);
    });
    progress.Display(&window);
    return scanner.Acquire(order,
                           {.whileWaiting =
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
