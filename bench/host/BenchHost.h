#pragma once

#include "entry/HostLink.h"
#include "host/services/HostVelCommon.h"

/// The reference host over a data folder, with nobody at its main window.
struct BenchHost : private lumarin::HostMainForm {
    explicit BenchHost(const std::string& dataFolder) : common({.dataFolder = dataFolder}, *this, nullptr) {
        link.Set(common);
    }

    host::HostVelCommon common;
    lumarin::HostLink link;

private:
    void* NativeWindow() const override { return nullptr; }
    int Switch() const override { return 0; }
    void Prog(int, int) override {}
};
