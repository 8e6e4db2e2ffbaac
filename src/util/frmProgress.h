#pragma once

#include <cstdint>

#include "base/Clock.h"
#include "entry/HostLink.h"
#include "forms/Controls.h"
#include "forms/Desktop.h"

namespace lumarin {

enum class ShowMode { Modeless = 0, Modal = 1 };

/// Shown while files go to the server: a film, the elapsed time and a cancel button. The sending loop lets
/// pending events run between its steps, looks at `Cancel` and unloads the window when it has ended.
class frmProgress : public Form {
public:
    /// The clock and the host link outlive the window.
    frmProgress(Desktop& desktop, const Clock& clock, HostLink& host);

    lumarin::Animation Animation{*this, "Animation", {.accessibleName = "Files on their way to the server"}};
    lumarin::Timer Timer{*this, "Timer"};
    Label lblElapsedTime{*this, "lblElapsedTime", {"Elapsed Time:"}}, lblTime{*this, "lblTime"};
    Button cmdCancel{*this, "cmdCancel", {"&Cancel"}};

    /// Restarts the time and shows the window; `OwnerForm` may be null. Throws Error without a host.
    void Display(ShowMode Modal, const OwnerWindow* OwnerForm);

    /// Whether the user has cancelled since `Display`.
    bool Cancel() const { return cancelled_; }

protected:
    bool OnQueryClose(CloseReason reason) override;
    void OnUnload() override { Timer.SetEnabled(false); }

private:
    void ShowElapsedTime();

    const Clock& clock_;
    HostLink& host_;
    std::int64_t started_ = 0;  ///< wall clock milliseconds
    bool cancelled_ = false;
};

}  // namespace lumarin
