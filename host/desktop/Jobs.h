#pragma once

#include <QAction>
#include <QPointer>

#include <map>
#include <memory>

#include "entry/job/clsLumarin.h"
#include "host/desktop/MainWindow.h"

namespace host {

/// The running jobs: one instance of the component each, started by a tool of the main window, which stays
/// disabled as long as its job runs.
class Jobs {
public:
    /// Everything outlives this.
    Jobs(const lumarin::ComponentPorts& ports, lumarin::VelCommon& common, MainWindow& mainWindow)
        : ports_(ports), common_(common), mainWindow_(mainWindow) {}

    /// A job that cannot be started is reported in a message box and leaves its tool enabled.
    void Start(JobKind kind, QAction& tool);
    /// The component reports that the user closed the job's window.
    void End(int jobIndex);
    void EndAll();

private:
    /// The tool as the component sees it.
    class Tool final : public lumarin::HostTool {
    public:
        explicit Tool(QAction& action) : action_(&action) {}
        void SetEnabled(bool enabled) override {
            if (action_) action_->setEnabled(enabled);
        }

    private:
        QPointer<QAction> action_;
    };

    struct Job {
        Job(const lumarin::ComponentPorts& ports, QAction& action) : tool(action), component(ports) {}
        Tool tool;
        lumarin::clsLumarin component;
    };

    void Report(const QString& what, const std::exception& error);

    lumarin::ComponentPorts ports_;
    lumarin::VelCommon& common_;
    MainWindow& mainWindow_;
    std::map<int, std::unique_ptr<Job>> jobs_;
    int lastIndex_ = 0;
};

}  // namespace host
