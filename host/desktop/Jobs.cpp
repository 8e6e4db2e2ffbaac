#include "host/desktop/Jobs.h"

#include <QMessageBox>

namespace host {

void Jobs::Start(JobKind kind, QAction& tool) {
    const int index = ++lastIndex_;
    auto job = std::make_unique<Job>(ports_, tool);
    Job& started = *job;
    jobs_.emplace(index, std::move(job));
    mainWindow_.SetSwitch(kind);
    try {
        started.component.Start(common_, index, started.tool);
    } catch (const std::exception& error) {
        started.tool.SetEnabled(true);
        jobs_.erase(index);
        Report("The job could not be started.", error);
    }
}

void Jobs::End(int jobIndex) {
    auto entry = jobs_.extract(jobIndex);
    if (entry.empty()) return;
    try {
        entry.mapped()->component.UnloadObj();
    } catch (const std::exception& error) {
        entry.mapped()->tool.SetEnabled(true);
        Report("The job did not end as it should.", error);
    }
}

void Jobs::EndAll() {
    while (!jobs_.empty()) End(jobs_.begin()->first);
}

void Jobs::Report(const QString& what, const std::exception& error) {
    QMessageBox box(QMessageBox::Critical, mainWindow_.windowTitle(), what + "\n\n" + error.what(),
                    QMessageBox::Ok, &mainWindow_);
    box.exec();
}

}  // namespace host
