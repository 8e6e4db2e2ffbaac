#pragma once

#include <cstdint>
#include <string>

namespace lumarin {

/// A document that is being written; 0 is none.
using PdfHandle = std::int32_t;

/// What a function of the PDF library answers.
enum class PdfStatus : std::int32_t { Failed = 0, Done = 1 };

/// Function codes of `AdultPdfSetFunction`, with the library's numbers.
enum class PdfFunction : std::int32_t {
    PlaceImage = 104,  ///< left, top, "width", "height" in whole points, from the page's upper left corner
    PageSize = 109     ///< page size code twice, "0", "0": begins a page; 0, 0, "0", "0" ends it
};

/// Page size codes.
inline constexpr std::int32_t PdfLetterPage = 5;  ///< 612 x 792 points
inline constexpr std::int32_t PdfLegalPage = 6;   ///< 612 x 1008 points

// What a document's file has at most, besides the bytes of its pages' PNG files. Documents are built up to a
// limit that their file must keep to, so an implementation keeps to these however often it is closed and
// opened again between two pages.

/// For each page whose picture has no palette, and a byte more for each page before it.
inline constexpr std::int64_t PdfPageOverhead = 2048;
/// For a document, and for each byte of its properties.
inline constexpr std::int64_t PdfDocumentOverhead = 1024;
inline constexpr std::int64_t PdfPropertyOverhead = 8;

/// Port: the PDF library, which writes documents of pages with one picture each. Nothing throws: a
/// function that fails answers 0 or `Failed`, leaves the file on disk as it was, and `LastFailure` says
/// why. Call order for a page: page size, place, image, page size 0. A page whose image failed is left out,
/// and the document goes on: its end fails too, and the next page may be begun at once. One thread, several
/// documents, but a file only once at a time.
class PdfLibrary {
public:
    virtual ~PdfLibrary() = default;

    /// Makes the library ready; `libraryPath` is where a host keeps the library's program file, of which
    /// an implementation that is linked in takes no notice. `Failed` when it cannot be used.
    virtual PdfStatus Load(const std::string& libraryPath) = 0;

    /// Begins an empty document. The file appears, or is replaced, at `AdultPdfClose`.
    virtual PdfHandle AdultPdfCreate(const std::string& path) = 0;
    /// Opens a document to add pages behind those that it has; they and its properties stay.
    virtual PdfHandle AdultPdfOpen(const std::string& path) = 0;
    /// The document's properties: its title, subject, producing program, and the host's own text.
    /// `keywords` "0" writes none.
    virtual PdfStatus AdultPdfAddInfo(PdfHandle handle, const std::string& title, const std::string& subject,
                                      const std::string& creator, const std::string& keywords,
                                      const std::string& author) = 0;
    virtual PdfStatus AdultPdfSetFunction(PdfHandle handle, PdfFunction function, std::int32_t first,
                                          std::int32_t second, const std::string& third,
                                          const std::string& fourth) = 0;
    /// Draws a PNG file at the place set before, one per page. The file is read here and may go afterwards.
    /// Damaged ones fail, and those with transparent parts or interlaced rows.
    virtual PdfStatus AdultPdfAddImage(PdfHandle handle, const std::string& imagePath) = 0;
    /// Writes the document whole, beside its file, and puts it in the file's place; a file that has
    /// everything stays as it is. The handle is gone afterwards, even when this fails, as it does without a
    /// single page.
    virtual PdfStatus AdultPdfClose(PdfHandle handle) = 0;

    /// Why the last function failed, for a message; "" when none did.
    virtual std::string LastFailure() const = 0;
};

}  // namespace lumarin
