#include <algorithm>

#include "base/Files.h"
#include "base/Numbers.h"
#include "base/SizeText.h"
#include "base/Text.h"
#include "documents/builder/frmMakePDF.h"
#include "imaging/Tones.h"

// The pages of the PDF builder: scaling and writing a picture, and the batches in which they are added.

namespace lumarin {

namespace {

/// Longer side of a page's small picture, in pixels.
constexpr double ThumbnailSide = 240;

/// For what pages are made of again: the loss cannot be seen.
constexpr int FineQuality = 8;

std::int32_t WholePixels(double length) { return std::max(1, RoundToWhole(length)); }

PixelSize PixelsOf(const SourcePicture& picture) {
    return {static_cast<double>(picture.Width()), static_cast<double>(picture.Height())};
}

}  // namespace

PageColours frmMakePDF::Colours() const {
    switch (cboDocType.ListIndex()) {
        case 1:
            return PageColours::Grey;
        case 2:
            return PageColours::BlackAndWhite;
        default:
            return PageColours::Colour;
    }
}

std::int32_t frmMakePDF::PageSize() const { return optLegal.Value() ? PdfLegalPage : PdfLetterPage; }

void frmMakePDF::RunBatch(std::string_view command, const std::function<void()>& add) {
    RunCommand(command, [&] {
        adding_ = true;
        hasAdded_ = stop_ = false;
        straightened_ = 0;
        refusals_.Clear();
        Guarded(command, add);
        adding_ = false;
        Guarded(command, [this] { pages_.Close(); });
        ShowDocument();
        if (refusals_.Any()) Refuse(refusals_.Text(), refusals_.Title());
    });
}

void frmMakePDF::Import(const std::vector<std::string>& paths) {
    const HourglassPointer hourglass(desktop());
    for (std::size_t i = 0; i < paths.size() && !stop_; ++i) {
        if (paths.size() > 1)
            lblStatus.SetCaption("Adding picture " + std::to_string(i + 1) + " of " +
                                 std::to_string(paths.size()) + " ... (Cancel stops)");
        AddFile(paths[i]);
    }
}

/// Each page of a file that has several is one of the document.
void frmMakePDF::AddFile(const std::string& path) {
    int pages = 1;
    for (int page = 0; page < pages; ++page) {
        desktop().ProcessPendingEvents();
        if (stop_) return;
        AddPage(page == 0 ? path : path + " (page " + std::to_string(page + 1) + ")", [&] {
            auto picture = ports_.imaging.OpenPage(path, page);
            pages = picture->PageCount();
            return picture;
        });
    }
}

bool frmMakePDF::AddPicture(PicturePtr picture, const std::string& name) {
    return AddPage(name, [&] { return ports_.imaging.FromMemory(picture); });
}

/// False for a picture that was refused or, without any picture, left out. What was refused is
/// said at the end of the batch.
bool frmMakePDF::AddPage(const std::string& name,
                         const std::function<std::unique_ptr<SourcePicture>()>& open) {
    bool added = false;
    try {
        const auto picture = open();
        if (picture == nullptr) return false;
        if (picture->Width() > 0 && picture->Height() > 0)
            added = WritePage(*picture, name);
        else
            refusals_.AddUnusable("Unable to process File: " + name + "\nImage Height or width equals zero");
    } catch (const Error& error) {
        if (error.Number() < FirstImagingError || error.Number() > LastImagingError) throw;
        refusals_.AddUnusable("Lead error (" + std::to_string(FirstImagingError - error.Number()) + ")\n" +
                              name + "\n" + error.Description());
    }
    files::TryDelete(files_.Image());
    return added;
}

bool frmMakePDF::WritePage(SourcePicture& picture, const std::string& name) {
    BringUpToDate();
    const PixelSize size = WritePicture(picture, Colours(), files_.Image());
    const auto bytes = static_cast<std::int64_t>(files::FileLength(files_.Image()));
    if (!Fits(bytes)) return refusals_.AddTooLarge(name, SizesInFewerColours(picture, name)), false;
    const PageId id = draft_.NextId();
    files_.DeletePage(id);
    KeepSource(picture, id);
    TakeIn({.source = text::AfterLastSeparator(name),
            .bytes = bytes,
            .colours = Colours(),
            .pageSize = PageSize(),
            .place = PlaceOnPage(size, PageSize()),
            .isKept = true},
           id);
    MakeThumbnail(id, Colours());
    lbmBM.Select(lbmBM.AddRow(RowOf(draft_.order.size() - 1)));
    ShowDocument();
    return true;
}

/// The picture as a page has it. Returns its size, with fractions.
PixelSize frmMakePDF::WritePicture(SourcePicture& picture, PageColours colours, const std::string& path) {
    const PixelSize size = WithinLimit(PixelsOf(picture), colours);
    picture.WritePage({WholePixels(size.width), WholePixels(size.height), colours}, path);
    return size;
}

/// What the picture would take with fewer colours, and whether it would fit then: "in grayscale 300KB, in
/// black & white 40KB, which fits". The colours of the next pages have refused it already.
std::string frmMakePDF::SizesInFewerColours(SourcePicture& picture, const std::string& name) {
    std::string sizes;
    for (const auto& [colours, caption] : {std::pair{PageColours::Grey, "in grayscale "},
                                           std::pair{PageColours::BlackAndWhite, "in black & white "}}) {
        if (colours <= Colours()) continue;
        lblStatus.SetCaption("Working out what " + text::AfterLastSeparator(name) + " takes " + caption +
                             "... (Cancel stops)");
        desktop().ProcessPendingEvents();
        if (stop_) break;
        WritePicture(picture, colours, files_.Image());
        const auto bytes = static_cast<std::int64_t>(files::FileLength(files_.Image()));
        sizes += (sizes.empty() ? "" : ", ") + std::string(caption) + SizeText(bytes) +
                 (Fits(bytes) ? " (fits)" : "");
    }
    return sizes;
}

/// Both the pictures and the file, which has more than them, keep to the limit.
bool frmMakePDF::Fits(std::int64_t pictureBytes) const {
    return draft_.PictureBytes() + pictureBytes <= maximumBytes_ &&
           pages_.MostBytesWith(pictureBytes, draft_.order.size()) <= maximumBytes_;
}

/// Makes the picture a page of the file on disk, or leaves everything as it was.
void frmMakePDF::TakeIn(const PdfDraft::Page& page, PageId id) {
    const PdfDraft before = draft_;
    PageIds forgotten;
    try {
        files::Copy(files_.Image(), files_.Picture(id));
        draft_.pages[id] = page;
        CountStep(id);
        forgotten = draft_.ForgetPages();
        KeepDraft();
        pages_.Write(files_.Image(), page.pageSize, page.place);
        pages_.Close();
    } catch (...) {
        draft_ = before;
        files_.DeletePage(id);
        throw;
    }
    hasAdded_ = true;
    draft_.built = draft_.order;
    draft_.pdfLength = files_.PdfLength();
    for (const PageId gone : forgotten) files_.DeletePage(gone);
}

/// All pages of a batch are one step.
void frmMakePDF::CountStep(PageId added) {
    PageIds order = draft_.order;
    order.push_back(added);
    if (hasAdded_)
        draft_.order = order;
    else
        draft_.Change({}, order);
    PdfDraft::Step& step = draft_.undo.back();
    const std::size_t count = order.size() - step.order.size();
    step.what = "Add " + (count == 1 ? "a page" : std::to_string(count) + " pages");
}

/// A picture that lies across has fewer pixels on its page than when it is turned upright; more of it is kept
/// for that.
void frmMakePDF::KeepSource(SourcePicture& picture, PageId id) const {
    const PixelSize source = PixelsOf(picture);
    const PixelSize turned = WithinLimit({source.height, source.width}, Colours());
    if (turned.height <= WithinLimit(source, Colours()).width) return;
    const int width = WholePixels(turned.height), height = WholePixels(turned.width);
    try {
        picture.Capture({.cut = {0, 0, picture.Width(), picture.Height()},
                         .width = width,
                         .height = height,
                         .tones = PlainTones(),
                         .canvasWidth = width,
                         .canvasHeight = height,
                         .caption = {},
                         .jpegQualityFactor = FineQuality},
                        files_.Source(id));
    } catch (const std::exception&) {
        files::TryDelete(files_.Source(id));  // turned, the page has as many pixels as it has now
    }
}

void frmMakePDF::MakeThumbnail(PageId page, PageColours colours) const {
    try {
        const auto picture = ports_.imaging.Open(files_.Picture(page));
        const PixelSize size = PixelsOf(*picture);
        const double scale = std::min(1.0, ThumbnailSide / std::max(size.width, size.height));
        picture->WritePage({WholePixels(size.width * scale), WholePixels(size.height * scale),
                            colours == PageColours::Colour ? PageColours::Colour : PageColours::Grey},
                           files_.Thumbnail(page));
    } catch (const std::exception&) {
        files::TryDelete(files_.Thumbnail(page));  // the page stands in the list without a picture
    }
}

ListView::Row frmMakePDF::RowOf(std::size_t place) const {
    const PageId id = draft_.order[place];
    const PdfDraft::Page& page = draft_.pages.at(id);
    ListView::Row row;
    row.text = "Page " + std::to_string(place + 1);
    row.subItems = {page.source, SizeText(page.bytes)};
    if (files::FileExists(files_.Thumbnail(id))) row.picture = files_.Thumbnail(id);
    return row;
}

/// "12KB of 1000KB".
std::string frmMakePDF::SizeOf(const PdfDraft& draft) const {
    return SizeText(std::max(draft.PictureBytes(), draft.DocumentLength())) + " of " +
           SizeText(maximumBytes_);
}

void frmMakePDF::ShowDocument() {
    const bool any = !draft_.order.empty();
    std::string names;
    for (const PageId page : draft_.order)
        names += (names.empty() ? "" : ", ") + draft_.pages.at(page).source;
    txtFilesImported.SetText(names);
    lblFilesize.SetCaption(any ? SizeOf(draft_) : "");
    if (!any)
        lblStatus.SetCaption("No pages yet, at most " + SizeText(maximumBytes_));
    else
        lblStatus.SetCaption(draft_.PageCountText() +
                             (IsTooLarge(draft_) ? ", too large to be sent now" : ""));
    ActiveBar1.EnableTool("save", any && !adding_);
    ActiveBar1.EnableTool("preview", any && !adding_);
    cmdOK.SetEnabled(!IsTooLarge(draft_));
    ShowPageTools();
    ShowScans();
}

}  // namespace lumarin
