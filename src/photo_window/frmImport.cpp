#include "photo_window/frmImport.h"

#include "base/Text.h"

namespace lumarin {

namespace {
constexpr int HelpPage = 13;
}

frmImport::frmImport(Desktop& desktop) : Form(desktop, "frmImport") {
    SetCaption("Import Photo");
    SetHelpContext(HelpPage);
    cmdCancel.Click = [this] { Cancel(); };
}

void frmImport::ShowPicture(const std::string& text, const std::string& path, int done, int count) {
    lblPicture.SetCaption(text);
    lblFile.SetCaption(text::AfterLastSeparator(path));
    pbBar.SetMax(count);
    pbBar.SetValue(done);
}

void frmImport::Cancel() {
    cancelled_ = true;
    cmdCancel.SetEnabled(false);
    lblPicture.SetCaption("Canceling ...");
}

bool frmImport::OnQueryClose(CloseReason reason) {
    if (reason != CloseReason::Frame) return true;
    Cancel();
    return false;
}

}  // namespace lumarin
