#include "entry/job/clsLumarin.h"

#include "base/Error.h"
#include "documents/frmAddDocument.h"
#include "entry/HostLink.h"
#include "entry/Settings.h"
#include "entry/UserWindows.h"
#include "photo_window/frmLumarin.h"

namespace lumarin {

namespace {

constexpr int DocumentManager = 1;
constexpr std::int32_t ObjectNotSet = 91;

/// One for the whole component; lives until the component is unloaded from the process.
HostLink& ComponentHost() {
    static HostLink link;
    return link;
}

/// Lives as long.
const WindowMemory& ComponentWindows() {
    static const UserWindows windows(ComponentHost());
    return windows;
}

}  // namespace

clsLumarin::~clsLumarin() {
    if (window_ != nullptr) ports_.desktop.DestroyLater(std::move(window_));
}

std::unique_ptr<JobWindow> clsLumarin::MakeWindow(int which) {
    const JobPorts job{
        {ports_.desktop, ComponentHost(), ports_.engine}, ports_.imaging, ports_.clock, ports_.scanner};
    if (which == DocumentManager) return std::make_unique<frmAddDocument>(DocumentPorts{job, ports_.pdf});
    return std::make_unique<frmLumarin>(PhotoWindowPorts{job, ports_.archiver});
}

void clsLumarin::Start(VelCommon& pVelCommon, std::int32_t JobIndex, HostTool& MenuButton) {
    ComponentHost().Set(pVelCommon);
    settings::Use(ports_.settings);
    ports_.desktop.SetWindowMemory(&ComponentWindows());
    menuButton_ = &MenuButton;
    MenuButton.SetEnabled(false);
    ports_.desktop.SetHelpFile(pVelCommon.HelpFilePath());
    window_ = MakeWindow(pVelCommon.MainForm().Switch());
    // The window may ask the user something, and the host may end the job and drop this meanwhile.
    const std::weak_ptr<const bool> alive = alive_;
    window_->Init(JobIndex);
    if (alive.expired() || window_ == nullptr) return;
    if (!window_->IsLoaded()) return pVelCommon.EndJob(JobIndex);
    window_->Show(&pVelCommon.MainForm());
}

void clsLumarin::UnloadObj() {
    if (menuButton_ == nullptr) throw Error(ObjectNotSet, "clsLumarin", "No job was started");
    if (window_ != nullptr) window_->Unload(CloseReason::Host);
    menuButton_->SetEnabled(true);
    menuButton_ = nullptr;
    if (window_ != nullptr) ports_.desktop.DestroyLater(std::move(window_));
}

}  // namespace lumarin
