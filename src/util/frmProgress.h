#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "base/Clock.h"
#include "entry/HostLink.h"
#include "forms/Controls.h"
#include "forms/Desktop.h"

namespace lumarin {

enum class ShowMode { Modeless = 0, Modal = 1 };

/// One of the things that go in one file, in their order: its name for the user, and its share of the file.
struct SentPart {
    std::string name;
    std::uint64_t bytes = 0;
};

/// Shown while files go to the server: a film, how much has gone, the elapsed and the remaining time and a
/// cancel button. The sending loop lets pending events run between its steps, looks at `Cancel` and unloads
/// the window when it has ended.
class frmProgress : public Form {
public:
    /// The clock and the host link outlive the window.
    frmProgress(Desktop& desktop, const Clock& clock, HostLink& host);

    lumarin::Animation Animation{*this, "Animation", {.accessibleName = "Files on their way to the server"}};
    lumarin::Timer Timer{*this, "Timer"};
    Label lblElapsedTime{*this, "lblElapsedTime", {"Elapsed Time:"}}, lblTime{*this, "lblTime"};
    ProgressBar prgSent{*this, "prgSent", {.accessibleName = "Sent so far"}};  ///< percent
    Label lblPart{*this, "lblPart"};                                           ///< what goes just now
    Label lblRemainingTime{*this, "lblRemainingTime", {"Remaining Time:"}},
        lblRemaining{*this, "lblRemaining"};
    Button cmdCancel{*this, "cmdCancel", {"&Cancel"}};

    /// Restarts the time and shows the window; `OwnerForm` may be null. Throws Error without a host.
    void Display(ShowMode Modal, const OwnerWindow* OwnerForm);

    /// What the file that goes next consists of; none when that is not to be said.
    void SetParts(std::vector<SentPart> parts) { parts_ = std::move(parts); }
    /// So many bytes have gone.
    void ShowSent(std::uint64_t sent, std::uint64_t total);

    /// Whether the user has cancelled since `Display`.
    bool Cancel() const { return cancelled_; }

protected:
    bool OnQueryClose(CloseReason reason) override;
    void OnUnload() override { Timer.SetEnabled(false); }

private:
    void ShowTimes();
    void ShowPart();

    const Clock& clock_;
    HostLink& host_;
    std::int64_t started_ = 0;  ///< wall clock milliseconds
    std::vector<SentPart> parts_;
    std::uint64_t sent_ = 0, total_ = 0;  ///< bytes
    bool cancelled_ = false;
};

}  // namespace lumarin
