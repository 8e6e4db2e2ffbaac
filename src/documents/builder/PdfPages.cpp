#include "documents/builder/PdfPages.h"

#include <cstring>
#include <utility>

#include "base/Error.h"
#include "base/Files.h"

namespace lumarin {

namespace {
constexpr const char* Creator = "Qor Veltrane - Create Document";
constexpr std::int32_t EndOfPage = 0;
}  // namespace

PdfPages::~PdfPages() {
    if (handle_ > 0) library_.AdultPdfClose(handle_);
}

void PdfPages::Use(const std::string& path, bool started) {
    path_ = path;
    started_ = started;
}

void PdfPages::SetInfo(std::int32_t listing, const std::string& hostText) {
    listing_ = listing;
    hostText_ = hostText;
}

void PdfPages::Check(PdfStatus status) const {
    if (status != PdfStatus::Done) throw ApplicationError(source_, library_.LastFailure());
}

void PdfPages::Open() {
    if (!started_) {
        handle_ = library_.AdultPdfCreate(path_);
        if (handle_ > 0)
            Check(library_.AdultPdfAddInfo(handle_, Title(), std::to_string(listing_), Creator, "0",
                                           hostText_));
    } else if (handle_ == 0) {
        handle_ = library_.AdultPdfOpen(path_);
    }
    if (handle_ > 0) return;
    handle_ = 0;
    throw ApplicationError(source_, "Error Creating/Opening PDF file");
}

std::int64_t PdfPages::MostBytesWith(std::int64_t pngBytes, std::size_t pagesBefore) const {
    const std::size_t properties =
        Title().size() + std::to_string(listing_).size() + std::strlen(Creator) + hostText_.size();
    const std::int64_t before =
        started_ ? static_cast<std::int64_t>(files::FileLength(path_))
                 : PdfDocumentOverhead + PdfPropertyOverhead * static_cast<std::int64_t>(properties);
    return before + pngBytes + PdfPageOverhead + static_cast<std::int64_t>(pagesBefore);
}

void PdfPages::Write(const std::string& imagePath, std::int32_t pageSize, const PagePlace& place) {
    if (handle_ == 0) Open();
    Check(library_.AdultPdfSetFunction(handle_, PdfFunction::PageSize, pageSize, pageSize, "0", "0"));
    Check(library_.AdultPdfSetFunction(handle_, PdfFunction::PlaceImage, place.left, place.top,
                                       std::to_string(place.width), std::to_string(place.height)));
    Check(library_.AdultPdfAddImage(handle_, imagePath));
    Check(library_.AdultPdfSetFunction(handle_, PdfFunction::PageSize, EndOfPage, EndOfPage, "0", "0"));
    started_ = true;
}

void PdfPages::Close() {
    if (handle_ == 0) return;
    const PdfStatus status = library_.AdultPdfClose(std::exchange(handle_, 0));
    if (started_) Check(status);  // without a page there is nothing to be written
}

}  // namespace lumarin
