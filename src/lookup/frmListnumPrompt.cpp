#include "lookup/frmListnumPrompt.h"

#include "base/NumericText.h"
#include "lookup/frmFindProperty.h"

namespace lumarin {

namespace {

constexpr int HelpPage = 5;
constexpr int Backspace = 8, CtrlV = 22, CtrlC = 3, EnterKey = 13;

}  // namespace

frmListnumPrompt::frmListnumPrompt(const LookupPorts& ports)
    : Form(ports.desktop, "frmListnumPrompt"), ports_(ports) {
    SetCaption("Listing Number");
    SetHelpContext(HelpPage);
    txtPropertyId.KeyPressed = [this](KeyPress& key) { FilterKey(key); };
    cmdOK.Click = [this] { AcceptNumber(); };
    cmdCancel.Click = [this] { Cancel(); };
    cmdBrowse.Click = [this] { RunCommand("cmdBrowse", [this] { Browse(); }); };
}

std::string frmListnumPrompt::Display(bool allowList, const OwnerWindow* owner, const std::string& offered) {
    allowList_ = allowList;
    txtPropertyId.SetText(offered);
    txtPropertyId.SelectAll();
    ShowModal(owner);
    return txtPropertyId.Text();
}

bool frmListnumPrompt::OnQueryClose(CloseReason) {
    txtPropertyId.SetText("");
    return true;
}

void frmListnumPrompt::FilterKey(KeyPress& key) {
    const bool digit = key.code >= '0' && key.code <= '9';
    const bool editing = key.code == Backspace || key.code == CtrlV || key.code == CtrlC;
    key.discarded = !(digit || editing || key.code == '.' || (key.code == ',' && allowList_));
    if (key.code == EnterKey) AcceptNumber();
}

void frmListnumPrompt::AcceptNumber() {
    if (NumericValue(txtPropertyId.Text())) {
        Hide();
        return;
    }
    desktop().ShowMessage({.text = "Invalid entry - must be numeric",
                           .title = "Input Error",
                           .buttons = Buttons::Ok,
                           .icon = Icon::Critical,
                           .modality = Modality::Application},
                          this);
    txtPropertyId.SetFocus();
    txtPropertyId.SelectAll();
}

void frmListnumPrompt::Cancel() {
    txtPropertyId.SetText("");
    Hide();
}

void frmListnumPrompt::Browse() {
    frmFindProperty search(ports_);
    std::vector<std::string> selectedIds;
    const int flags = frmFindProperty::SetUpList | frmFindProperty::SearchAtOnce;
    if (search.FindProperty(ListingSearch(), flags, frmFindProperty::OwnListings, 0, selectedIds, this)) {
        txtPropertyId.SetText(selectedIds.front());
        Hide();
    }
    search.Unload();
}

}  // namespace lumarin
