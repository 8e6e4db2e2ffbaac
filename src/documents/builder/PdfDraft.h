#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace lumarin {

/// A document that is being built, as it is kept beside its PDF file in case the program ends. It
/// is written before its PDF file, which follows by one page or more.
struct PdfDraft {
    struct Page {
        std::string source;      ///< file name, or where else the picture came from
        std::int64_t bytes = 0;  ///< of the page's PNG file
    };

    std::int32_t listing = 0;
    std::string description;
    std::int64_t pdfLength = 0;    ///< bytes of the PDF file when it was last known
    std::size_t writtenPages = 0;  ///< that it had then, from the first; it has all of them when it differs
    std::vector<Page> pages;
    /// Under which name the PDF file went to the server, and how long it was then; "" before the first try.
    struct Upload {
        std::string name;
        std::int64_t length = 0;
    } upload;

    /// What the pages have as PNG files.
    std::int64_t PictureBytes() const;
    /// "1 page", "2 pages".
    std::string PageCountText() const;
};

/// One text of lines "key=value". `ParseDraft` takes any bytes; nothing for those that are not a draft. It
/// passes over keys that it does not know, and takes texts of the first version.
std::string DraftText(const PdfDraft& draft);
std::optional<PdfDraft> ParseDraft(const std::string& text);

/// The files of the document that is being built, in the user's folder.
class PdfDraftFiles {
public:
    PdfDraftFiles() = default;
    explicit PdfDraftFiles(std::string userFolder) : folder_(std::move(userFolder)) {}

    std::string Pdf() const { return folder_ + "CreatePDFTmp.pdf"; }
    /// The page that is just being added.
    std::string Image() const { return folder_ + "CreatePDFTmp.png"; }
    /// Small picture of a page, counted from 1.
    std::string Thumbnail(std::size_t page) const;

    bool HasPdf() const;
    /// Bytes of the PDF file; 0 when there is none.
    std::int64_t PdfLength() const;
    /// The document as its PDF file has it. Nothing when there is no draft of it.
    std::optional<PdfDraft> Read() const;
    /// Throws FileError.
    void Write(const PdfDraft& draft) const;
    /// Deletes all of them, the PDF file first. Throws FileError when that cannot be deleted.
    void DeleteAll() const;

private:
    std::string State() const { return folder_ + "CreatePDFTmp.dat"; }

    std::string folder_;
};

}  // namespace lumarin
