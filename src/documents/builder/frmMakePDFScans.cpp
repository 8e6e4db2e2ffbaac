#include <utility>

#include "base/Files.h"
#include "base/Text.h"
#include "documents/builder/frmMakePDF.h"
#include "util/PictureAcquisition.h"

// Scanned pages: they are straightened and blank ones left out, as far as the user wants that, and the two
// passes of a feeder that sees one side only are put together.

namespace lumarin {

namespace {
constexpr const char* BothSidesTitle = "Fronts, Then Backs";

std::string Counted(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}
}  // namespace

void frmMakePDF::Acquire(bool several) {
    RunBatch(several ? "AcquireMultiple" : "AcquireSingle", [&] { AcquirePass(several); });
}

/// Returns what came, with the pages that were left out, and whether the user has let it come to its end.
std::pair<PageIds, ScanOutcome> frmMakePDF::AcquirePass(bool several) {
    PageIds pass;
    if (ports_.scanner == nullptr) return {pass, ScanOutcome::Cancelled};
    const auto takePage = [&](const ScannedPage& page) {
        const PageId id = AddScan(page, several);
        if (id == 0) return AfterPage::Stop;
        pass.push_back(id);
        if (!several || stop_) return AfterPage::Stop;
        return page.fromFeeder ? AfterPage::Continue : AskForNextPicture(desktop(), *this);
    };
    const ScanOutcome outcome = AcquirePictures(desktop(), *this, *ports_.scanner,
                                                {.source = scannerSource_, .several = several}, takePage);
    return {pass, stop_ || refusals_.Any() ? ScanOutcome::Cancelled : outcome};
}

/// 0 for a page that was refused. A page that was asked for alone is never left out.
PageId frmMakePDF::AddScan(const ScannedPage& scan, bool several) {
    const std::string name = ScanName(draft_.LastScan() + 1);
    const PageId id = draft_.NextId();
    bool isLeftOut = false, isStraightened = false;
    const bool added = AddPage(name, [&] {
        auto picture = ports_.imaging.FromMemory(scan.picture);
        const PageLook look = scanning_.straighten || scanning_.leaveOutBlank ? picture->Look() : PageLook{};
        isStraightened = scanning_.straighten && look.skew != 0;
        if (isStraightened) picture->Turn({.degrees = -look.skew, .edges = PictureTurn::Edges::Paper});
        isLeftOut = several && scanning_.leaveOutBlank && look.isBlank;
        if (isLeftOut) LeaveOut(*std::exchange(picture, nullptr), name);
        return picture;
    });
    if (added && isStraightened) ++straightened_;
    ShowScans();
    return added || isLeftOut ? id : 0;
}

/// Keeps the page with the document, but not in it.
void frmMakePDF::LeaveOut(SourcePicture& picture, const std::string& name) {
    const PageId id = draft_.NextId();
    files_.DeletePage(id);
    const PixelSize size = WritePicture(picture, Colours(), files_.Picture(id));
    PdfDraft changed = draft_;
    changed.pages[id] = {.source = name,
                         .bytes = static_cast<std::int64_t>(files::FileLength(files_.Picture(id))),
                         .colours = Colours(),
                         .pageSize = PageSize(),
                         .place = PlaceOnPage(size, PageSize()),
                         .isKept = true};
    const PageIds all = WithLeftOut(draft_);
    changed.leftOut.push_back({id, all.empty() ? 0 : all.back()});
    Amend(std::move(changed));
    MakeThumbnail(id, Colours());
}

void frmMakePDF::BringBack() {
    RunCommand("BringBack", [this] {
        if (draft_.leftOut.empty()) return;
        const PageIds all = WithLeftOut(draft_);
        if (draft_.LengthWith(all) > maximumBytes_)
            return Refuse(
                "Cannot bring back " + BlankPagesText(draft_.leftOut.size()) + "\nMaximum size exceeded",
                "File is too large");
        PdfDraft changed = draft_;
        PageIds back;
        for (const PdfDraft::LeftOut& leftOut : std::exchange(changed.leftOut, {}))
            back.push_back(leftOut.page);
        changed.Change("Bring back " + BlankPagesText(back.size()), all);
        Amend(std::move(changed));
        ShowPages(back);
    });
}

void frmMakePDF::AcquireBothSides() {
    RunBatch("FrontsThenBacks", [this] {
        const PageIds before = WithLeftOut(draft_);
        const auto [fronts, outcome] = AcquirePass(true);
        if (fronts.empty() || outcome == ScanOutcome::Cancelled || !AskForBacks(fronts.size())) return;
        const PageIds backs = AcquirePass(true).first;
        if (backs.empty()) return;
        if (backs.size() != fronts.size()) return SayUnequal(fronts.size(), backs.size());
        PageIds all = before;
        for (const PageId page : FrontsAndBacks(fronts, backs)) all.push_back(page);
        PdfDraft changed = draft_;
        Arrange(changed, all);
        Amend(std::move(changed));
        ShowPages({fronts.front()});
    });
}

bool frmMakePDF::AskForBacks(std::size_t fronts) const {
    return desktop().ShowMessage(
               {.text = Counted(fronts, "front") + (fronts == 1 ? " was" : " were") +
                        " scanned. Turn the whole stack over, put it back into the feeder, and press OK "
                        "to scan the backs, the last one first.",
                .title = BothSidesTitle,
                .buttons = Buttons::OkCancel,
                .icon = Icon::Question,
                .enter = Answer::Ok},
               this) == Answer::Ok;
}

void frmMakePDF::SayUnequal(std::size_t fronts, std::size_t backs) const {
    desktop().ShowMessage(
        {.text = Counted(fronts, "front") + " and " + Counted(backs, "back") +
                 " were scanned, so they cannot be put in order: two sheets may have gone "
                 "through at once.\n\nAll of them are in the document, first the fronts, then "
                 "the backs with the last one first. Move them to their places, or undo and "
                 "scan again.",
         .title = BothSidesTitle,
         .buttons = Buttons::Ok,
         .icon = Icon::Exclamation},
        this);
}

bool frmMakePDF::ScanToolClicked(const std::string& name) {
    const std::pair<const char*, std::function<void()>> tools[] = {
        {"AcquireSingle", [this] { Acquire(false); }},
        {"AcquireMultiple", [this] { Acquire(true); }},
        {"FrontsThenBacks", [this] { AcquireBothSides(); }},
        {"StraightenScans", [&] { SwitchScanning(name, &ScanSettings::straighten); }},
        {"LeaveOutBlank", [&] { SwitchScanning(name, &ScanSettings::leaveOutBlank); }},
        {"BringBack", [this] { BringBack(); }},
    };
    for (const auto& [tool, act] : tools)
        if (name == tool) return act(), true;
    return false;
}

void frmMakePDF::ShowScanSettings() {
    scanning_ = ReadScanSettings(ports_.host.Common());
    ActiveBar1.CheckTool("StraightenScans", scanning_.straighten);
    ActiveBar1.CheckTool("LeaveOutBlank", scanning_.leaveOutBlank);
}

void frmMakePDF::SwitchScanning(const std::string& tool, bool ScanSettings::*setting) {
    RunCommand(tool, [&] {
        scanning_.*setting = !(scanning_.*setting);
        ActiveBar1.CheckTool(tool, scanning_.*setting);
        WriteScanSettings(ports_.host.Common(), scanning_);
    });
}

void frmMakePDF::ShowScans() {
    const std::string text = ScansText(straightened_, draft_.leftOut.size());
    lblScans.SetCaption(text);
    lblScans.SetVisible(!text.empty());
    cmdBringBack.SetVisible(!draft_.leftOut.empty());
    const bool canBringBack = !adding_ && !draft_.leftOut.empty() && draft_.CanBeChanged();
    cmdBringBack.SetEnabled(canBringBack);
    ActiveBar1.EnableTool("BringBack", canBringBack);
}

}  // namespace lumarin
