#include <algorithm>
#include <charconv>
#include <iterator>
#include <set>
#include <string_view>

#include "base/Text.h"
#include "documents/builder/PdfDraft.h"
#include "documents/builder/PdfLibrary.h"

// The text of a draft, see docs/formats.md.

namespace lumarin {

namespace {

constexpr std::string_view Headings[] = {"PDF draft 1", "PDF draft 2", "PDF draft 3"};
constexpr int FirstVersion = 1, LastVersion = 3;
constexpr std::int64_t LongestSide = 1008;  // points, of the largest page

std::string OneLine(std::string text) {
    for (const char* lineBreak : {"\n", "\r"}) text = text::ReplaceAll(text, lineBreak, " ");
    return text;
}

/// The words of a line, one after the other. Once one is not what was asked for, all that follow are not.
class Words {
public:
    explicit Words(std::string_view text) : rest_(text) {}

    template <class Number>
    void Take(Number& number, std::int64_t least, std::int64_t most) {
        const std::string_view word = rest_.substr(0, rest_.find(' '));
        std::int64_t found = 0;
        const auto [end, problem] = std::from_chars(word.data(), word.data() + word.size(), found);
        failed_ = failed_ || problem != std::errc{} || end != word.data() + word.size() || found < least ||
                  found > most;
        if (failed_) return;
        number = static_cast<Number>(found);
        hasRest_ = word.size() < rest_.size();
        rest_.remove_prefix(std::min(rest_.size(), word.size() + 1));
    }
    /// All behind the words so far, which may be empty but not missing.
    void TakeRest(std::string& text) {
        failed_ = failed_ || !hasRest_;
        if (!failed_) text = rest_;
        hasRest_ = false;
        rest_ = {};
    }
    bool AtEnd() const { return rest_.empty() && !hasRest_; }
    bool Failed() const { return failed_; }

private:
    std::string_view rest_;
    bool hasRest_ = false, failed_ = false;
};

template <class Number>
bool TakeNumber(Number& target, std::string_view value) {
    Words words(value);
    words.Take(target, 0, INT32_MAX);
    return !words.Failed() && words.AtEnd();
}

bool TakeIds(PageIds& ids, std::string_view value) {
    ids.clear();
    Words words(value);
    while (!words.Failed() && !(value.empty() || (words.AtEnd() && !ids.empty())))
        words.Take(ids.emplace_back(), 1, INT32_MAX);
    return !words.Failed();
}

bool TakeOldPage(PdfDraft& draft, std::string_view value) {
    PdfDraft::Page page;
    Words words(value);
    words.Take(page.bytes, 0, INT32_MAX);
    words.TakeRest(page.source);
    if (words.Failed()) return false;
    draft.order.push_back(draft.NextId());
    draft.pages[draft.order.back()] = page;
    return true;
}

bool TakePage(PdfDraft& draft, std::string_view value) {
    PdfDraft::Page page;
    PageId id = 0;
    Words words(value);
    words.Take(id, 1, INT32_MAX - 1);
    words.Take(page.bytes, 0, INT32_MAX);
    words.Take(page.original, 0, INT32_MAX - 1);
    words.Take(page.quarters, 0, 3);
    words.Take(page.colours, 0, static_cast<int>(PageColours::BlackAndWhite));
    words.Take(page.pageSize, 0, PdfLegalPage);
    for (std::int32_t* length : {&page.place.left, &page.place.top, &page.place.width, &page.place.height})
        words.Take(*length, 0, LongestSide);
    words.TakeRest(page.source);
    const bool isPlaced = page.pageSize >= PdfLetterPage && page.place.width > 0 && page.place.height > 0;
    return !words.Failed() && (isPlaced || page.pageSize == 0) && draft.pages.emplace(id, page).second;
}

bool TakeLeftOut(PdfDraft& draft, std::string_view value) {
    PdfDraft::LeftOut leftOut;
    Words words(value);
    words.Take(leftOut.page, 1, INT32_MAX - 1);
    words.Take(leftOut.behind, 0, INT32_MAX - 1);
    draft.leftOut.push_back(leftOut);
    return !words.Failed() && words.AtEnd();
}

bool TakeStep(std::vector<PdfDraft::Step>& steps, std::string_view value) {
    const std::size_t colon = value.find(':');
    if (colon == std::string_view::npos) return false;
    steps.push_back({std::string(value.substr(colon + 1)), {}});
    return TakeIds(steps.back().order, value.substr(0, colon));
}

/// False when the line does not belong in a draft. `written` is of the versions before.
bool TakeLine(PdfDraft& draft, std::string_view line, int version, std::size_t& written) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return false;
    const std::string_view key = line.substr(0, equals);
    const std::string_view value = line.substr(equals + 1);
    if (key == "listing") return TakeNumber(draft.listing, value);
    if (key == "length") return TakeNumber(draft.pdfLength, value);
    if (key == "description") draft.description = value;
    if (key == "upload") {
        Words words(value);
        words.Take(draft.upload.length, 0, INT32_MAX);
        words.TakeRest(draft.upload.name);
        return !words.Failed();
    }
    if (version < LastVersion) {
        if (key == "written") return TakeNumber(written, value);
        return key != "page" || TakeOldPage(draft, value);
    }
    if (key == "page") return TakePage(draft, value);
    if (key == "order") return TakeIds(draft.order, value);
    if (key == "built") return TakeIds(draft.built, value);
    if (key == "leftout") return TakeLeftOut(draft, value);
    if (key == "undo") return TakeStep(draft.undo, value);
    return key != "redo" || TakeStep(draft.redo, value);
}

/// The first version had the values alone, in this order.
std::string KeyInFirstVersion(std::size_t line) {
    constexpr const char* Keys[] = {"", "listing=", "length=", "description="};
    return line < std::size(Keys) ? Keys[line] : "page=";
}

/// Whether the pages of an order are there, none of them twice.
bool HasAll(const PdfDraft& draft, const PageIds& order) {
    const std::set<PageId> different(order.begin(), order.end());
    return different.size() == order.size() &&
           std::all_of(order.begin(), order.end(), [&](PageId id) { return draft.pages.contains(id); });
}

bool IsWhole(const PdfDraft& draft) {
    for (const auto* steps : {&draft.undo, &draft.redo})
        for (const PdfDraft::Step& step : *steps)
            if (!HasAll(draft, step.order)) return false;
    for (const auto& [id, page] : draft.pages)
        if (page.original != 0 && !draft.pages.contains(page.original)) return false;
    PageIds all = draft.order;
    for (const PdfDraft::LeftOut& one : draft.leftOut) all.push_back(one.page);
    return HasAll(draft, all) && HasAll(draft, draft.built);
}

std::string IdsText(const PageIds& ids) {
    std::string text;
    for (const PageId id : ids) text += (text.empty() ? "" : " ") + std::to_string(id);
    return text;
}

std::string PageText(PageId id, const PdfDraft::Page& page) {
    std::string text = std::to_string(id) + " " + std::to_string(page.bytes);
    for (const int number : {page.original, page.quarters, static_cast<int>(page.colours), page.pageSize,
                             page.place.left, page.place.top, page.place.width, page.place.height})
        text += " " + std::to_string(number);
    return text + " " + OneLine(page.source);
}

}  // namespace

