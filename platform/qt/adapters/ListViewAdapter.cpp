#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <utility>

#include "base/PutBack.h"
#include "forms/ListView.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/adapters/Adapters.h"
#include "platform/qt/adapters/FileDrops.h"
#include "platform/qt/adapters/ReportColumns.h"
#include "platform/qt/adapters/RowDelegate.h"
#include "platform/qt/adapters/RowDrag.h"
#include "platform/qt/adapters/RowModel.h"

namespace lumarin::qt {

namespace {

constexpr int ShortestLag = 50;  // milliseconds
constexpr int RowsPerLag = 500;  // a millisecond each: laying these out takes a fiftieth of it
constexpr int GridSpacing = 4;   // pixels
constexpr int WheelSteps = 3;    // for the height of one row of pictures

/// A tree view shows the list with its columns; a list view its first column, in rows or as a grid.
class ListViewAdapter final : public AdapterFor<ListView, QAbstractItemView> {
public:
    ListViewAdapter(ListView& control, QAbstractItemView& view);

    void UseLayout(UserLayout& layout) override {
        if (columns_) columns_->UseLayout(layout);
    }

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
    void SetUp(QTreeView& tree);
    void SetUp(QListView& list);

    void InsertRow(int row);
    void AddRows(int first, MoreRows more);
    void CatchUp();
    void RemoveRow(int row);
    void Reset();
    void ShowSelection();
    void ShowArrangement(QListView& list);
    void ShowPictureSize();

    QItemSelection SelectionOf(const std::vector<int>& rows) const;
    std::vector<int> RowsInView() const;
    void UserSelected();
    void UserPressed(int row);
    void MousePressed(const QMouseEvent& mouse);
    bool MouseReleased(const QMouseEvent& mouse);
    bool AskForMenu(const QContextMenuEvent& event);

