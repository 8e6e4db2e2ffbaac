#include "documents/frmPromptLinkText.h"

#include "base/Text.h"

namespace lumarin {

namespace {
constexpr int HelpPage = 11;
}

frmPromptLinkText::frmPromptLinkText(Desktop& desktop) : Form(desktop, "frmPromptLinkText") {
    SetCaption("Document");
    SetHelpContext(HelpPage);
    cmdOK.Click = [this] { Confirm(); };
    cmdCancel.Click = [this] {
        cancelled_ = true;
        Hide();
    };
}

void frmPromptLinkText::Display(bool DescOnly, const std::string& DefLinkText, const OwnerWindow* owner) {
    descriptionOnly_ = DescOnly;
    cancelled_ = false;
    Load();
    fraUrl.SetVisible(!DescOnly);  // the layout moves the description up into its place
    if (!DefLinkText.empty()) txtLinkText.SetText(DefLinkText);
    ShowModal(owner);
}

void frmPromptLinkText::OnShow() {
    (descriptionOnly_ ? txtLinkText : txtUrl).SetFocus();
    txtLinkText.SelectAll();
}

std::string frmPromptLinkText::LinkText() const { return std::string(text::Trim(txtLinkText.Text())); }

std::string frmPromptLinkText::Url() const { return std::string(text::Trim(txtUrl.Text())); }

bool frmPromptLinkText::OnQueryClose(CloseReason) {
    cancelled_ = cancelled_ || IsShown();
    return true;
}

bool frmPromptLinkText::Refuse(const std::string& text, const std::string& title, TextBox& where) {
    desktop().ShowMessage({.text = text, .title = title, .buttons = Buttons::Ok, .icon = Icon::Critical},
                          this);
    where.SetFocus();
    return false;
}

bool frmPromptLinkText::IsComplete() {
    if (txtLinkText.Text().empty())
        return Refuse("Please enter a description for your document", "Document description is missing",
                      txtLinkText);
    if (descriptionOnly_) return true;
    if (txtUrl.Text().empty())
        return Refuse("Please enter the internet address (URL) where your document is located",
                      "Document URL is missing", txtUrl);
    if (text::EndsWithIgnoringCase(txtUrl.Text(), ".exe"))
        return Refuse("Internet address (URL) cannot point to an exe file", "Invalid Document URL", txtUrl);
    return true;
}

void frmPromptLinkText::Confirm() {
    txtLinkText.SetText(LinkText());
    txtUrl.SetText(Url());
    if (IsComplete()) Hide();
}

}  // namespace lumarin