std::string DraftText(const PdfDraft& draft) {
    std::string text = std::string(Headings[LastVersion - 1]) + "\n";
    const auto add = [&](const char* key, const std::string& value) {
        text += std::string(key) + "=" + value + "\n";
    };
    add("listing", std::to_string(draft.listing));
    add("description", OneLine(draft.description));
    for (const auto& [id, page] : draft.pages) add("page", PageText(id, page));
    add("order", IdsText(draft.order));
    add("built", IdsText(draft.built));
    for (const PdfDraft::LeftOut& one : draft.leftOut)
        add("leftout", std::to_string(one.page) + " " + std::to_string(one.behind));
    add("length", std::to_string(draft.pdfLength));
    if (!draft.upload.name.empty())
        add("upload", std::to_string(draft.upload.length) + " " + OneLine(draft.upload.name));
    for (const auto& step : draft.undo) add("undo", IdsText(step.order) + ":" + OneLine(step.what));
    for (const auto& step : draft.redo) add("redo", IdsText(step.order) + ":" + OneLine(step.what));
    return text;
}

std::optional<PdfDraft> ParseDraft(const std::string& text) {
    const std::vector<std::string> lines = text::Split(text, '\n');
    const auto heading = std::find(std::begin(Headings), std::end(Headings), lines.front());
    if (heading == std::end(Headings) || !lines.back().empty()) return std::nullopt;
    const int version = static_cast<int>(heading - std::begin(Headings)) + 1;
    PdfDraft draft;
    std::size_t written = 0;
    for (std::size_t i = 1; i + 1 < lines.size(); ++i)
        if (!TakeLine(draft, (version == FirstVersion ? KeyInFirstVersion(i) : "") + lines[i], version,
                      written))
            return std::nullopt;
    if (version < LastVersion) {
        draft.built = draft.order;
        if (version > FirstVersion) draft.built.resize(std::min(written, draft.order.size()));
    }
    return IsWhole(draft) ? std::optional(draft) : std::nullopt;
}

}  // namespace lumarin
