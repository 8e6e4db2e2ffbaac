#include <algorithm>

#include "base/Files.h"
#include "base/PutBack.h"
#include "documents/builder/PdfTools.h"
#include "documents/builder/frmMakePDF.h"
#include "imaging/frmPhotoViewer.h"

// What is done to the pages that the PDF builder has: delete, move, turn, undo, look. The draft has it at
// once; the PDF file follows when it is needed.

namespace lumarin {

namespace {

constexpr const char* TooLargeTitle = "File is too large";

/// "page 3", "2 pages".
std::string PagesText(const std::vector<int>& rows) {
    return rows.size() == 1 ? "page " + std::to_string(rows.front() + 1)
                            : std::to_string(rows.size()) + " pages";
}

}  // namespace

void frmMakePDF::WirePageTools() {
    const std::pair<Button*, const char*> buttons[] = {
        {&cmdUndo, "undo"},      {&cmdRedo, "redo"},          {&cmdRotateLeft, "RotateLeft"},
        {&cmdMove(0), "MoveUp"}, {&cmdMove(1), "MoveDown"},   {&cmdRotateRight, "RotateRight"},
        {&cmdView, "ViewPage"},  {&cmdDelete, "DeletePages"},
    };
    for (const auto& [button, tool] : buttons)
        button->Click = [this, name = std::string(tool)] { ActiveBar1.ClickTool(name); };
    lbmBM.SelectionChange = [this] { ShowPageTools(); };
    lbmBM.DoubleClick = [this] { ActiveBar1.ClickTool("ViewPage"); };
    lbmBM.KeyPressed = [this](const KeyDown& pressed, bool& used) { PageKeyPressed(pressed, used); };
    lbmBM.RowsDragged = [this](int before) { RunCommand("lbmBM", [&] { Move(before); }); };
    lbmBM.MouseUp = [this](const Mouse& mouse) {
        if (mouse.button == MouseButton::Right) desktop().PopupMenu(ActiveBar1, PageMenu);
    };
}

bool frmMakePDF::PageToolClicked(const std::string& name) {
    const std::pair<const char*, std::function<void()>> tools[] = {
        {"undo", [this] { TakeStep(&PdfDraft::Undo, draft_.undo, "Undone: "); }},
        {"redo", [this] { TakeStep(&PdfDraft::Redo, draft_.redo, "Done again: "); }},
        {"RotateLeft", [this] { Rotate(3); }},
        {"RotateRight", [this] { Rotate(1); }},
        {"MoveUp", [this] { MoveBy(-1); }},
        {"MoveDown", [this] { MoveBy(1); }},
        {"DeletePages", [this] { Delete(); }},
        {"ViewPage", [this] { View(); }},
    };
    for (const auto& [tool, act] : tools)
        if (name == tool) return RunCommand(name, act), true;
    return false;
}

void frmMakePDF::PageKeyPressed(const KeyDown& pressed, bool& used) {
    const auto click = [&](const char* tool) {
        used = true;
        ActiveBar1.ClickTool(tool);
    };
    if (pressed.key == Key::Delete) click("DeletePages");
    if (pressed.key == Key::Enter) click("ViewPage");
    if (pressed.key == Key::Up && pressed.alt) click("MoveUp");
    if (pressed.key == Key::Down && pressed.alt) click("MoveDown");
}

void frmMakePDF::ShowPageTools() {
    const bool canChange = draft_.CanBeChanged();
    const bool canChangeSelected = canChange && !lbmBM.SelectedRows().empty();
    const auto enable = [this](const char* tool, Button& button, bool enabled) {
        ActiveBar1.EnableTool(tool, enabled);
        button.SetEnabled(enabled);
    };
    enable("undo", cmdUndo, canChange && !draft_.undo.empty());
    enable("redo", cmdRedo, canChange && !draft_.redo.empty());
    enable("RotateLeft", cmdRotateLeft, canChangeSelected);
    enable("RotateRight", cmdRotateRight, canChangeSelected);
    enable("MoveUp", cmdMove(0), canChangeSelected && lbmBM.Count() > 1);
    enable("MoveDown", cmdMove(1), canChangeSelected && lbmBM.Count() > 1);
    enable("DeletePages", cmdDelete, canChangeSelected);
    enable("ViewPage", cmdView, canChangeSelected);
    lbmBM.SetReorderable(canChange);
}

/// Makes the changed draft the present one, once it is kept.
void frmMakePDF::Amend(PdfDraft changed) {
    const PageIds forgotten = changed.ForgetPages();
    changed.description = txtLinkText.Text();
    files_.Write(changed);
    draft_ = std::move(changed);
    for (const PageId page : forgotten) files_.DeletePage(page);
}

PageIds frmMakePDF::SelectedPages() const {
    PageIds selected;
    for (const int row : lbmBM.SelectedRows())
        selected.push_back(draft_.order[static_cast<std::size_t>(row)]);
    return selected;
}

void frmMakePDF::Delete() {
    const std::vector<int> rows = lbmBM.SelectedRows();
    if (rows.empty()) return;
    const PageIds selected = SelectedPages();
    PageIds rest = draft_.order;
    std::erase_if(rest, [&](PageId page) { return std::ranges::find(selected, page) != selected.end(); });
    PdfDraft changed = draft_;
    changed.Change("Delete " + PagesText(rows), rest);
    Amend(std::move(changed));
    const auto next = std::min(static_cast<std::size_t>(rows.front()), rest.size() - 1);
    ShowPages(rest.empty() ? PageIds() : PageIds{rest[next]});
}

void frmMakePDF::MoveBy(int places) {
    const std::vector<int> rows = lbmBM.SelectedRows();
    if (rows.empty()) return;
    Move(places < 0 ? std::max(0, rows.front() + places) : std::min(lbmBM.Count(), rows.back() + 1 + places));
}

/// Moves the selected pages together in front of that row.
void frmMakePDF::Move(int before) {
    PageIds order;
    for (const int row : lbmBM.OrderWithSelected(before))
        order.push_back(draft_.order[static_cast<std::size_t>(row)]);
    if (order == draft_.order) return;
    const PageIds selected = SelectedPages();
    PdfDraft changed = draft_;
    changed.Change("Move " + PagesText(lbmBM.SelectedRows()), order);
    Amend(std::move(changed));
    ShowPages(selected);
}

void frmMakePDF::Rotate(int quarters) {
    PdfDraft changed = draft_;
    const bool turned = TurnSelected(changed, quarters);
    if (turned) Amend(changed);
    for (const auto& [page, made] : changed.pages)  // none of them was kept then
        if (!draft_.pages.contains(page)) files_.DeletePage(page);
    PageIds selected;
    for (const int row : lbmBM.SelectedRows())
        selected.push_back(draft_.order[static_cast<std::size_t>(row)]);
    ShowPages(selected);
}

/// False when the user stopped it, or when it makes the document too large.
bool frmMakePDF::TurnSelected(PdfDraft& changed, int quarters) {
    const HourglassPointer hourglass(desktop());
    const Meanwhile working(adding_, true);
    stop_ = false;
    const std::vector<int> rows = lbmBM.SelectedRows();
    PageIds order = draft_.order;
    for (const int row : rows) {
        if (rows.size() > 1) {
            lblStatus.SetCaption("Turning page " + std::to_string(row + 1) + " ... (Cancel stops)");
            desktop().ProcessPendingEvents();
        }
        if (stop_) return false;
        PageId& page = order[static_cast<std::size_t>(row)];
        page = TurnedPage(changed, page, quarters);
    }
    changed.order = order;
    const bool grows = changed.PictureBytes() > draft_.PictureBytes();
    changed.order = draft_.order;
    if (grows && changed.LengthWith(order) > maximumBytes_) {
        Refuse("Cannot turn " + PagesText(rows) + "\nMaximum size exceeded", TooLargeTitle);
        return false;
    }
    changed.Change("Turn " + PagesText(rows), order);
    return true;
}

/// The page as it is when it is turned further. Turned back it is what it was.
PageId frmMakePDF::TurnedPage(PdfDraft& changed, PageId page, int quarters) const {
    const PdfDraft::Page from = changed.pages.at(page);
    const PageId original = from.original == 0 ? page : from.original;
    const int total = (from.quarters + quarters) % 4;
    if (total == 0) return original;
    for (const auto& [id, known] : changed.pages)
        if (known.original == original && known.quarters == total && known.isKept) return id;

    const PageId id = changed.NextId();
    files_.DeletePage(id);
    const bool hasSource = total != 2 && files::FileExists(files_.Source(original));
    const auto picture = ports_.imaging.Open(hasSource ? files_.Source(original) : files_.Picture(original));
    picture->Turn({.quarters = total});
    PdfDraft::Page turned = from;
    const PixelSize size = WritePicture(*picture, from.colours, files_.Picture(id));
    turned.bytes = static_cast<std::int64_t>(files::FileLength(files_.Picture(id)));
    turned.original = original;
    turned.quarters = total;
    turned.place = PlaceOnPage(size, from.pageSize);
    changed.pages[id] = turned;
    MakeThumbnail(id, from.colours);
    return id;
}

void frmMakePDF::TakeStep(void (PdfDraft::*step)(), const std::vector<PdfDraft::Step>& from,
                          const char* done) {
    if (from.empty()) return;
    const std::string what = done + from.back().what;
    const PageIds before = draft_.order;
    PageIds selected = SelectedPages();
    PdfDraft changed = draft_;
    (changed.*step)();
    Amend(std::move(changed));
    PageIds back;
    std::ranges::copy_if(draft_.order, std::back_inserter(back),
                         [&](PageId page) { return std::ranges::find(before, page) == before.end(); });
    ShowPages(back.empty() ? selected : back);
    lblStatus.SetCaption(draft_.PageCountText() + ". " + what);
}

void frmMakePDF::View() {
    const PageIds selected = SelectedPages();
    if (selected.empty()) return;
    const auto source = ports_.imaging.Open(files_.Picture(selected.front()));
    auto picture = std::make_shared<Picture>(source->Preview(source->Width(), source->Height()));
    const int percent = frmPhotoViewer::FittingPercent(*picture, desktop().ScreenSize());
    frmPhotoViewer viewer(desktop());
    viewer.Init(std::move(picture), percent, lbmBM.Cell(lbmBM.Selected(), 0));
    viewer.ShowModal(this);
}

/// The PDF file gets the pages that the list shows. Without any it stays until the next one comes.
void frmMakePDF::BringUpToDate() {
    if (!draft_.IsBuilt() && !draft_.order.empty()) {
        const HourglassPointer hourglass(desktop());
        draft_.IsBuiltSoFar() ? AppendRest() : BuildAnew();
        draft_.built = draft_.order;
        draft_.pdfLength = files_.PdfLength();
        draft_.upload = {};
        KeepDraft();
        ShowDocument();
    }
    pages_.Use(files_.Pdf(), !draft_.order.empty());
}

void frmMakePDF::AppendRest() {
    pages_.Use(files_.Pdf(), true);
    for (std::size_t i = draft_.built.size(); i < draft_.order.size(); ++i) {
        const PdfDraft::Page& page = draft_.pages.at(draft_.order[i]);
        pages_.Write(files_.Picture(draft_.order[i]), page.pageSize, page.place);
    }
    pages_.Close();
}

void frmMakePDF::BuildAnew() {
    const AtEnd tidy([this] { files::TryDelete(files_.NewPdf()); });
    PdfPages fresh(ports_.pdf, "frmMakePDF-Write");
    fresh.Use(files_.NewPdf(), false);
    fresh.SetInfo(draft_.listing, ports_.host.Common().PdfInfoText());
    const PageIds order = draft_.order;
    for (std::size_t i = 0; i < order.size(); ++i) {
        lblStatus.SetCaption("Putting the pages together: " + std::to_string(i + 1) + " of " +
                             std::to_string(order.size()));
        desktop().ProcessPendingEvents();
        const PdfDraft::Page& page = draft_.pages.at(order[i]);
        fresh.Write(files_.Picture(order[i]), page.pageSize, page.place);
    }
    fresh.Close();
    files::Rename(files_.NewPdf(), files_.Pdf());
}

/// Shows the pages of the draft, and these as selected. Rows that stay as they are keep their place on the
/// screen.
void frmMakePDF::ShowPages(const PageIds& selected) {
    const int count = static_cast<int>(draft_.order.size());
    while (lbmBM.Count() > count) lbmBM.RemoveRow(lbmBM.Count() - 1);
    std::vector<int> rows;
    for (int i = 0; i < count; ++i) {
        const ListView::Row row = RowOf(static_cast<std::size_t>(i));
        if (i == lbmBM.Count()) {
            lbmBM.AddRow(row);
        } else if (const ListView::Row shown = lbmBM.At(i);
                   shown.subItems != row.subItems || shown.picture != row.picture) {
            lbmBM.SetSubItems(i, row.subItems);
            lbmBM.SetPicture(i, row.picture);
        }
        if (std::ranges::find(selected, draft_.order[static_cast<std::size_t>(i)]) != selected.end())
            rows.push_back(i);
    }
    if (rows.empty() && count > 0) rows = {std::clamp(lbmBM.Selected(), 0, count - 1)};
    lbmBM.SelectRows(rows);
    ShowDocument();
}

}  // namespace lumarin
