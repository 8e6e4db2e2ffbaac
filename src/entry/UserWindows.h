#pragma once

#include "entry/HostLink.h"
#include "forms/WindowMemory.h"

namespace lumarin {

/// The windows' layouts in the user's settings: "User.ini", section "Lumarin", a key for each window. Without
/// a host nothing is kept.
class UserWindows final : public WindowMemory {
public:
    /// The link outlives this.
    explicit UserWindows(const HostLink& host) : host_(host) {}

    std::string Recall(const std::string& window) const noexcept override;
    void Keep(const std::string& window, const std::string& layout) const noexcept override;

private:
    const HostLink& host_;
};

}  // namespace lumarin
