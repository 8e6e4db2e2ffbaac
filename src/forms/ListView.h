#pragma once

#include <string>
#include <vector>

#include "forms/Control.h"
#include "forms/PackedRow.h"

namespace lumarin {

/// Whether a portion of rows is the last one for now. While more follow, the front end may show the new rows
/// a moment later: laying out a long list for each portion would cost more than finding its rows.
enum class MoreRows { No, Follow };

/// The front end's side of a list view: it hears exactly what changed, so that a long list stays cheap.
class ListViewView : public ControlView {
public:
    virtual void RowInserted(int row) = 0;
    /// Rows at the end of the list, from `first` on; they are in the list already. None when the list only
    /// says that no more follow.
    virtual void RowsAdded(int first, MoreRows more) = 0;
    virtual void RowRemoved(int row) = 0;
    virtual void RowChanged(int row) = 0;
    /// Columns, order or all rows changed.
    virtual void ListReset() = 0;
    virtual void SelectionChanged() = 0;
};

/// A report-style list: columns, and rows of texts. The first column is the row's text, the others its
/// sub-items. Rows are counted from 0. At most one row is selected unless several can be; -1 is none.
///
/// For a list whose rows the user arranges: `SetMultiSelect`, `SetKeepsSelection`, `SetReorderable`, and a
/// handler of `RowsDragged` that moves what is selected.
class ListView : public ControlOf<ControlKind::ListView> {
public:
    enum class Sizing { Fixed, GrowsWithTexts };
    enum class Alignment { Left, Right };
    /// Rows below each other, or side by side: each a picture with its text below. The front end needs a
    /// widget that can show both where it is to change.
    enum class Arrangement { Rows, Grid };
    struct Column {
        std::string caption;
        double width = 0;               ///< twips; 0 leaves it to the front end
        Sizing sizing = Sizing::Fixed;  ///< a column that grows has `width` as its least width
        Alignment alignment = Alignment::Left;
    };
    using Row = ListRow;

    using ControlOf::ControlOf;

    const std::vector<Column>& Columns() const { return columns_; }
    void AddColumn(const std::string& caption, double width = 0, Sizing sizing = Sizing::Fixed,
                   Alignment alignment = Alignment::Left);
    void ClearColumns();

    int Count() const { return static_cast<int>(rows_.size()); }
    /// Throws IndexError for a row that is not there; so do the others.
    Row At(int row) const;
    /// Text of a cell; "" for a column that the row does not fill.
    std::string Cell(int row, int column) const;
    /// The row whose text is this; -1 when there is none.
    int FindText(const std::string& text) const;

    /// Inserts in order when the list is kept sorted, else at the end. Returns where it stands.
    int AddRow(const Row& row);
    /// Adds many rows as `AddRow` would add each, and notifies the front end once. `Follow` is a promise of
    /// another call, which may be one without rows.
    void AddRows(std::vector<PackedRow> rows, MoreRows more = MoreRows::No);
    void InsertRow(int at, const Row& row);
    void RemoveRow(int row);
    void SetText(int row, const std::string& text);
    void SetSubItems(int row, std::vector<std::string> subItems);
    void SetPicture(int row, const std::string& picture);
    void SetToolTip(int row, const std::string& toolTip);
    void SetStrong(int row, bool strong);
    bool IsStrong(int row) const;
    /// Removes all rows; the columns stay.
    void Clear();

    Arrangement ArrangedAs() const { return arrangement_; }
    void Arrange(Arrangement arrangement) { Set(arrangement_, arrangement); }
    /// Room for the picture of a row, in twips; 0 x 0 leaves it to the front end.
    const Size& PictureSize() const { return pictureSize_; }
    void SetPictureSize(const Size& size) { Set(pictureSize_, size); }

