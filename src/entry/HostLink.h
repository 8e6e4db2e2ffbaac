#pragma once

#include "base/Error.h"
#include "entry/VelCommon.h"

namespace lumarin {

/// What all windows of the component share: the host's services. Set by every start of a job; the last
/// start wins for all windows. Not owned.
class HostLink {
public:
    void Set(VelCommon& common) { common_ = &common; }

    /// Throws Error before the first start.
    VelCommon& Common() const {
        if (common_ == nullptr) throw Error(91, "HostLink", "No host has started the component");
        return *common_;
    }

private:
    VelCommon* common_ = nullptr;
};

}  // namespace lumarin
