#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QTreeView>

#include <algorithm>

#include "base/PutBack.h"
#include "forms/ListView.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/UserLayout.h"
#include "platform/qt/adapters/Adapters.h"
#include "platform/qt/adapters/FileDrops.h"
#include "platform/qt/adapters/RowModel.h"

namespace lumarin::qt {

namespace {

constexpr int WidestFittedColumn = 320;  // pixels
constexpr int RowsMeasured = 100;
constexpr int ShortestLag = 50;  // milliseconds
constexpr int RowsPerLag = 500;  // a millisecond each: laying these out takes a fiftieth of it
constexpr QSize RowPadding(12, 6);

/// Gives the rows room to breathe.
class RowDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + RowPadding;
    }
};

class ListViewAdapter final : public AdapterFor<ListView, QTreeView> {
public:
    ListViewAdapter(ListView& control, QTreeView& tree);

    void UseLayout(UserLayout& layout) override { layout_ = &layout; }

private:
    class Notices final : public ForwardingView<ListViewView> {
    public:
        explicit Notices(ListViewAdapter& adapter) : ForwardingView(adapter), adapter_(adapter) {}
        void RowInserted(int row) override { adapter_.InsertRow(row); }
        void RowsAdded(int first, MoreRows more) override { adapter_.AddRows(first, more); }
        void RowRemoved(int row) override { adapter_.RemoveRow(row); }
        void RowChanged(int row) override { adapter_.model_->RowChanged(row); }
        void ListReset() override { adapter_.Reset(); }
        void SelectionChanged() override { adapter_.ShowSelection(); }

    private:
        ListViewAdapter& adapter_;
    };

    std::unique_ptr<ControlView> MakeView() override { return std::make_unique<Notices>(*this); }
    void ShowState() override;
    void Release() override;
    bool WidgetEvent(QEvent& event) override;
    bool KeyEvent(QKeyEvent& event);
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool ViewportEvent(QEvent& event);

    void InsertRow(int row);
    void AddRows(int first, MoreRows more);
    void CatchUp();
    void RemoveRow(int row);
    void Reset();
    void ShowSelection();
    void ShowSortOrder();
    void ShowPictureSize();
    void FitColumnsLater();
    void FitColumns();
    void UserSizedColumns();

    QItemSelection SelectionOf(const std::vector<int>& rows) const;
    std::vector<int> RowsInView() const;
    void UserSelected();
    void UserPressed(int row);
    bool AskForMenu(const QContextMenuEvent& event);

    RowModel* model_;
    bool applying_ = false;         ///< the selection changes because the code says so
    bool selectedByPress_ = false;  ///< the mouse press that runs now has selected a row already
    bool keyRuns_ = false;
    bool selectedByKey_ = false;  ///< the key press that runs now has selected a row already
    QTimer catchUp_;              ///< runs while the view does not know of the last rows
    bool fitPending_ = false;
    bool sizedByUser_ = false;
    UserLayout* layout_ = nullptr;
};

ListViewAdapter::ListViewAdapter(ListView& control, QTreeView& tree)
    : AdapterFor(control, tree), model_(new RowModel(control, &tree)) {
    catchUp_.setSingleShot(true);
    connect(&catchUp_, &QTimer::timeout, this, [this] { CatchUp(); });
    tree.setRootIsDecorated(false);
    tree.setItemsExpandable(false);
    tree.setUniformRowHeights(true);
    // Pictures make high rows: row by row, the list would end with a gap below its last one.
    if (tree.iconSize().isValid()) tree.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    tree.setAllColumnsShowFocus(true);
    tree.setSelectionBehavior(QAbstractItemView::SelectRows);
    tree.setEditTriggers(QAbstractItemView::NoEditTriggers);
    tree.setTextElideMode(Qt::ElideRight);
    tree.setItemDelegate(new RowDelegate(&tree));
    tree.setModel(model_);
    tree.viewport()->installEventFilter(this);
    tree.header()->setSectionsClickable(true);
    tree.header()->setResizeContentsPrecision(RowsMeasured);
    connect(tree.header(), &QHeaderView::sectionClicked, this, [this](int column) {
        if (Bound() != nullptr) Bound()->ClickColumn(column);
        // The header turns its arrow with every click; only the list knows whether it was sorted.
        if (Bound() != nullptr) ShowSortOrder();
    });
    connect(tree.header(), &QHeaderView::sectionResized, this, [this] {
        const bool held = QGuiApplication::mouseButtons().testFlag(Qt::LeftButton);
        if (held && View().header()->underMouse()) UserSizedColumns();
    });
    connect(tree.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { UserSelected(); });
    connect(&tree, &QTreeView::pressed, this, [this](const QModelIndex& index) { UserPressed(index.row()); });
    connect(&tree, &QTreeView::doubleClicked, this, [this] {
        if (Bound() != nullptr) Bound()->DoubleClicked();
    });
    FitColumnsLater();
}

