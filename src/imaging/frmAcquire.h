#pragma once

#include <string>

#include "forms/Controls.h"
#include "forms/Desktop.h"

namespace lumarin {

/// Shown while a scanner or camera works: how far it is, and a cancel button that the acquisition looks at.
/// Closing the window by its frame acts as cmdCancel; the caller unloads it.
class frmAcquire : public Form {
public:
    explicit frmAcquire(Desktop& desktop);

    Label lblStatus{*this, "lblStatus", {.accessibleName = "Status"}};
    ProgressBar pbBar{*this, "pbBar", {.accessibleName = "Progress"}};
    Button cmdCancel{*this, "cmdCancel", {"&Cancel"}};

    void Display(const OwnerWindow* owner);
    /// `percent` from 0 to 100; -1 when it is not known.
    void ShowProgress(int page, int percent);
    /// Whether the user has cancelled since `Display`.
    bool Cancelled() const { return cancelled_; }

protected:
    bool OnQueryClose(CloseReason reason) override;

private:
    void Cancel();

    bool cancelled_ = false;
};

}  // namespace lumarin
