#include "documents/builder/PdfDraft.h"

#include <charconv>
#include <iterator>
#include <numeric>
#include <string_view>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Text.h"

namespace lumarin {

namespace {

constexpr std::string_view Heading = "PDF draft 2";
constexpr std::string_view FirstHeading = "PDF draft 1";

std::string OneLine(std::string text) {
    for (const char* lineBreak : {"\n", "\r"}) text = text::ReplaceAll(text, lineBreak, " ");
    return text;
}

template <class Number>
std::optional<Number> WholeNumber(std::string_view text) {
    Number number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem != std::errc{} || end != text.data() + text.size() || text.starts_with('-'))
        return std::nullopt;
    return number;
}

/// Both of "BYTES TEXT"; false when the value is not that.
bool Take(std::int64_t& bytes, std::string& text, std::string_view value) {
    const std::size_t blank = value.find(' ');
    const auto number = WholeNumber<std::int64_t>(value.substr(0, blank));
    if (blank == std::string_view::npos || !number || *number > INT32_MAX) return false;
    bytes = *number;
    text = value.substr(blank + 1);
    return true;
}

/// False when the value does not describe a page.
bool AddPage(PdfDraft& draft, std::string_view value) {
    PdfDraft::Page page;
    if (!Take(page.bytes, page.source, value)) return false;
    draft.pages.push_back(page);
    return true;
}

template <class Number>
bool SetNumber(Number& target, std::string_view value) {
    const auto number = WholeNumber<Number>(value);
    if (number) target = *number;
    return number.has_value();
}

/// False when the line does not belong in a draft.
bool TakeLine(PdfDraft& draft, std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return false;
    const std::string_view key = line.substr(0, equals);
    const std::string_view value = line.substr(equals + 1);
    if (key == "listing") return SetNumber(draft.listing, value);
    if (key == "length") return SetNumber(draft.pdfLength, value);
    if (key == "written") return SetNumber(draft.writtenPages, value);
    if (key == "page") return AddPage(draft, value);
    if (key == "upload") return Take(draft.upload.length, draft.upload.name, value);
    if (key == "description") draft.description = value;
    return true;
}

/// The first version had the values alone, in this order.
std::string KeyInFirstVersion(std::size_t line) {
    constexpr const char* Keys[] = {"", "listing=", "length=", "description="};
    return line < std::size(Keys) ? Keys[line] : "page=";
}

}  // namespace

std::int64_t PdfDraft::PictureBytes() const {
    return std::accumulate(pages.begin(), pages.end(), std::int64_t{0},
                           [](std::int64_t sum, const Page& page) { return sum + page.bytes; });
}

std::string PdfDraft::PageCountText() const {
    return std::to_string(pages.size()) + (pages.size() == 1 ? " page" : " pages");
}

std::string DraftText(const PdfDraft& draft) {
    std::string text = std::string(Heading) + "\nlisting=" + std::to_string(draft.listing) +
                       "\ndescription=" + OneLine(draft.description) +
                       "\nlength=" + std::to_string(draft.pdfLength) +
                       "\nwritten=" + std::to_string(draft.writtenPages) + "\n";
    if (!draft.upload.name.empty())
        text += "upload=" + std::to_string(draft.upload.length) + " " + OneLine(draft.upload.name) + "\n";
    for (const PdfDraft::Page& page : draft.pages)
        text += "page=" + std::to_string(page.bytes) + " " + OneLine(page.source) + "\n";
    return text;
}

std::optional<PdfDraft> ParseDraft(const std::string& text) {
    const std::vector<std::string> lines = text::Split(text, '\n');
    const bool isFirst = lines.front() == FirstHeading;
    if ((!isFirst && lines.front() != Heading) || !lines.back().empty()) return std::nullopt;
    PdfDraft draft;
    for (std::size_t i = 1; i + 1 < lines.size(); ++i)
        if (!TakeLine(draft, (isFirst ? KeyInFirstVersion(i) : "") + lines[i])) return std::nullopt;
    if (isFirst) draft.writtenPages = draft.pages.size();
    return draft;
}

std::string PdfDraftFiles::Thumbnail(std::size_t page) const {
    return folder_ + "CreatePDFTmp-" + std::to_string(page) + ".png";
}

bool PdfDraftFiles::HasPdf() const { return files::FileExists(Pdf()); }

std::int64_t PdfDraftFiles::PdfLength() const {
    return HasPdf() ? static_cast<std::int64_t>(files::FileLength(Pdf())) : 0;
}

std::optional<PdfDraft> PdfDraftFiles::Read() const {
    if (!HasPdf() || !files::FileExists(State())) return std::nullopt;
    auto draft = ParseDraft(files::ReadAll(State()));
    if (!draft) return std::nullopt;
    const bool hasFollowed = PdfLength() != draft->pdfLength;
    if (!hasFollowed && draft->writtenPages < draft->pages.size()) draft->pages.resize(draft->writtenPages);
    draft->writtenPages = draft->pages.size();
    draft->pdfLength = PdfLength();
    return draft;
}

void PdfDraftFiles::Write(const PdfDraft& draft) const { files::WriteWhole(State(), DraftText(draft)); }

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
