#include "documents/builder/PdfDraft.h"

#include <charconv>
#include <numeric>
#include <string_view>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Text.h"

namespace lumarin {

namespace {

constexpr std::string_view Heading = "PDF draft 1";
constexpr const char* AddedLast = "Pages added last";

std::string OneLine(std::string text) {
    for (const char* lineBreak : {"\n", "\r"}) text = text::ReplaceAll(text, lineBreak, " ");
    return text;
}

template <class Number>
std::optional<Number> WholeNumber(std::string_view text) {
    Number number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem != std::errc{} || end != text.data() + text.size() || number < 0) return std::nullopt;
    return number;
}

std::optional<PdfDraft::Page> ParsePage(const std::string& line) {
    const std::size_t blank = line.find(' ');
    const auto bytes = WholeNumber<std::int64_t>(std::string_view(line).substr(0, blank));
    if (blank == std::string::npos || !bytes || *bytes > INT32_MAX) return std::nullopt;
    return PdfDraft::Page{line.substr(blank + 1), *bytes};
}

}  // namespace

std::int64_t PdfDraft::Bytes() const {
    return std::accumulate(pages.begin(), pages.end(), std::int64_t{0},
                           [](std::int64_t sum, const Page& page) { return sum + page.bytes; });
}

std::string DraftText(const PdfDraft& draft) {
    std::string text = std::string(Heading) + "\n" + std::to_string(draft.listing) + "\n" +
                       std::to_string(draft.pdfLength) + "\n" + OneLine(draft.description) + "\n";
    for (const PdfDraft::Page& page : draft.pages)
        text += std::to_string(page.bytes) + " " + OneLine(page.source) + "\n";
    return text;
}

std::optional<PdfDraft> ParseDraft(const std::string& text) {
    const std::vector<std::string> lines = text::Split(text, '\n');
    constexpr std::size_t FirstPage = 4;
    if (lines.size() <= FirstPage || lines[0] != Heading || !lines.back().empty()) return std::nullopt;
    const auto listing = WholeNumber<std::int32_t>(lines[1]);
    const auto length = WholeNumber<std::int64_t>(lines[2]);
    if (!listing || !length) return std::nullopt;
    PdfDraft draft{*listing, lines[3], *length, {}};
    for (std::size_t i = FirstPage; i + 1 < lines.size(); ++i) {
        const auto page = ParsePage(lines[i]);
        if (!page) return std::nullopt;
        draft.pages.push_back(*page);
    }
    return draft;
}

std::string PdfDraftFiles::Thumbnail(std::size_t page) const {
    return folder_ + "CreatePDFTmp-" + std::to_string(page) + ".png";
}

bool PdfDraftFiles::HasPdf() const { return files::FileExists(Pdf()); }

std::optional<PdfDraft> PdfDraftFiles::Read() const {
    if (!HasPdf() || !files::FileExists(State())) return std::nullopt;
    auto draft = ParseDraft(files::ReadAll(State()));
    if (!draft) return std::nullopt;
    // The program ended after the document was written and before this was.
    const auto length = static_cast<std::int64_t>(files::FileLength(Pdf()));
    if (length > draft->pdfLength) draft->pages.push_back({AddedLast, length - draft->pdfLength});
    return draft;
}

void PdfDraftFiles::Write(PdfDraft& draft) const {
    draft.pdfLength = HasPdf() ? static_cast<std::int64_t>(files::FileLength(Pdf())) : 0;
    files::WriteWhole(State(), DraftText(draft));
}

void PdfDraftFiles::DeleteAll() const {
    if (HasPdf()) files::Delete(Pdf());
    files::TryDelete(files::UnfinishedName(Pdf()));
    files::TryDelete(State());
    for (const std::string& name : files::List(folder_, [](const std::string& file) {
             return file.rfind("CreatePDFTmp-", 0) == 0 && text::EndsWithIgnoringCase(file, ".png");
         }))
        files::TryDelete(folder_ + name);
    files::TryDelete(Image());
}

}  // namespace lumarin
