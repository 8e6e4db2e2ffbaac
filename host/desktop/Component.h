#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "entry/VelCommon.h"
#include "forms/Desktop.h"
#include "host/desktop/HostScanner.h"
#include "platform/qt/QtDesktop.h"

class QAction;

namespace host {

/// An instance of the component's class; gone with its object. Both calls throw lumarin::Error as the
/// component reports it.
class ComponentJob {
public:
    virtual ~ComponentJob() = default;
    virtual void Start(std::int32_t jobIndex) = 0;
    virtual void UnloadObj() = 0;
};

/// The component, however this program comes by it: linked in, or as a library that any host could load.
class Component {
public:
    virtual ~Component() = default;

    /// A new instance, for a job that this tool of the main window starts. `common` is the same one for all;
    /// both outlive it.
    virtual std::unique_ptr<ComponentJob> NewJob(lumarin::VelCommon& common, QAction& tool) = 0;
    /// For the host's own windows.
    virtual lumarin::Desktop& Desktop() = 0;
    /// For the demo: what knows its test device among the component's scanners. May be null.
    virtual lumarin::Scanner* Scanner() = 0;
};

/// Throws lumarin::Error when there is no component.
std::unique_ptr<Component> MakeComponent(const std::string& dataFolder, ScannerUse use,
                                         lumarin::qt::WindowSizes sizes);

}  // namespace host
