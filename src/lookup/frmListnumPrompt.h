#pragma once

#include <string>

#include "entry/JobPorts.h"
#include "forms/Controls.h"
#include "lookup/EngineVersion.h"

namespace lumarin {

/// Asks for a listing number, which can also be found by a search.
class frmListnumPrompt : public Form {
public:
    explicit frmListnumPrompt(const LookupPorts& ports);

    /// Shows the window modal above `owner` and returns what was entered: a numeric text, or the number
    /// of a listing that was searched for; "" when the user cancelled. With `allowList` several numbers
    /// can be typed, separated by commas. `offered` stands there at first, selected. The window stays loaded.
    std::string Display(bool allowList, const OwnerWindow* owner = nullptr, const std::string& offered = {});

    TextBox txtPropertyId{*this, "txtPropertyId", {"&Listing number:"}};
    Button cmdOK{*this, "cmdOK", {"&OK"}}, cmdCancel{*this, "cmdCancel", {"&Cancel"}};
    Button cmdBrowse{*this, "cmdBrowse", {"&Browse...", "Search for the listing by owner or address"}};

protected:
    void OnShow() override { txtPropertyId.SetFocus(); }
    void OnActivate() override { txtPropertyId.SetFocus(); }
    bool OnQueryClose(CloseReason reason) override;

private:
    void FilterKey(KeyPress& key);
    void AcceptNumber();
    void Cancel();
    void Browse();

    LookupPorts ports_;
    bool allowList_ = false;
};

}  // namespace lumarin
