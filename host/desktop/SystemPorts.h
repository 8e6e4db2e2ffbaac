#pragma once

#include "entry/SettingsFiles.h"
#include "forms/HelpViewer.h"
#include "lookup/EngineVersion.h"

namespace host {

/// The component's ports that a system answers itself, without a library.
struct SystemPorts {
    const lumarin::EngineVersion& engine;
    const lumarin::SettingsFiles* settings;  ///< null: the component reads and writes them itself
    lumarin::HelpViewer* help;               ///< null: the browser shows every help file
};

/// Those of this system; they live as long as the program.
SystemPorts PortsOfThisSystem();

}  // namespace host
