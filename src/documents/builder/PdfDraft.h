#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace lumarin {

/// A document that is being built, as it is kept beside its PDF file for the case that the program ends.
struct PdfDraft {
    struct Page {
        std::string source;      ///< file name, or where else the picture came from
        std::int64_t bytes = 0;  ///< of the page's PNG file
    };

    std::int32_t listing = 0;
    std::string description;
    std::int64_t pdfLength = 0;  ///< bytes of the PDF file that has these pages
    std::vector<Page> pages;

    /// The document's running size: what its pages have as PNG files.
    std::int64_t Bytes() const;
};

/// One text of lines. `ParseDraft` takes any bytes; nothing for those that are no draft.
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
    /// What is known of the PDF file that is there; pages that were added after the draft was last written
    /// are one entry more. Nothing when there is no draft of it.
    std::optional<PdfDraft> Read() const;
    /// Sets the draft's PDF length. Throws FileError.
    void Write(PdfDraft& draft) const;
    /// Deletes all of them, the PDF file first. Throws FileError when that cannot be deleted.
    void DeleteAll() const;

private:
    std::string State() const { return folder_ + "CreatePDFTmp.dat"; }

    std::string folder_;
};

}  // namespace lumarin
