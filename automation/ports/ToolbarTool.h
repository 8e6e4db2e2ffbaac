#pragma once

#include "automation/calls/Object.h"
#include "entry/VelCommon.h"

namespace lumarin::automation {

/// The tool that launched a job, an object of the host's.
class ToolbarTool final : public HostTool {
public:
    explicit ToolbarTool(Object tool) : tool_(std::move(tool)) {}
    void SetEnabled(bool enabled) override { tool_.Put(L"Enabled", Variant(enabled)); }

private:
    Object tool_;
};

}  // namespace lumarin::automation