    bool MultiSelect() const { return multiSelect_; }
    /// Lets the user select several rows.
    void SetMultiSelect(bool several) { Set(multiSelect_, several); }
    bool KeepsSelection() const { return keepsSelection_; }
    /// Of several selected rows the user cannot give up the last one: it stays selected.
    void SetKeepsSelection(bool keeps) { Set(keepsSelection_, keeps); }
    /// One of the selected rows: the one that the user chose last.
    int Selected() const { return selected_; }
    /// All of them, from the top.
    std::vector<int> SelectedRows() const;
    /// By code and by the user alike; raises `ItemClick` when a row is selected, also the same one again.
    void Select(int row) { SelectRows(row < 0 ? std::vector<int>() : std::vector<int>{row}); }
    /// The same for these rows and no others; more than one only where several can be selected. `Selected` is
    /// then `current` if that is one of them.
    void SelectRows(const std::vector<int>& rows, int current = -1);

    /// Whether the user may drag the selected rows to another place; never while the list is kept sorted.
    bool Reorderable() const { return reorderable_ && !IsSorted(); }
    void SetReorderable(bool reorderable) { Set(reorderable_, reorderable); }
    /// The order that comes of moving the selected rows together in front of row `before` (`Count()`: to the
    /// end): for each place the row that stands there now.
    std::vector<int> OrderWithSelected(int before) const;
    /// By the user: the selected rows were dragged in front of row `before`. Raises `RowsDragged`, whose
    /// handler moves them; the list itself stays as it is. Nothing when that changes no order.
    void DragSelected(int before);

    /// Sorts by a column, texts that are whole numbers by their value, and keeps the list so from now
    /// on. The selected row stays selected.
    void SortBy(int column, bool ascending = true) { SortBy(std::vector<int>{column}, ascending); }
    /// The same by several columns, the first one deciding first.
    void SortBy(std::vector<int> columns, bool ascending = true);
    /// -1 when the list is not kept sorted.
    int SortColumn() const { return sortColumns_.empty() ? -1 : sortColumns_.front(); }
    bool SortAscending() const { return sortAscending_; }

    bool AcceptsFiles() const { return acceptsFiles_; }
    void SetAcceptsFiles(bool accepts) { Set(acceptsFiles_, accepts); }

    // For the front end.
    void ClickColumn(int column) { Raise("ColumnClick", ColumnClick, column); }
    /// True when a handler used the key.
    bool PressKey(const KeyDown& key);
    void MouseWentUp(const Mouse& mouse) { Raise("MouseUp", MouseUp, mouse); }
    void DoubleClicked() { Raise("DblClick", DoubleClick); }
    void DropFiles(const std::vector<std::string>& paths);
    /// Neither a file nor a picture was dropped: a web address, a text.
    void DropOther() { Raise("OLEDragDrop", OtherDropped); }

    Event<int> ItemClick, ColumnClick;
    Event<> SelectionChange;  ///< rows were selected, or none is any more
    Event<int> RowsDragged;   ///< the selected rows are to go in front of this one
    Event<const KeyDown&, bool&> KeyPressed;
    Event<Mouse> MouseUp;
    Event<> DoubleClick;
    Event<const std::vector<std::string>&> FilesDropped;
    Event<> OtherDropped;

private:
    void CheckRow(int row) const;
    bool IsSorted() const { return !sortColumns_.empty(); }
    bool Before(const PackedRow& left, const PackedRow& right) const;
    void MergeRows(std::vector<PackedRow> rows);
    /// Keeps the number of one row up to date on the way.
    void Sort(std::vector<PackedRow>& rows, int* tracked) const;
    void Insert(int at, PackedRow row);
    template <class Change>
    void ChangeRow(int row, Change change);
    ListViewView* ListView_() const { return static_cast<ListViewView*>(View()); }

    std::vector<Column> columns_;
    std::vector<PackedRow> rows_;
    int selected_ = -1;  ///< where several can be selected, all of them are marked
    bool multiSelect_ = false;
    bool keepsSelection_ = false;
    bool reorderable_ = false;
    Arrangement arrangement_ = Arrangement::Rows;
    Size pictureSize_;
    std::vector<int> sortColumns_;
    bool sortAscending_ = true;
    bool acceptsFiles_ = false;
};

}  // namespace lumarin