    RowModel* model_;
    bool applying_ = false;         ///< the selection changes because the code says so
    bool selectedByPress_ = false;  ///< the mouse press that runs now has selected a row already
    bool keyRuns_ = false;
    bool selectedByKey_ = false;              ///< the key press that runs now has selected a row already
    bool bandRuns_ = false;                   ///< the mouse draws a frame around the rows to choose
    QTimer catchUp_;                          ///< runs while the view does not know of the last rows
    std::unique_ptr<ReportColumns> columns_;  ///< of a tree view
    RowDrag drag_;
};

ListViewAdapter::ListViewAdapter(ListView& control, QAbstractItemView& view)
    : AdapterFor(control, view), model_(new RowModel(control, &view)), drag_(view, [this](int before) {
          if (Bound() != nullptr) Bound()->DragSelected(before);
      }) {
    catchUp_.setSingleShot(true);
    connect(&catchUp_, &QTimer::timeout, this, [this] { CatchUp(); });
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setTextElideMode(Qt::ElideRight);
    view.setItemDelegate(new RowDelegate(&view));
    view.setModel(model_);
    view.viewport()->installEventFilter(this);
    if (auto* tree = qobject_cast<QTreeView*>(&view)) SetUp(*tree);
    if (auto* list = qobject_cast<QListView*>(&view)) SetUp(*list);
    connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { UserSelected(); });
    connect(&view, &QAbstractItemView::pressed, this,
            [this](const QModelIndex& index) { UserPressed(index.row()); });
    connect(&view, &QAbstractItemView::doubleClicked, this, [this] {
        if (Bound() != nullptr) Bound()->DoubleClicked();
    });
}

void ListViewAdapter::SetUp(QTreeView& tree) {
    tree.setRootIsDecorated(false);
    tree.setItemsExpandable(false);
    tree.setUniformRowHeights(true);
    // Pictures make high rows: row by row, the list would end with a gap below its last one.
    if (tree.iconSize().isValid()) tree.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    tree.setAllColumnsShowFocus(true);
    tree.setSelectionBehavior(QAbstractItemView::SelectRows);
    columns_ = std::make_unique<ReportColumns>(tree, [this] { return Bound(); });
    columns_->FitLater();
}

void ListViewAdapter::SetUp(QListView& list) {
    list.setUniformItemSizes(true);
    list.setSelectionRectVisible(true);
    list.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
}

void ListViewAdapter::ShowState() {
    View().setSelectionMode(Bound()->MultiSelect() ? QAbstractItemView::ExtendedSelection
                                                   : QAbstractItemView::SingleSelection);
    if (auto* list = qobject_cast<QListView*>(&View())) ShowArrangement(*list);
    View().setAcceptDrops(Bound()->AcceptsFiles());
    View().viewport()->setAcceptDrops(Bound()->AcceptsFiles());
    ShowPictureSize();
    if (columns_) columns_->ShowSortOrder();
    ShowSelection();
}

void ListViewAdapter::Release() {
    applying_ = true;
    catchUp_.stop();
    drag_.Cancel();
    model_->Forget();
}

void ListViewAdapter::ShowArrangement(QListView& list) {
    const bool isGrid = Bound()->ArrangedAs() == ListView::Arrangement::Grid;
    const auto mode = isGrid ? QListView::IconMode : QListView::ListMode;
    if (list.viewMode() == mode) return;
    list.setViewMode(mode);
    list.setMovement(QListView::Static);  // rows go where the list's owner moves them
    list.setResizeMode(QListView::Adjust);
    list.setSpacing(isGrid ? GridSpacing : 0);
    list.scrollTo(list.currentIndex());
}

void ListViewAdapter::ShowPictureSize() {
    const Size& wanted = Bound()->PictureSize();
    if (wanted != Size{}) View().setIconSize({ToPixels(wanted.width), ToPixels(wanted.height)});
    const QSize size = View().iconSize().isValid() ? View().iconSize() : QSize(64, 40);
    model_->SetPictureSize(size, View().devicePixelRatioF());
    if (qobject_cast<QListView*>(&View()) != nullptr)
        View().verticalScrollBar()->setSingleStep(size.height() / WheelSteps);
}

void ListViewAdapter::ShowSelection() {
    const std::vector<int> rows = Bound()->SelectedRows();
    if (!rows.empty() && rows.back() >= model_->rowCount()) CatchUp();
    if (rows == RowsInView() && (rows.empty() || View().currentIndex().row() == Bound()->Selected())) return;
    const Meanwhile applying(applying_, true);
    QItemSelectionModel& selection = *View().selectionModel();
    if (rows.empty()) return selection.clear();
    // Not by the view, which would look at the keys that are held: the user may move a row by Ctrl and an
    // arrow.
    const auto only = QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
    selection.setCurrentIndex(model_->index(Bound()->Selected(), 0), only);
    if (rows.size() > 1) selection.select(SelectionOf(rows), only);
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
    if (columns_) columns_->FitLater();
}

/// The first rows are seen at once. The view lays out all its rows again whenever some are added, so while
/// more follow it hears of them the more rarely the more there are.
void ListViewAdapter::AddRows(int first, MoreRows more) {
    if (first > 0 && more == MoreRows::Follow) {
        if (!catchUp_.isActive()) catchUp_.start(std::max(ShortestLag, first / RowsPerLag));
        return;
    }
    CatchUp();
    if (columns_) columns_->FitLater();
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
    drag_.Cancel();
    applying_ = true;
    model_->Reset();
    applying_ = false;
    ShowSelection();
    if (!columns_) return;
    columns_->ShowSortOrder();
    columns_->FitLater();
}

void ListViewAdapter::UserSelected() {
    if (applying_ || Bound() == nullptr || bandRuns_) return;
    selectedByKey_ = keyRuns_;
    if (keyRuns_) return;
    const std::vector<int> rows = RowsInView();
    selectedByPress_ = true;
    // A click beside the rows chooses nothing else.
    if (rows.empty() && !Bound()->MultiSelect()) return ShowSelection();
    if (rows.empty() && Bound()->KeepsSelection()) return Bound()->Select(Bound()->Selected());
    Bound()->SelectRows(rows, View().currentIndex().row());
}

/// A press on a row that was selected already counts as choosing it once more.
void ListViewAdapter::UserPressed(int row) {
    if (Bound() == nullptr || selectedByPress_) return;
    const std::vector<int> rows = Bound()->SelectedRows();
    if (std::binary_search(rows.begin(), rows.end(), row)) Bound()->SelectRows(rows, row);
}

bool ListViewAdapter::WidgetEvent(QEvent& event) {
    if (event.type() == QEvent::KeyPress) return KeyEvent(static_cast<QKeyEvent&>(event));
    // While rows are dragged, Escape is theirs even where it is the key of a command.
    if (event.type() == QEvent::ShortcutOverride && drag_.IsRunning()) return event.accept(), true;
    if (event.type() == QEvent::WindowDeactivate) drag_.Cancel();
    if (event.type() == QEvent::ContextMenu) return AskForMenu(static_cast<QContextMenuEvent&>(event));
    if (event.type() == QEvent::Show) ShowPictureSize();
    return false;
}

/// For one key the view selects the row, makes it the current one and selects it again. The list hears of it
/// once, when all that is done: only then can a choice that is refused be taken back.
bool ListViewAdapter::KeyEvent(QKeyEvent& event) {
    CatchUp();  // the key may mean the last row
    if (event.key() == Qt::Key_Escape && drag_.Cancel()) return true;
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
            MousePressed(static_cast<QMouseEvent&>(event));
            return false;
        // Moving on with the button held down does not choose row after row.
        case QEvent::MouseMove: {
            const auto& mouse = static_cast<QMouseEvent&>(event);
            if (mouse.buttons() == Qt::NoButton || bandRuns_) return false;
            if (mouse.buttons() == Qt::LeftButton) drag_.Move(mouse.position().toPoint());
            return true;
        }
        case QEvent::MouseButtonRelease:
            return MouseReleased(static_cast<QMouseEvent&>(event));
        case QEvent::ContextMenu:
            return AskForMenu(static_cast<QContextMenuEvent&>(event));
        default:
            return false;
    }
}

void ListViewAdapter::MousePressed(const QMouseEvent& mouse) {
    selectedByPress_ = false;
    drag_.Cancel();
    if (mouse.button() != Qt::LeftButton) return;
    const QPoint at = mouse.position().toPoint();
    const bool onRow = View().indexAt(at).isValid();
    if (onRow && Bound()->Reorderable()) drag_.Press(at);
    bandRuns_ = !onRow && Bound()->MultiSelect() && qobject_cast<QListView*>(&View()) != nullptr;
}

/// What a frame drawn around rows has chosen counts when it is let go: until then it changes with every move.
bool ListViewAdapter::MouseReleased(const QMouseEvent& mouse) {
    if (mouse.button() == Qt::LeftButton && drag_.Release()) return true;
    if (std::exchange(bandRuns_, false)) UserSelected();
    if (Bound() == nullptr) return true;
    const Meanwhile place(MenuPlace(), mouse.globalPosition().toPoint());
    Bound()->MouseWentUp(PressedMouse(mouse));
    return false;
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
                                             static_cast<QAbstractItemView&>(widget));
}

}  // namespace lumarin::qt
