#pragma once

#include "forms/Controls.h"
#include "forms/Desktop.h"

namespace lumarin {

/// Says that something takes a while; its caller shows and unloads it.
class frmBusy : public Form {
public:
    explicit frmBusy(Desktop& desktop) : Form(desktop, "frmBusy") {
        SetCaption("Retrieving information");
        SetHelpContext(HelpPage);
    }

    PictureBox Image1{*this, "Image1", {.accessibleName = "Busy"}};
    Label Label1{*this, "Label1", {"Please wait ... "}};

private:
    static constexpr int HelpPage = 10;
};

}  // namespace lumarin
