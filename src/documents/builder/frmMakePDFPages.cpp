#include <algorithm>

#include "base/Files.h"
#include "base/Numbers.h"
#include "base/SizeText.h"
#include "base/Text.h"
#include "documents/builder/frmMakePDF.h"

// The pages of the PDF builder: scaling and writing a picture, and the batches in which they are added.

namespace lumarin {

namespace {

/// Longer side of a page's small picture, in pixels.
constexpr double ThumbnailSide = 240;

std::int32_t WholePixels(double length) { return std::max(1, RoundToWhole(length)); }

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
        stop_ = false;
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

/// False for a picture that was refused, which is said at the end of the batch.
bool frmMakePDF::AddPage(const std::string& name,
                         const std::function<std::unique_ptr<SourcePicture>()>& open) {
    bool added = false;
    try {
        const auto picture = open();
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
    const PixelSize size =
        WithinLimit({static_cast<double>(picture.Width()), static_cast<double>(picture.Height())}, Colours());
    picture.WritePage({WholePixels(size.width), WholePixels(size.height), Colours()}, files_.Image());
    const auto bytes = static_cast<std::int64_t>(files::FileLength(files_.Image()));
    if (!Fits(bytes)) return refusals_.AddTooLarge(name), false;
    TakeIn({text::AfterLastSeparator(name), bytes}, PlaceOnPage(size, PageSize()));
    MakeThumbnail(draft_.pages.size(), size);
    AddRow(draft_.pages.size());
    ShowDocument();
    return true;
}

/// Both the pictures and the file, which has more than them, keep to the limit.
bool frmMakePDF::Fits(std::int64_t pictureBytes) const {
    return draft_.PictureBytes() + pictureBytes <= maximumBytes_ &&
           pages_.MostBytesWith(pictureBytes, draft_.pages.size()) <= maximumBytes_;
}

/// Makes the picture a page of the file on disk, or leaves everything as it was.
void frmMakePDF::TakeIn(const PdfDraft::Page& page, const PagePlace& place) {
    draft_.pages.push_back(page);
    try {
        KeepDraft();
        pages_.Write(files_.Image(), PageSize(), place);
        pages_.Close();
    } catch (...) {
        draft_.pages.pop_back();
        pages_.Use(files_.Pdf(), !draft_.pages.empty());
        throw;
    }
    draft_.writtenPages = draft_.pages.size();
    draft_.pdfLength = files_.PdfLength();
}

void frmMakePDF::MakeThumbnail(std::size_t page, PixelSize size) {
    const double scale = std::min(1.0, ThumbnailSide / std::max(size.width, size.height));
    try {
        ports_.imaging.Open(files_.Image())
            ->WritePage({WholePixels(size.width * scale), WholePixels(size.height * scale),
                         Colours() == PageColours::Colour ? PageColours::Colour : PageColours::Grey},
                        files_.Thumbnail(page));
    } catch (const std::exception&) {
        files::TryDelete(files_.Thumbnail(page));  // the page stands in the list without a picture
    }
}

void frmMakePDF::AddRow(std::size_t page) {
    const PdfDraft::Page& added = draft_.pages[page - 1];
    ListView::Row row;
    row.text = "Page " + std::to_string(page);
    row.subItems = {added.source, SizeText(added.bytes)};
    if (files::FileExists(files_.Thumbnail(page))) row.picture = files_.Thumbnail(page);
    lbmBM.Select(lbmBM.AddRow(row));
}

/// "12KB of 1000KB".
std::string frmMakePDF::SizeOf(const PdfDraft& draft) const {
    return SizeText(std::max(draft.PictureBytes(), draft.pdfLength)) + " of " + SizeText(maximumBytes_);
}

void frmMakePDF::ShowDocument() {
    const bool any = !draft_.pages.empty();
    std::string names;
    for (const PdfDraft::Page& page : draft_.pages) names += (names.empty() ? "" : ", ") + page.source;
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
}

}  // namespace lumarin
