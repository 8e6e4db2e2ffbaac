#pragma once

#include <string>

#include "base/FileCalls.h"
#include "entry/SettingsFiles.h"
#include "forms/Picture.h"
#include "lookup/EngineVersion.h"
#include "platform/qt/QtDesktop.h"

namespace host {

/// The component's ports that a system answers itself, without a library.
struct SystemPorts {
    const lumarin::EngineVersion& engine;
    const lumarin::SettingsFiles* settings;  ///< null: the component reads and writes them itself
    /// Reads a HEIC picture, upright and in sRGB; null: libvips decodes all it can.
    lumarin::PicturePtr (*decodeHeic)(const std::string& path);
    const lumarin::files::FileCalls* files;  ///< null: the standard library
    lumarin::qt::QtDesktop::System desktop;
};

/// Those of this system; they live as long as the program.
SystemPorts PortsOfThisSystem();

}  // namespace host
