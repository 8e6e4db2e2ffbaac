#include "host/desktop/Jobs.h"

#include "platform/qt/MessageDialog.h"

namespace host {

void Jobs::Start(JobKind kind, QAction& tool) {
    const int index = ++lastIndex_;
    Job job{&tool, nullptr};
    mainWindow_.SetSwitch(kind);
    try {
        job.component = component_.NewJob(common_, tool);
        ComponentJob& started = *job.component;
        jobs_.emplace(index, std::move(job));
        started.Start(index);
    } catch (const std::exception& error) {
        jobs_.erase(index);
        Fail({&tool, nullptr}, "The job could not be started.", error);
    }
}

void Jobs::End(int jobIndex) {
    auto entry = jobs_.extract(jobIndex);
    if (entry.empty()) return;
    try {
        entry.mapped().component->UnloadObj();
    } catch (const std::exception& error) {
        Fail(entry.mapped(), "The job did not end as it should.", error);
    }
}

void Jobs::EndAll() {
    while (!jobs_.empty()) End(jobs_.begin()->first);
}

void Jobs::Fail(const Job& job, const QString& what, const std::exception& error) {
    if (job.tool) job.tool->setEnabled(true);
    lumarin::qt::RunMessageBox({.text = what.toStdString() + "\n\n" + error.what(),
                                .title = mainWindow_.windowTitle().toStdString(),
                                .icon = lumarin::Icon::Critical},
                               {&mainWindow_});
}

}  // namespace host
