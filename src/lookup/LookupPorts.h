#pragma once

#include "entry/HostLink.h"
#include "forms/Desktop.h"
#include "lookup/EngineVersion.h"

namespace lumarin {

/// The ports that the windows of the listing lookup work with; all outlive them.
struct LookupPorts {
    Desktop& desktop;
    HostLink& host;
    const EngineVersion& engine;
};

}  // namespace lumarin
