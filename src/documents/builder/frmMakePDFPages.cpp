#include <algorithm>

#include "base/Files.h"
#include "base/Numbers.h"
#include "base/SizeText.h"
#include "base/Text.h"
#include "documents/builder/frmMakePDF.h"

// The pages of the PDF builder: scaling and writing a picture, and the batches in which they are added.

namespace lumarin {

namespace {

constexpr const char* Title = "Make PDF";
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
        const PdfDraft before = draft_;
        adding_ = true;
        stop_ = false;
        Guarded(command, [&] {
            if (draft_.pages.empty()) BeginDraft();
            add();
        });
        adding_ = false;
        EndBatch(before);
    });
}

/// Brings the file up to date. Pages that could not be written are taken out of the list again.
void frmMakePDF::EndBatch(const PdfDraft& before) {
    const HourglassPointer hourglass(desktop());
    const bool grown = draft_.pages.size() > before.pages.size();
    try {
        pages_.Close();
    } catch (...) {
        draft_ = before;
        while (lbmBM.Count() > static_cast<int>(draft_.pages.size())) lbmBM.RemoveRow(lbmBM.Count() - 1);
        pages_.Use(files_.Pdf(), !draft_.pages.empty());
        ShowDocument();
        throw;
    }
    ShowDocument();
    if (grown) KeepDraft();
}

/// Before there is a file: should the program end as soon as it is there, it is known whose it is.
void frmMakePDF::BeginDraft() {
    PdfDraft begun;
    begun.listing = draft_.listing;
    files_.Write(begun);
}

void frmMakePDF::Import(const std::vector<std::string>& paths) {
    const HourglassPointer hourglass(desktop());
    for (std::size_t i = 0; i < paths.size() && !stop_; ++i) {
        if (paths.size() > 1)
            lblStatus.SetCaption("Adding picture " + std::to_string(i + 1) + " of " +
                                 std::to_string(paths.size()) + " ... (Cancel stops)");
        desktop().ProcessPendingEvents();
        if (!stop_) AddPage(paths[i], [&] { return ports_.imaging.Open(paths[i]); });
    }
}

bool frmMakePDF::AddPicture(PicturePtr picture, const std::string& name) {
    return AddPage(name, [&] { return ports_.imaging.FromMemory(picture); });
}

bool frmMakePDF::AddPage(const std::string& name,
                         const std::function<std::unique_ptr<SourcePicture>()>& open) {
    bool added = false;
    try {
        const auto picture = open();
        if (picture->Width() > 0 && picture->Height() > 0)
            added = WritePage(*picture, name);
        else
            Refuse("Unable to process File: " + name + "\nImage Height or width equals zero", Title);
    } catch (const Error& error) {
        if (error.Number() < FirstImagingError || error.Number() > LastImagingError) throw;
        Refuse("Lead error (" + std::to_string(FirstImagingError - error.Number()) + ")\n" + name + "\n" +
                   error.Description(),
               Title);
    }
    files::TryDelete(files_.Image());
    return added;
}

bool frmMakePDF::WritePage(SourcePicture& picture, const std::string& name) {
    const PixelSize size =
        WithinLimit({static_cast<double>(picture.Width()), static_cast<double>(picture.Height())}, Colours());
    picture.WritePage({WholePixels(size.width), WholePixels(size.height), Colours()}, files_.Image());
    const auto bytes = static_cast<std::int64_t>(files::FileLength(files_.Image()));
    if (draft_.Bytes() + bytes > maximumBytes_) {
        Refuse("Cannot add file:\n" + name + "\nMaximum size exceeded", "File is too large");
        return false;
    }
    pages_.Write(files_.Image(), PageSize(), PlaceOnPage(size, PageSize()));
    draft_.pages.push_back({text::AfterLastSeparator(name), bytes});
    MakeThumbnail(draft_.pages.size(), size);
    AddRow(draft_.pages.size());
    ShowDocument();
    return true;
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

void frmMakePDF::ShowDocument() {
    const bool any = !draft_.pages.empty();
    std::string names;
    for (const PdfDraft::Page& page : draft_.pages) names += (names.empty() ? "" : ", ") + page.source;
    txtFilesImported.SetText(names);
    lblFilesize.SetCaption(SizeText(draft_.Bytes()));
    lblStatus.SetCaption(!any                       ? "No pages yet"
                         : draft_.pages.size() == 1 ? "1 page"
                                                    : std::to_string(draft_.pages.size()) + " pages");
    ActiveBar1.EnableTool("save", any && !adding_);
    ActiveBar1.EnableTool("preview", any && !adding_);
}

}  // namespace lumarin
