#pragma once

#include <string>
#include <vector>

#include "forms/Controls.h"
#include "forms/Desktop.h"
#include "forms/ListView.h"
#include "imaging/Scanner.h"

namespace lumarin {

/// Lets the user choose the scanner or camera that pictures are acquired from.
class frmSelectSource : public Form {
public:
    explicit frmSelectSource(Desktop& desktop);

    ListView lisSources{*this,
                        "lisSources",
                        {.caption = "Acquire &pictures from:", .accessibleName = "Scanners and cameras"}};
    Button cmdOK{*this, "cmdOK", {"&OK"}}, cmdCancel{*this, "cmdCancel", {"&Cancel"}};

    /// Shows the window modal with `current` (a source's name, or "") selected. The chosen source's name;
    /// `current` when the user cancelled, or when there is nothing to choose, which is said in a message.
    std::string Choose(const std::vector<ScannerSource>& sources, const std::string& current,
                       const Form* owner);

private:
    void Fill(const std::vector<ScannerSource>& sources, const std::string& current);
    void Accept();

    std::string chosen_;
};

}  // namespace lumarin
