#pragma once

#include <gtest/gtest.h>

#include "base/Clock.h"
#include "base/Text.h"
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

    /// The paths of files of a folder, from "folder|name|name"; or the one path that it is.
    static Texts Files(const std::string& files) {
        Texts paths = text::Split(files, '|');
        if (paths.size() == 1) return paths;
        for (std::size_t i = 1; i < paths.size(); ++i) paths[i].insert(0, paths[0] + "/");
        paths.erase(paths.begin());
        return paths;
    }

    JobPorts Ports(Scanner* scanner = nullptr) { return {{desktop, link, engine}, imaging, clock, scanner}; }

    ScriptedDesktop desktop;
    FakeHost host;
    HostLink link;
    FakeImaging imaging;
    StillClock clock;
    NoEngineVersion engine;
};

}  // namespace lumarin::testing
