#include "forms/ListView.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"

namespace lumarin {

namespace {

/// What a cell sorts by: whole numbers stand before texts and compare by value; texts compare regardless
/// of case. The prefix decides nearly always.
struct SortKey {
    std::uint64_t prefix = 0;  ///< the number counted from the lowest; of a text, the first seven bytes
    std::string text;          ///< in lower case; "" for a number
};

SortKey KeyOf(std::string_view cell) {
    if (const auto number = ParseInteger(cell))
        return {static_cast<std::uint64_t>(*number + (std::int64_t{1} << 31)), {}};
    SortKey key{1, text::LowerAscii(cell)};
    for (std::size_t i = 0; i < 7; ++i)
        key.prefix = key.prefix << 8 | (i < key.text.size() ? static_cast<std::uint8_t>(key.text[i]) : 0U);
    return key;
}

bool operator<(const SortKey& left, const SortKey& right) {
    return left.prefix != right.prefix ? left.prefix < right.prefix : left.text < right.text;
}

}  // namespace

void ListView::AddColumn(const std::string& caption, double width, Sizing sizing, Alignment alignment) {
    columns_.push_back({caption, width, sizing, alignment});
    if (View() != nullptr) ListView_()->ListReset();
}

void ListView::ClearColumns() {
    columns_.clear();
    if (View() != nullptr) ListView_()->ListReset();
}

void ListView::CheckRow(int row) const {
    if (row < 0 || row >= Count()) throw IndexError(Name(), row);
}

ListView::Row ListView::At(int row) const {
    CheckRow(row);
    return rows_[static_cast<std::size_t>(row)].Unpacked();
}

std::string ListView::Cell(int row, int column) const {
    CheckRow(row);
    return std::string(rows_[static_cast<std::size_t>(row)].Cell(column));
}

int ListView::FindText(const std::string& text) const {
    const auto found =
        std::find_if(rows_.begin(), rows_.end(), [&](const PackedRow& row) { return row.Cell(0) == text; });
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

bool ListView::Before(const PackedRow& left, const PackedRow& right) const {
    for (const int column : sortColumns_) {
        const SortKey leftKey = KeyOf(left.Cell(column));
        const SortKey rightKey = KeyOf(right.Cell(column));
        if (leftKey < rightKey) return sortAscending_;
        if (rightKey < leftKey) return !sortAscending_;
    }
    return false;
}

int ListView::AddRow(const Row& row) {
    PackedRow packed(row);
    const auto before = [this](const PackedRow& left, const PackedRow& right) { return Before(left, right); };
    const auto place =
        IsSorted() ? std::upper_bound(rows_.begin(), rows_.end(), packed, before) : rows_.end();
    const int at = static_cast<int>(place - rows_.begin());
    Insert(at, std::move(packed));
    return at;
}

void ListView::AddRows(std::vector<PackedRow> rows, MoreRows more) {
    const int first = Count();
    const bool reordered = IsSorted() && !rows.empty();
    if (reordered)
        MergeRows(std::move(rows));
    else
        rows_.insert(rows_.end(), std::make_move_iterator(rows.begin()), std::make_move_iterator(rows.end()));
    if (View() == nullptr) return;
    if (reordered)
        ListView_()->ListReset();
    else
        ListView_()->RowsAdded(first, more);
}

void ListView::MergeRows(std::vector<PackedRow> rows) {
    const auto before = [this](const PackedRow& left, const PackedRow& right) { return Before(left, right); };
    Sort(rows, nullptr);
    if (selected_ >= 0)
        selected_ += static_cast<int>(
            std::lower_bound(rows.begin(), rows.end(), rows_[static_cast<std::size_t>(selected_)], before) -
            rows.begin());
    // From the back, so that each row of the list moves once; searching spares the comparison with most.
    const auto oldCount = static_cast<std::ptrdiff_t>(rows_.size());
    rows_.resize(rows_.size() + rows.size());
    auto rest = rows_.begin() + oldCount;
    auto gap = rows_.end();
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        const auto at = std::upper_bound(rows_.begin(), rest, *row, before);
        gap = std::move_backward(at, rest, gap);
        *--gap = std::move(*row);
        rest = at;
    }
}

void ListView::InsertRow(int at, const Row& row) {
    if (at < 0 || at > Count()) throw IndexError(Name(), at);
    Insert(at, row);
}

void ListView::Insert(int at, PackedRow row) {
    rows_.insert(rows_.begin() + at, std::move(row));
    if (selected_ >= at) ++selected_;
    if (View() != nullptr) ListView_()->RowInserted(at);
}

void ListView::RemoveRow(int row) {
    CheckRow(row);
    rows_.erase(rows_.begin() + row);
    const bool wasSelected = selected_ == row;
    if (wasSelected) selected_ = -1;
    if (wasSelected)
        for (const int other : SelectedRows()) selected_ = other;
    else if (selected_ > row)
        --selected_;
    if (View() != nullptr) ListView_()->RowRemoved(row);
    if (wasSelected) Raise("SelectionChange", SelectionChange);
}

template <class Change>
void ListView::ChangeRow(int row, Change change) {
    Row changed = At(row);
    change(changed);
    const bool marked = rows_[static_cast<std::size_t>(row)].IsMarked();
    rows_[static_cast<std::size_t>(row)] = changed;
    rows_[static_cast<std::size_t>(row)].SetMarked(marked);
    if (View() != nullptr) ListView_()->RowChanged(row);
}

void ListView::SetText(int row, const std::string& text) {
    ChangeRow(row, [&](Row& changed) { changed.text = text; });
}

void ListView::SetSubItems(int row, std::vector<std::string> subItems) {
    ChangeRow(row, [&](Row& changed) { changed.subItems = std::move(subItems); });
}

void ListView::SetPicture(int row, const std::string& picture) {
    ChangeRow(row, [&](Row& changed) { changed.picture = picture; });
}

void ListView::SetToolTip(int row, const std::string& toolTip) {
    ChangeRow(row, [&](Row& changed) { changed.toolTip = toolTip; });
}

void ListView::SetStrong(int row, bool strong) {
    ChangeRow(row, [&](Row& changed) { changed.strong = strong; });
}

bool ListView::IsStrong(int row) const {
    CheckRow(row);
    return rows_[static_cast<std::size_t>(row)].IsStrong();
}

void ListView::Clear() {
    rows_.clear();
    const bool hadSelected = std::exchange(selected_, -1) >= 0;
    if (View() != nullptr) ListView_()->ListReset();
    if (hadSelected) Raise("SelectionChange", SelectionChange);
}

std::vector<int> ListView::SelectedRows() const {
    std::vector<int> selected;
    if (!multiSelect_ && selected_ >= 0) selected.push_back(selected_);
    for (int row = 0; multiSelect_ && row < Count(); ++row)
        if (rows_[static_cast<std::size_t>(row)].IsMarked()) selected.push_back(row);
    return selected;
}

void ListView::SelectRows(const std::vector<int>& rows, int current) {
    for (const int row : rows) CheckRow(row);
    if (multiSelect_) {
        for (PackedRow& row : rows_) row.SetMarked(false);
        for (const int row : rows) rows_[static_cast<std::size_t>(row)].SetMarked(true);
    }
    const auto isOneOfThem = [&](int row) { return std::find(rows.begin(), rows.end(), row) != rows.end(); };
    if (isOneOfThem(current))
        selected_ = current;
    else if (!isOneOfThem(selected_))
        selected_ = rows.empty() ? -1 : rows.back();
    if (View() != nullptr) ListView_()->SelectionChanged();
    Raise("SelectionChange", SelectionChange);
    if (selected_ >= 0) Raise("ItemClick", ItemClick, selected_);
}

std::vector<int> ListView::OrderWithSelected(int before) const {
    if (before < 0 || before > Count()) throw IndexError(Name(), before);
    const std::vector<int> moved = SelectedRows();
    const auto stays = [&](int row) { return !std::binary_search(moved.begin(), moved.end(), row); };
    std::vector<int> order;
    order.reserve(rows_.size());
    for (int row = 0; row < before; ++row)
        if (stays(row)) order.push_back(row);
    order.insert(order.end(), moved.begin(), moved.end());
    for (int row = before; row < Count(); ++row)
        if (stays(row)) order.push_back(row);
    return order;
}

void ListView::DragSelected(int before) {
    if (!Enabled() || !Reorderable()) return;
    const std::vector<int> order = OrderWithSelected(before);
    if (!std::is_sorted(order.begin(), order.end())) Raise("RowsDragged", RowsDragged, before);
}

void ListView::SortBy(std::vector<int> columns, bool ascending) {
    std::erase_if(columns, [](int column) { return column < 0; });
    sortColumns_ = std::move(columns);
    sortAscending_ = ascending;
    if (IsSorted()) Sort(rows_, &selected_);
    if (View() != nullptr) ListView_()->ListReset();
}

void ListView::Sort(std::vector<PackedRow>& rows, int* tracked) const {
    // Reading a cell's sort key costs more than comparing two, so each is read once.
    const std::size_t width = sortColumns_.size();
    std::vector<SortKey> keys;
    keys.reserve(rows.size() * width);
    for (const PackedRow& row : rows)
        for (const int column : sortColumns_) keys.push_back(KeyOf(row.Cell(column)));

    struct Place {
        std::uint64_t prefix;
        std::size_t row;
    };
    std::vector<Place> order(rows.size());
    for (std::size_t row = 0; row < order.size(); ++row) order[row] = {keys[row * width].prefix, row};
    std::sort(order.begin(), order.end(), [&](const Place& left, const Place& right) {
        if (left.prefix != right.prefix) return (left.prefix < right.prefix) == sortAscending_;
        for (std::size_t i = 0; i < width; ++i) {
            const SortKey& leftKey = keys[left.row * width + i];
            const SortKey& rightKey = keys[right.row * width + i];
            if (leftKey < rightKey) return sortAscending_;
            if (rightKey < leftKey) return !sortAscending_;
        }
        return left.row < right.row;
    });

    std::vector<PackedRow> sorted;
    sorted.reserve(rows.size());
    int trackedTo = -1;
    for (const auto& [prefix, from] : order) {
        if (tracked != nullptr && static_cast<int>(from) == *tracked)
            trackedTo = static_cast<int>(sorted.size());
        sorted.push_back(std::move(rows[from]));
    }
    rows = std::move(sorted);
    if (tracked != nullptr) *tracked = trackedTo;
}

bool ListView::PressKey(const KeyDown& key) {
    bool used = false;
    Raise<const KeyDown&, bool&>("KeyDown", KeyPressed, key, used);
    return used;
}

void ListView::DropFiles(const std::vector<std::string>& paths) {
    if (Enabled() && acceptsFiles_)
        Raise<const std::vector<std::string>&>("OLEDragDrop", FilesDropped, paths);
}

}  // namespace lumarin
