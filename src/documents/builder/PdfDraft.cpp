#include "documents/builder/PdfDraft.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

#include "base/Numbers.h"

namespace lumarin {

namespace {

/// Steps that can be taken back. Each of them may keep pages that are no longer in the document.
constexpr std::size_t MostSteps = 100;
constexpr std::string_view ScanWord = "Scan ";

/// Gives the document the last order of one list of steps, and the other list its present one.
void Exchange(PdfDraft& draft, std::vector<PdfDraft::Step>& from, std::vector<PdfDraft::Step>& to) {
    if (from.empty()) return;
    PdfDraft::Step step = std::move(from.back());
    from.pop_back();
    std::swap(draft.order, step.order);
    to.push_back(std::move(step));
}

}  // namespace

std::int64_t PdfDraft::BytesOf(const PageIds& ids) const {
    std::int64_t bytes = 0;
    for (const PageId id : ids) bytes += pages.at(id).bytes;
    return bytes;
}

std::int64_t PdfDraft::LengthWith(const PageIds& pagesInOrder) const {
    if (pagesInOrder == built) return pdfLength;
    if (pagesInOrder.empty()) return 0;
    const std::int64_t besides = pdfLength - BytesOf(built);
    const auto count = static_cast<std::int64_t>(pagesInOrder.size());
    return BytesOf(pagesInOrder) +
           (built.empty() ? 0 : besides * count / static_cast<std::int64_t>(built.size()));
}

bool PdfDraft::IsBuiltSoFar() const {
    return !built.empty() && built.size() <= order.size() &&
           std::equal(built.begin(), built.end(), order.begin());
}

bool PdfDraft::CanBeChanged() const {
    return std::all_of(order.begin(), order.end(), [this](PageId id) { return pages.at(id).isKept; });
}

std::string PdfDraft::PageCountText() const {
    return std::to_string(order.size()) + (order.size() == 1 ? " page" : " pages");
}

int PdfDraft::LastScan() const {
    int last = 0;
    for (const auto& [id, page] : pages)
        if (page.source.starts_with(ScanWord))
            last = std::max(last, ParseInteger(page.source.substr(ScanWord.size())).value_or(0));
    return last;
}

std::string ScanName(int number) { return std::string(ScanWord) + std::to_string(number); }

void PdfDraft::Change(const std::string& what, PageIds newOrder) {
    undo.push_back({what, std::exchange(order, std::move(newOrder))});
    if (undo.size() > MostSteps) undo.erase(undo.begin());
    redo.clear();
}

void PdfDraft::Undo() { Exchange(*this, undo, redo); }
void PdfDraft::Redo() { Exchange(*this, redo, undo); }

PageIds PdfDraft::ForgetPages() {
    std::set<PageId> used(order.begin(), order.end());
    for (const auto* steps : {&undo, &redo})
        for (const PdfDraft::Step& step : *steps) used.insert(step.order.begin(), step.order.end());
    used.insert(built.begin(), built.end());
    for (const LeftOut& one : leftOut) used.insert(one.page);
    for (const auto& [id, page] : pages)
        if (used.contains(id) && page.original != 0) used.insert(page.original);
    PageIds forgotten;
    for (const auto& [id, page] : pages)
        if (!used.contains(id)) forgotten.push_back(id);
    for (const PageId id : forgotten) pages.erase(id);
    return forgotten;
}

}  // namespace lumarin
