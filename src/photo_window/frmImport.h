#pragma once

#include <string>

#include "forms/Controls.h"
#include "forms/Desktop.h"

namespace lumarin {

/// Shown while several pictures are imported: which one comes next, and a cancel button that the import looks
/// at between two of them. Closing the window by its frame acts as cmdCancel; the caller unloads it.
class frmImport : public Form {
public:
    explicit frmImport(Desktop& desktop);

    Label lblPicture{*this, "lblPicture"};  ///< "Picture 3 of 12"
    Label lblFile{*this, "lblFile", {.accessibleName = "File"}};
    ProgressBar pbBar{*this, "pbBar", {.accessibleName = "Imported so far"}};
    Button cmdCancel{*this, "cmdCancel", {"&Cancel", "Keep what has been imported and leave out the rest"}};

    /// What comes next, in words and by its file, after `done` of `count` pictures.
    void ShowPicture(const std::string& text, const std::string& path, int done, int count);

    bool Cancelled() const { return cancelled_; }
    void Cancel();

protected:
    bool OnQueryClose(CloseReason reason) override;

private:
    bool cancelled_ = false;
};

}  // namespace lumarin
