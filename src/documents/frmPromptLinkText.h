#pragma once

#include <string>

#include "forms/Controls.h"
#include "forms/Desktop.h"

namespace lumarin {

/// Asks for a document's description and, for a link, its address.
class frmPromptLinkText : public Form {
public:
    explicit frmPromptLinkText(Desktop& desktop);

    Frame fraUrl{*this, "fraUrl"}, fraDisplayName{*this, "fraDisplayName"};
    TextBox txtUrl{*this, "txtUrl", {.caption = "&Internet address (URL):", .placeholder = "https://"}};
    TextBox txtLinkText{*this, "txtLinkText", {"&Description of the document:"}};
    Button cmdOK{*this, "cmdOK", {"&OK"}}, cmdCancel{*this, "cmdCancel", {"&Cancel"}};

    /// Shows the window modal above `owner`. With `DescOnly` it asks for the description alone.
    /// `DefLinkText` stands in the description, selected. The window stays loaded.
    void Display(bool DescOnly, const std::string& DefLinkText = {}, const OwnerWindow* owner = nullptr);

    /// What was entered, without blanks around it.
    std::string LinkText() const;
    std::string Url() const;
    /// Whether the window was left without OK.
    bool Cancelled() const { return cancelled_; }

protected:
    void OnShow() override;
    bool OnQueryClose(CloseReason reason) override;

private:
    void Confirm();
    bool Refuse(const std::string& text, const std::string& title, TextBox& where);
    bool IsComplete();

    bool descriptionOnly_ = false;
    bool cancelled_ = false;
};

}  // namespace lumarin
