#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "documents/builder/PdfDraft.h"

namespace lumarin {

/// The files of the document that is being built, in the user's folder.
class PdfDraftFiles {
public:
    PdfDraftFiles() = default;
    explicit PdfDraftFiles(std::string userFolder) : folder_(std::move(userFolder)) {}

    std::string Pdf() const { return folder_ + "CreatePDFTmp.pdf"; }
    /// The document that is to take its place.
    std::string NewPdf() const { return folder_ + "CreatePDFTmp-new.pdf"; }
    /// The page that is just being added.
    std::string Image() const { return folder_ + "CreatePDFTmp.png"; }
    /// A page's PNG file.
    std::string Picture(PageId page) const { return OfPage("page-", page, ".png"); }
    /// Small picture of a page.
    std::string Thumbnail(PageId page) const { return OfPage("", page, ".png"); }
    /// What turned pages are made of, where the page's own file would give too little; most have none.
    std::string Source(PageId page) const { return OfPage("source-", page, ".jpg"); }

    bool HasPdf() const;
    /// Bytes of the PDF file; 0 when there is none.
    std::int64_t PdfLength() const;
    /// The document, with what its PDF file has. Nothing when there is no draft of it.
    std::optional<PdfDraft> Read() const;
    /// Throws FileError.
    void Write(const PdfDraft& draft) const;
    /// Deletes what belongs to a page, as far as that goes.
    void DeletePage(PageId page) const;
    /// Deletes all of them, the PDF file first. Throws FileError when that cannot be deleted.
    void DeleteAll() const;

private:
    std::string State() const { return folder_ + "CreatePDFTmp.dat"; }
    std::string OfPage(const char* kind, PageId page, const char* ending) const {
        return folder_ + "CreatePDFTmp-" + kind + std::to_string(page) + ending;
    }

    std::string folder_;
};

}  // namespace lumarin
