#include "entry/job/clsLumarin.h"

#include "base/Error.h"
#include "entry/HostLink.h"
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

}  // namespace

clsLumarin::~clsLumarin() {
    if (window_ != nullptr) ports_.desktop.DestroyLater(std::move(window_));
}

std::unique_ptr<JobWindow> clsLumarin::MakeWindow(int which) {
    if (which == DocumentManager)
        throw Error(ApplicationErrorNumber, "clsLumarin",
                    "The document manager is not part of this version.");
    return std::make_unique<frmLumarin>(PhotoWindowPorts{ports_.desktop, ports_.imaging, ports_.archiver,
                                                         ports_.clock, ComponentHost(), ports_.engine,
                                                         ports_.scanner});
}

void clsLumarin::Start(VelCommon& pVelCommon, std::int32_t JobIndex, HostTool& MenuButton) {
    ComponentHost().Set(pVelCommon);
    menuButton_ = &MenuButton;
    MenuButton.SetEnabled(false);
    ports_.desktop.SetHelpFile(pVelCommon.HelpFilePath());
    window_ = MakeWindow(pVelCommon.MainForm().Switch());
    window_->Init(JobIndex);
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
