#pragma once

#include <cstdint>
#include <functional>

#include "automation/calls/DispatchObject.h"
#include "entry/VelCommon.h"

namespace host {

/// The platform's number of the host's main window.
using WindowHandle = std::function<std::intptr_t()>;

/// The host's main window, as far as the component asks: `Switch`, `Prog` and `hWnd`.
class MainFormObject final : public lumarin::automation::DispatchObject {
public:
    /// The window outlives its use.
    MainFormObject(lumarin::HostMainForm& window, WindowHandle handle);
};

/// The tool that starts a job: `Enabled`, to be read and written.
class ToolObject final : public lumarin::automation::DispatchObject {
public:
    ToolObject(std::function<bool()> isEnabled, std::function<void(bool)> setEnabled);
};

}  // namespace host
