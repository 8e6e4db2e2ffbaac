#include "documents/builder/PdfDraftFiles.h"

#include <algorithm>

#include "base/Files.h"

namespace lumarin {

bool PdfDraftFiles::HasPdf() const { return files::FileExists(Pdf()); }

std::int64_t PdfDraftFiles::PdfLength() const {
    return HasPdf() ? static_cast<std::int64_t>(files::FileLength(Pdf())) : 0;
}

std::optional<PdfDraft> PdfDraftFiles::Read() const {
    if (!HasPdf() || !files::FileExists(State())) return std::nullopt;
    auto draft = ParseDraft(files::ReadAll(State()));
    if (!draft) return std::nullopt;
    // The draft is written before each change of the PDF file.
    if (PdfLength() != draft->pdfLength) draft->built = draft->order;
    draft->pdfLength = PdfLength();
    for (auto& [id, page] : draft->pages) page.isKept = page.pageSize != 0 && files::FileExists(Picture(id));
    // What the PDF file does not have, and cannot get, was being taken in.
    const std::size_t has = draft->IsBuiltSoFar() ? draft->built.size() : 0;
    auto lacking = draft->order.begin() + static_cast<std::ptrdiff_t>(has);
    lacking =
        std::remove_if(lacking, draft->order.end(), [&](PageId id) { return !draft->pages[id].isKept; });
    draft->order.erase(lacking, draft->order.end());
    return draft;
}

void PdfDraftFiles::Write(const PdfDraft& draft) const { files::WriteWhole(State(), DraftText(draft)); }

void PdfDraftFiles::DeletePage(PageId page) const {
    for (const std::string& file : {Picture(page), Thumbnail(page), Source(page)}) files::TryDelete(file);
}

void PdfDraftFiles::DeleteAll() const {
    if (HasPdf()) files::Delete(Pdf());
    files::TryDelete(files::UnfinishedName(Pdf()));
    files::TryDelete(State());
    for (const std::string& name :
         files::List(folder_, [](const std::string& file) { return file.starts_with("CreatePDFTmp-"); }))
        files::TryDelete(folder_ + name);
    files::TryDelete(Image());
}

}  // namespace lumarin
