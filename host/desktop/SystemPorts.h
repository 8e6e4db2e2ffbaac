#pragma once

#include "base/FileCalls.h"
#include "entry/SettingsFiles.h"
#include "lookup/EngineVersion.h"
#include "platform/qt/QtDesktop.h"
#include "platform/vips/VipsImaging.h"

namespace host {

/// The component's ports that a system answers itself, without a library.
struct SystemPorts {
    const lumarin::EngineVersion& engine;
    const lumarin::SettingsFiles* settings;  ///< null: the component reads and writes them itself
    lumarin::vips::VipsImaging::SystemDecoder decodeHeic;  ///< null: libvips decodes all it can
    const lumarin::files::FileCalls* files;                ///< null: the standard library
    lumarin::qt::QtDesktop::System desktop;
};

/// Those of this system; they live as long as the program.
SystemPorts PortsOfThisSystem();

}  // namespace host
