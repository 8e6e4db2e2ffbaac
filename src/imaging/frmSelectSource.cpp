#include "imaging/frmSelectSource.h"

#include "base/Text.h"

namespace lumarin {

namespace {

constexpr const char* Title = "Select Source";
constexpr int HelpPage = 7;

}  // namespace

frmSelectSource::frmSelectSource(Desktop& desktop) : Form(desktop, "frmSelectSource") {
    SetInitialSize(7200, 3600);
    SetCaption(Title);
    SetHelpContext(HelpPage);
    lisSources.AddColumn("Scanner or camera", 3600);
    lisSources.AddColumn("Kind", 1800);
    lisSources.AddColumn("Connection", 1800);
    lisSources.ItemClick = [this](int) { cmdOK.SetEnabled(true); };
    lisSources.DoubleClick = [this] { Accept(); };
    cmdOK.Click = [this] { Accept(); };
    cmdCancel.Click = [this] { Unload(); };
}

std::string frmSelectSource::Choose(const std::vector<ScannerSource>& sources, const std::string& current,
                                    const Form* owner) {
    chosen_ = current;
    if (sources.empty()) {
        desktop().ShowMessage({.text = NoScannerSource, .title = Title, .icon = Icon::Exclamation}, owner);
        return chosen_;
    }
    Load();
    Fill(sources, current);
    ShowModal(owner);
    Unload();
    return chosen_;
}

void frmSelectSource::Fill(const std::vector<ScannerSource>& sources, const std::string& current) {
    lisSources.Clear();
    int selected = 0;
    for (const ScannerSource& source : sources) {
        const std::string device(text::Trim(source.vendor + " " + source.model));
        ListView::Row row;
        row.text = device.empty() ? source.name : device;
        row.subItems = {source.kind, source.name};
        row.key = source.name;
        const int at = lisSources.AddRow(row);
        if (source.name == current) selected = at;
    }
    cmdOK.SetEnabled(false);
    lisSources.Select(selected);
}

void frmSelectSource::Accept() {
    if (lisSources.Selected() < 0) return;
    chosen_ = lisSources.At(lisSources.Selected()).key;
    Unload();
}

}  // namespace lumarin
