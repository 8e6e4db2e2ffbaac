#pragma once

#include <cstdint>
#include <string>

#include "documents/builder/PagePlacement.h"
#include "documents/builder/PdfLibrary.h"

namespace lumarin {

/// Writes pages into one PDF file by the PDF library: the first page creates it, a page after `Close` opens
/// it again. Every failure throws ApplicationError with the library's reason.
class PdfPages {
public:
    /// The library outlives this.
    PdfPages(PdfLibrary& library, std::string source) : library_(library), source_(std::move(source)) {}
    ~PdfPages();
    PdfPages(const PdfPages&) = delete;
    PdfPages& operator=(const PdfPages&) = delete;

    /// The file that pages go to. `started`: it has pages already.
    void Use(const std::string& path, bool started);

    /// What a new file is to say about itself.
    void SetInfo(std::int32_t listing, const std::string& hostText);

    /// The most that the file can have with one page more, of a PNG file this large. Nothing was added since
    /// `Close`. Throws FileError.
    std::int64_t MostBytesWith(std::int64_t pngBytes, std::size_t pagesBefore) const;

    /// Adds the PNG file as a page. A page that failed leaves those before it as they are.
    void Write(const std::string& imagePath, std::int32_t pageSize, const PagePlace& place);
    /// Brings the file on disk up to date. When that fails, it is as it was before the first page since.
    void Close();

private:
    void Open();
    std::string Title() const { return std::to_string(listing_) + " PDF"; }
    void Check(PdfStatus status) const;

    PdfLibrary& library_;
    std::string source_;
    std::string path_;
    std::int32_t listing_ = 0;
    std::string hostText_;
    PdfHandle handle_ = 0;
    bool started_ = false;
};

}  // namespace lumarin
