#pragma once

#include <QAction>
#include <QPointer>

#include <map>
#include <memory>

#include "host/desktop/Component.h"
#include "host/desktop/MainWindow.h"

namespace host {

/// The running jobs: one instance of the component each, started by a tool of the main window, which stays
/// disabled as long as its job runs.
class Jobs {
public:
    /// Everything outlives this.
    Jobs(Component& component, lumarin::VelCommon& common, MainWindow& mainWindow)
        : component_(component), common_(common), mainWindow_(mainWindow) {}

    /// A job that cannot be started is reported in a message box and leaves its tool enabled.
    void Start(JobKind kind, QAction& tool);
    /// The component reports that the user closed the job's window.
    void End(int jobIndex);
    void EndAll();

private:
    struct Job {
        QPointer<QAction> tool;
        std::unique_ptr<ComponentJob> component;
    };

    /// Enables the tool again, which the component leaves as it was when it failed, and says why.
    void Fail(const Job& job, const QString& what, const std::exception& error);

    Component& component_;
    lumarin::VelCommon& common_;
    MainWindow& mainWindow_;
    std::map<int, Job> jobs_;
    int lastIndex_ = 0;
};

}  // namespace host
