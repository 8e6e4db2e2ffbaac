#pragma once

#include "automation/ports/HostCommon.h"
#include "entry/job/clsLumarin.h"

#include <memory>

namespace lumarin::automation {

/// The component with its adapters. Made when the first job starts, on the host's user-interface thread, and
/// kept until the process ends: at its end nobody knows whether the host's objects can still be called.
class Composition {
public:
    /// Throws Error on another thread than before, and where the process has a toolkit that cannot show
    /// windows.
    static Composition& Get();

    const ComponentPorts& Ports() const { return ports_; }
    /// The host's services as a port; the same port for the same object, as long as no other was given
    /// meanwhile. What was asked for last is the host whose main window owns the windows.
    std::shared_ptr<HostCommon> HostOf(IDispatch* common);

private:
    struct Adapters;

    explicit Composition(std::unique_ptr<Adapters> adapters);
    std::uintptr_t HostWindowNow() const;

    std::unique_ptr<Adapters> adapters_;
    ComponentPorts ports_;
    std::shared_ptr<HostCommon> host_;
};

}  // namespace lumarin::automation
