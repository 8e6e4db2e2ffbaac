#pragma once

#include <gtest/gtest.h>

#include <algorithm>

#include "base/Clock.h"
#include "base/Files.h"
#include "entry/JobPorts.h"
#include "lookup/EngineVersion.h"
#include "support/FakeHost.h"
#include "support/FakeImaging.h"
#include "support/ScriptedDesktop.h"

namespace lumarin::testing {

/// A clock that stands at the 42nd second of a year.
struct StillClock final : Clock {
    LocalTime Now() const override { return {.year = 2026, .month = 1, .day = 1, .second = 42}; }
};

/// A window between a person and a host, with the ports that most windows take. All of the script must come
/// to pass.
class WindowTest : public ::testing::Test {
protected:
    using Texts = std::vector<std::string>;

    WindowTest() { link.Set(host); }
    ~WindowTest() override { desktop.VerifyAllUsed(); }

    /// What a dialog gives for several files of a folder, from "folder|name|name".
    static std::string Selection(std::string files) {
        std::replace(files.begin(), files.end(), '|', '\0');
        return files;
    }

    JobPorts Ports(Scanner* scanner = nullptr) {
        return {{desktop, link, engine}, imaging, clock, scanner};
    }

    ScriptedDesktop desktop;
    FakeHost host;
    HostLink link;
    FakeImaging imaging;
    StillClock clock;
    NoEngineVersion engine;
};

}  // namespace lumarin::testing
