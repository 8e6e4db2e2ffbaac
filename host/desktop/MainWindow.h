#pragma once

#include <QMainWindow>

#include <functional>
#include <string>
#include <utility>

#include "entry/VelCommon.h"
#include "host/services/HostVelCommon.h"

class QAction;

namespace host {

class StartPage;

/// The jobs that the host offers, with the numbers of the property by which the component chooses a window.
enum class JobKind { Photos = 0, Documents = 1 };

/// The host's main window: a toolbar with one tool per job, and the start page. It is the owner of the
/// jobs' windows; closing it ends the program.
class MainWindow : public QMainWindow, public lumarin::HostMainForm {
public:
    explicit MainWindow(const HostOptions& user);

    /// A tool was pressed. Set before the window is shown.
    std::function<void(JobKind, QAction&)> startJob;
    /// The window closes.
    std::function<void()> closing;

    void* NativeWindow() const override;
    int Switch() const override { return static_cast<int>(switch_); }
    void SetSwitch(JobKind kind) { switch_ = kind; }
    void Prog(int first, int second) override;
    std::int32_t SelectedListing() const override;
    std::int32_t TakeListing() override { return std::exchange(wanted_, 0); }

    QAction& JobTool(JobKind kind) { return kind == JobKind::Photos ? *photos_ : *documents_; }
    /// Reads the start page's figures again; a failure is shown in the status bar.
    void Refresh();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void OpenInPhotos(std::int32_t listing);
    void AddTools();
    QAction* AddTool(JobKind kind, const char* name, const char* caption, const char* icon,
                     const char* shortcut);

    HostOptions user_;
    Database queries_;
    StartPage* page_ = nullptr;
    QAction* photos_ = nullptr;
    QAction* documents_ = nullptr;
    JobKind switch_ = JobKind::Photos;
    std::int32_t wanted_ = 0;  ///< listing that the photo window is to open
};

}  // namespace host
