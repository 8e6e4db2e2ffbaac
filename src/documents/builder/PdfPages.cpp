#include "documents/builder/PdfPages.h"

#include <utility>

#include "base/Error.h"

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
        const std::string listing = std::to_string(listing_);
        if (handle_ > 0)
            Check(library_.AdultPdfAddInfo(handle_, listing + " PDF", listing, Creator, "0", hostText_));
    } else if (handle_ == 0) {
        handle_ = library_.AdultPdfOpen(path_);
    }
    if (handle_ > 0) return;
    handle_ = 0;
    throw ApplicationError(source_, "Error Creating/Opening PDF file");
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
