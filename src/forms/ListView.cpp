#include "forms/ListView.h"

#include <algorithm>
#include <numeric>

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"

namespace lumarin {

namespace {

const std::string& CellOf(const ListView::Row& row, int column) {
    static const std::string Empty;
    if (column == 0) return row.text;
    const auto at = static_cast<std::size_t>(column - 1);
    return at < row.subItems.size() ? row.subItems[at] : Empty;
}

/// Whole numbers stand before texts and compare by value; texts compare regardless of case.
int Compare(const std::string& left, const std::string& right) {
    const auto leftNumber = ParseInteger(left);
    const auto rightNumber = ParseInteger(right);
    if (leftNumber && rightNumber) return *leftNumber < *rightNumber ? -1 : *leftNumber > *rightNumber ? 1 : 0;
    if (leftNumber.has_value() != rightNumber.has_value()) return leftNumber ? -1 : 1;
    return text::LowerAscii(left).compare(text::LowerAscii(right));
}

}  // namespace

void ListView::AddColumn(const std::string& caption, double width) {
    columns_.push_back({caption, width});
    if (View() != nullptr) ListView_()->ListReset();
}

void ListView::ClearColumns() {
    columns_.clear();
    if (View() != nullptr) ListView_()->ListReset();
}

void ListView::CheckRow(int row) const {
    if (row < 0 || row >= Count()) throw IndexError(Name(), row);
}

const ListView::Row& ListView::At(int row) const {
    CheckRow(row);
    return rows_[static_cast<std::size_t>(row)];
}

std::string ListView::Cell(int row, int column) const { return CellOf(At(row), column); }

int ListView::FindText(const std::string& text) const {
    const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) { return row.text == text; });
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

bool ListView::Before(const Row& left, const Row& right) const {
    const int order = Compare(CellOf(left, sortColumn_), CellOf(right, sortColumn_));
    return sortAscending_ ? order < 0 : order > 0;
}

int ListView::AddRow(Row row) {
    const auto place = sortColumn_ < 0 ? rows_.end()
                                       : std::upper_bound(rows_.begin(), rows_.end(), row,
                                                          [this](const Row& a, const Row& b) { return Before(a, b); });
    const int at = static_cast<int>(place - rows_.begin());
    InsertRow(at, std::move(row));
    return at;
}

void ListView::InsertRow(int at, Row row) {
    if (at < 0 || at > Count()) throw IndexError(Name(), at);
    rows_.insert(rows_.begin() + at, std::move(row));
    if (selected_ >= at) ++selected_;
    if (View() != nullptr) ListView_()->RowInserted(at);
}

void ListView::RemoveRow(int row) {
    CheckRow(row);
    rows_.erase(rows_.begin() + row);
    if (selected_ == row) selected_ = -1;
    if (selected_ > row) --selected_;
    if (View() != nullptr) ListView_()->RowRemoved(row);
}

void ListView::SetText(int row, const std::string& text) {
    CheckRow(row);
    rows_[static_cast<std::size_t>(row)].text = text;
    if (View() != nullptr) ListView_()->RowChanged(row);
}

void ListView::SetSubItems(int row, std::vector<std::string> subItems) {
    CheckRow(row);
    rows_[static_cast<std::size_t>(row)].subItems = std::move(subItems);
    if (View() != nullptr) ListView_()->RowChanged(row);
}

void ListView::SetPicture(int row, const std::string& picture) {
    CheckRow(row);
    rows_[static_cast<std::size_t>(row)].picture = picture;
    if (View() != nullptr) ListView_()->RowChanged(row);
}

void ListView::Clear() {
    rows_.clear();
    selected_ = -1;
    if (View() != nullptr) ListView_()->ListReset();
}

void ListView::Select(int row) {
    if (row >= 0) CheckRow(row);
    selected_ = row < 0 ? -1 : row;
    if (View() != nullptr) ListView_()->SelectionChanged();
    if (selected_ >= 0) Raise("ItemClick", ItemClick, selected_);
}

void ListView::SortBy(int column, bool ascending) {
    sortColumn_ = column;
    sortAscending_ = ascending;
    if (column >= 0) {
        std::vector<std::size_t> order(rows_.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::stable_sort(order.begin(), order.end(), [this](std::size_t a, std::size_t b) { return Before(rows_[a], rows_[b]); });
        std::vector<Row> sorted;
        sorted.reserve(rows_.size());
        int selected = -1;
        for (const std::size_t from : order) {
            if (static_cast<int>(from) == selected_) selected = static_cast<int>(sorted.size());
            sorted.push_back(std::move(rows_[from]));
        }
        rows_ = std::move(sorted);
        selected_ = selected;
    }
    if (View() != nullptr) ListView_()->ListReset();
}

bool ListView::PressKey(const KeyDown& key) {
    bool used = false;
    Raise<const KeyDown&, bool&>("KeyDown", KeyPressed, key, used);
    return used;
}

void ListView::DropFiles(const std::vector<std::string>& paths) {
    if (Enabled() && acceptsFiles_) Raise<const std::vector<std::string>&>("OLEDragDrop", FilesDropped, paths);
}

}  // namespace lumarin