void ListViewAdapter::ShowState() {
    View().setSelectionMode(Bound()->MultiSelect() ? QAbstractItemView::ExtendedSelection
                                                   : QAbstractItemView::SingleSelection);
    View().setAcceptDrops(Bound()->AcceptsFiles());
    View().viewport()->setAcceptDrops(Bound()->AcceptsFiles());
    ShowPictureSize();
    ShowSortOrder();
    ShowSelection();
}

void ListViewAdapter::Release() {
    applying_ = true;
    catchUp_.stop();
    model_->Forget();
}

void ListViewAdapter::ShowPictureSize() {
    const QSize size = View().iconSize().isValid() ? View().iconSize() : QSize(64, 40);
    model_->SetPictureSize(size, View().devicePixelRatioF());
}

void ListViewAdapter::ShowSortOrder() {
    QHeaderView& header = *View().header();
    const int column = Bound()->SortColumn();
    header.setSortIndicatorShown(column >= 0);
    header.setSortIndicator(column, Bound()->SortAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void ListViewAdapter::ShowSelection() {
    const std::vector<int> rows = Bound()->SelectedRows();
    if (!rows.empty() && rows.back() >= model_->rowCount()) CatchUp();
    if (rows == RowsInView()) return;
    applying_ = true;
    if (rows.empty())
        View().selectionModel()->clear();
    else
        View().setCurrentIndex(model_->index(Bound()->Selected(), 0));
    if (rows.size() > 1)
        View().selectionModel()->select(SelectionOf(rows),
                                        QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    applying_ = false;
}

/// One range for rows that follow each other: all rows of a long list are usually selected together.
QItemSelection ListViewAdapter::SelectionOf(const std::vector<int>& rows) const {
    QItemSelection selection;
    for (std::size_t first = 0, next = 0; first < rows.size(); first = next) {
        while (next < rows.size() && rows[next] - rows[first] == static_cast<int>(next - first)) ++next;
        selection.select(model_->index(rows[first], 0), model_->index(rows[next - 1], 0));
    }
    return selection;
}

/// The rows that the view shows as selected, from the top.
std::vector<int> ListViewAdapter::RowsInView() const {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : View().selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void ListViewAdapter::InsertRow(int row) {
    applying_ = true;  // the selection moves with its row, which is not a choice
    model_->RowInserted(row);
    applying_ = false;
    FitColumnsLater();
}

/// The first rows are seen at once. The view lays out all its rows again whenever some are added, so while
/// more follow it hears of them the more rarely the more there are.
void ListViewAdapter::AddRows(int first, MoreRows more) {
    if (first > 0 && more == MoreRows::Follow) {
        if (!catchUp_.isActive()) catchUp_.start(std::max(ShortestLag, first / RowsPerLag));
        return;
    }
    CatchUp();
    FitColumnsLater();
}

void ListViewAdapter::CatchUp() {
    catchUp_.stop();
    applying_ = true;
    model_->CatchUp();
    applying_ = false;
}

void ListViewAdapter::RemoveRow(int row) {
    applying_ = true;  // the view would select a neighbour of the row that went
    model_->RowRemoved(row);
    applying_ = false;
    ShowSelection();
}

void ListViewAdapter::Reset() {
    applying_ = true;
    model_->Reset();
    applying_ = false;
    ShowSelection();
    ShowSortOrder();
    FitColumnsLater();
}

void ListViewAdapter::UserSelected() {
    if (applying_ || Bound() == nullptr) return;
    selectedByKey_ = keyRuns_;
    if (keyRuns_) return;
    const std::vector<int> rows = RowsInView();
    // A click beside the rows chooses nothing else. Of several rows the last one can be given up.
    if (rows.empty() && !Bound()->MultiSelect()) return ShowSelection();
    selectedByPress_ = true;
    Bound()->SelectRows(rows);
}

/// A press on the row that was selected already counts as choosing it once more.
void ListViewAdapter::UserPressed(int row) {
    if (Bound() != nullptr && !selectedByPress_ && !Bound()->MultiSelect()) Bound()->Select(row);
}

/// Many rows come in one turn; the columns are measured once, when the first of them are there.
void ListViewAdapter::FitColumnsLater() {
    if (fitPending_ || sizedByUser_) return;
    fitPending_ = true;
    QTimer::singleShot(0, this, [this] {
        fitPending_ = false;
        if (Bound() != nullptr) FitColumns();
    });
}

void ListViewAdapter::UserSizedColumns() {
    sizedByUser_ = true;
    if (layout_ == nullptr) return;
    std::vector<int> widths;
    for (int i = 0; i < View().header()->count(); ++i) widths.push_back(View().header()->sectionSize(i));
    // The last column takes what the window leaves; its own width would not fit another one.
    if (View().header()->stretchLastSection()) widths.back() = 0;
    layout_->Set(View().objectName(), std::move(widths));
}

void ListViewAdapter::FitColumns() {
    QHeaderView& header = *View().header();
    const auto& columns = Bound()->Columns();
    if (layout_ != nullptr && !columns.empty() && layout_->Of(View().objectName()).size() == columns.size()) {
        const std::vector<int>& widths = layout_->Of(View().objectName());
        for (std::size_t i = 0; i < widths.size(); ++i)
            if (widths[i] > 0) header.resizeSection(static_cast<int>(i), widths[i]);
        return;
    }
    for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
        const ListView::Column& column = columns[static_cast<std::size_t>(i)];
        const int wanted = ToPixels(column.width);
        if (wanted > 0 && column.sizing == ListView::Sizing::Fixed) {
            header.resizeSection(i, wanted);
        } else {
            View().resizeColumnToContents(i);
            header.resizeSection(
                i, std::clamp(header.sectionSize(i), wanted, std::max(wanted, WidestFittedColumn)));
        }
    }
}

bool ListViewAdapter::WidgetEvent(QEvent& event) {
    if (event.type() == QEvent::KeyPress) return KeyEvent(static_cast<QKeyEvent&>(event));
    if (event.type() == QEvent::ContextMenu) return AskForMenu(static_cast<QContextMenuEvent&>(event));
    if (event.type() == QEvent::Show) ShowPictureSize();
    return false;
}

/// For one key the view selects the row, makes it the current one and selects it again. The list hears of it
/// once, when all that is done: only then can a choice that is refused be taken back.
bool ListViewAdapter::KeyEvent(QKeyEvent& event) {
    CatchUp();  // the key may mean the last row
    const KeyDown key = ToKeyDown(event);
    if (key.key != Key::None && Bound()->PressKey(key)) return true;
    selectedByKey_ = false;
    {
        const Meanwhile running(keyRuns_, true);
        static_cast<QObject&>(View()).event(&event);  // not sent: that would offer it to the window twice
    }
    if (selectedByKey_) UserSelected();
    return true;
}

bool ListViewAdapter::eventFilter(QObject* watched, QEvent* event) {
    if (watched == View().viewport() && Bound() != nullptr) return ViewportEvent(*event);
    return ControlAdapter::eventFilter(watched, event);
}

bool ListViewAdapter::ViewportEvent(QEvent& event) {
    if (HandleDrag(event, *this, View(), [this] { return Bound(); })) return true;
    switch (event.type()) {
        case QEvent::MouseButtonPress:
            selectedByPress_ = false;
            return false;
        // Moving on with the button held down does not choose row after row.
        case QEvent::MouseMove:
            return static_cast<QMouseEvent&>(event).buttons() != Qt::NoButton;
        case QEvent::MouseButtonRelease: {
            const auto& mouse = static_cast<QMouseEvent&>(event);
            const Meanwhile place(MenuPlace(), mouse.globalPosition().toPoint());
            Bound()->MouseWentUp(PressedMouse(mouse));
            return false;
        }
        case QEvent::ContextMenu:
            return AskForMenu(static_cast<QContextMenuEvent&>(event));
        default:
            return false;
    }
}

/// The menu key asks for the menu of the selected row; the mouse has asked by its button already.
bool ListViewAdapter::AskForMenu(const QContextMenuEvent& event) {
    if (event.reason() != QContextMenuEvent::Keyboard) return true;
    const QPoint at = View().visualRect(View().currentIndex()).center();
    const Meanwhile place(MenuPlace(), View().viewport()->mapToGlobal(at));
    Bound()->MouseWentUp({MouseButton::Right, at.x() * TwipsPerPixel, at.y() * TwipsPerPixel});
    return true;
}

}  // namespace

AdapterPtr MakeListViewAdapter(Control& control, QWidget& widget) {
    return std::make_unique<ListViewAdapter>(static_cast<ListView&>(control),
                                             static_cast<QTreeView&>(widget));
}

}  // namespace lumarin::qt
