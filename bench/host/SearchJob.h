#pragma once

#include <string>
#include <vector>

#include "bench/host/BenchHost.h"
#include "lookup/frmFindProperty.h"

/// The search for all listings in the property search window.
class SearchJob {
public:
    SearchJob(lumarin::Desktop& desktop, const std::string& dataFolder)
        : host_(dataFolder), window({desktop, host_.link, engine_}) {}

    /// Returns when the window was closed.
    void Open() {
        std::vector<std::string> selected;
        window.FindProperty(lumarin::ListingSearch(), lumarin::frmFindProperty::SetUpList, 0, 0, selected);
    }

private:
    lumarin::NoEngineVersion engine_;
    BenchHost host_;

public:
    lumarin::frmFindProperty window;
};
