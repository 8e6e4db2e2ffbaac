#pragma once

#include <cstdint>
#include <memory>

#include "base/Clock.h"
#include "documents/builder/PdfLibrary.h"
#include "entry/JobWindow.h"
#include "entry/SettingsFiles.h"
#include "entry/VelCommon.h"
#include "forms/Desktop.h"
#include "imaging/Imaging.h"
#include "imaging/Scanner.h"
#include "lookup/EngineVersion.h"
#include "photo_window/ZipArchiver.h"

namespace lumarin {

/// The ports that the component needs; everything outlives the component's objects.
struct ComponentPorts {
    Desktop& desktop;
    Imaging& imaging;
    ZipArchiver& archiver;
    const Clock& clock;
    const EngineVersion& engine;
    PdfLibrary& pdf;
    Scanner* scanner = nullptr;               ///< null: nothing can be acquired on this platform
    const SettingsFiles* settings = nullptr;  ///< null: the component reads and writes them itself
};

/// The component's public class: one instance is one job with one window. Errors of host calls pass
/// through; the steps done before stay done. All calls on the user-interface thread.
class clsLumarin {
public:
    explicit clsLumarin(const ComponentPorts& ports) : ports_(ports) {}
    /// Releases the window if the host has not ended the job.
    ~clsLumarin();
    clsLumarin(const clsLumarin&) = delete;
    clsLumarin& operator=(const clsLumarin&) = delete;

    /// Opens the job's window, owned by the host's main window, and returns at once. The tool stays
    /// disabled until `UnloadObj`. Called once per instance. The services given by the last start, of
    /// whichever instance, are the ones that all windows of the component use from then on. A window that
    /// closes itself at once is not shown; the host is then notified by `EndJob`, as the last thing that is
    /// done.
    void Start(VelCommon& pVelCommon, std::int32_t JobIndex, HostTool& MenuButton);

    /// Ends the job: unloads the window and enables the tool again. It may be called from within
    /// `VelCommon::EndJob`. A window that is sending is asked to stop, and goes when it has stopped.
    /// Throws Error when nothing was started.
    void UnloadObj();

private:
    std::unique_ptr<JobWindow> MakeWindow(int which);

    ComponentPorts ports_;
    std::unique_ptr<JobWindow> window_;
    HostTool* menuButton_ = nullptr;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

}  // namespace lumarin
