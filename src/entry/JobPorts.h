#pragma once

#include "entry/HostLink.h"
#include "forms/Desktop.h"

namespace lumarin {

class Clock;
class EngineVersion;
class Imaging;
class Scanner;

/// The ports of the windows that look for listings; all outlive them.
struct LookupPorts {
    Desktop& desktop;
    HostLink& host;
    const EngineVersion& engine;
};

/// The ports that the windows of every job share; all outlive them.
struct JobPorts : LookupPorts {
    Imaging& imaging;
    const Clock& clock;
    Scanner* scanner = nullptr;  ///< null: nothing can be acquired on this platform
};

}  // namespace lumarin
