#include "platform/qt/adapters/RowDrag.h"

#include <QApplication>
#include <QListView>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace lumarin::qt {

namespace {

constexpr int MarkWidth = 3;        // pixels
constexpr int ScrollZone = 28;      // pixels from the edge
constexpr int ScrollInterval = 30;  // milliseconds
constexpr QSize LargestLikeness(140, 70);
constexpr QPoint BesidePointer(14, 14);
constexpr double LikenessOpacity = 0.75;

bool IsGrid(const QAbstractItemView& view) {
    const auto* list = qobject_cast<const QListView*>(&view);
    return list != nullptr && list->viewMode() == QListView::IconMode;
}

/// What lies between two lines belongs to the upper one.
int Gap(const QAbstractItemView& view) {
    const auto* list = qobject_cast<const QListView*>(&view);
    return list != nullptr ? list->spacing() : 0;
}

}  // namespace

/// Lies over the list, whose own children would be scrolled along, and paints the place where the rows would
/// go, and what is dragged.
class RowDragMark final : public QWidget {
public:
    RowDragMark(QAbstractItemView& view, QPixmap likeness)
        : QWidget(&view), view_(view), likeness_(std::move(likeness)) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

    void ShowAt(QPoint pointer, const QRect& mark) {
        pointer_ = pointer;
        mark_ = mark;
        setGeometry(view_.viewport()->geometry());
        show();
        update();
    }

private:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setOpacity(LikenessOpacity);
        painter.drawPixmap(pointer_ + BesidePointer, likeness_);
        if (!mark_.isValid()) return;
        painter.setOpacity(1);
        // With an edge, because a chosen row beside it has the same colour.
        painter.fillRect(mark_.adjusted(-1, -1, 1, 1), palette().color(QPalette::Base));
        painter.fillRect(mark_, palette().color(QPalette::Active, QPalette::Highlight));
    }

    QAbstractItemView& view_;
    QPixmap likeness_;
    QPoint pointer_;
    QRect mark_;
};

RowDrag::RowDrag(QAbstractItemView& view, std::function<void(int)> dropped)
    : view_(view), dropped_(std::move(dropped)) {
    scroll_.setInterval(ScrollInterval);
    connect(&scroll_, &QTimer::timeout, this, [this] { ScrollOn(); });
}

RowDrag::~RowDrag() { Cancel(); }

void RowDrag::Press(QPoint at) {
    pressed_ = true;
    from_ = at;
}

bool RowDrag::Move(QPoint at) {
    at_ = at;
    if (mark_ == nullptr) {
        const bool far = (at - from_).manhattanLength() >= QApplication::startDragDistance();
        // A click that takes a row out of the selection drags nothing.
        if (!pressed_ || !far || !view_.selectionModel()->isSelected(view_.indexAt(from_))) return false;
        Begin();
    }
    Show();
    return true;
}

bool RowDrag::Release() {
    const int before = before_;
    if (!Cancel()) return false;
    if (before >= 0) dropped_(before);
    return true;
}

bool RowDrag::IsRunning() const { return mark_ != nullptr; }

bool RowDrag::Cancel() {
    pressed_ = false;
    before_ = -1;
    if (mark_ == nullptr) return false;
    scroll_.stop();
    view_.viewport()->unsetCursor();
    delete mark_;
    return true;
}

void RowDrag::Begin() {
    mark_ = new RowDragMark(view_, Likeness());
    scroll_.start();
}

/// The row as it is seen, small, and how many there are.
QPixmap RowDrag::Likeness() const {
    QRect row = view_.visualRect(view_.indexAt(from_)) & view_.viewport()->rect();
    if (!IsGrid(view_)) row.setWidth(std::min(row.width(), 2 * LargestLikeness.width()));
    const double ratio = view_.devicePixelRatioF();
    QPixmap likeness = view_.viewport()->grab(row).scaled(LargestLikeness * ratio, Qt::KeepAspectRatio,
                                                          Qt::SmoothTransformation);
    likeness.setDevicePixelRatio(ratio);
    const auto count = view_.selectionModel()->selectedRows().size();
    if (count < 2) return likeness;
    const QString text = QString::number(count);
    const int side = view_.fontMetrics().horizontalAdvance(text) + view_.fontMetrics().height();
    QPainter painter(&likeness);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(view_.palette().color(QPalette::Base));
    painter.setBrush(view_.palette().color(QPalette::Text));
    const QRect badge(2, 2, side, view_.fontMetrics().height() + 4);
    painter.drawRoundedRect(badge, badge.height() / 2.0, badge.height() / 2.0);
    painter.drawText(badge, Qt::AlignCenter, text);
    return likeness;
}

void RowDrag::Show() {
    const QRect inside =
        view_.viewport()->rect().marginsAdded({ScrollZone, ScrollZone, ScrollZone, ScrollZone});
    before_ = inside.contains(at_) ? PlaceAt(at_) : -1;
    view_.viewport()->setCursor(before_ < 0 ? Qt::ForbiddenCursor : Qt::ClosedHandCursor);
    mark_->ShowAt(at_, before_ < 0 ? QRect() : MarkAt(before_));
}

void RowDrag::ScrollOn() {
    const QRect room = view_.viewport()->rect();
    const int above = room.top() + ScrollZone - at_.y();
    const int below = at_.y() - (room.bottom() - ScrollZone);
    if (above <= 0 && below <= 0) return;
    QScrollBar& bar = *view_.verticalScrollBar();
    const bool byPixels = view_.verticalScrollMode() == QAbstractItemView::ScrollPerPixel;
    const int step = byPixels ? std::min(std::max(above, below), 2 * ScrollZone) / 2 : 1;
    bar.setValue(bar.value() + (above > 0 ? -step : step));
    Show();
}

QRect RowDrag::RectOf(int row) const {
    return view_.visualRect(view_.model()->index(row, 0, view_.rootIndex()));
}

/// The number of rows that stand before the point: above it, and in a grid also left of it in its line.
int RowDrag::PlaceAt(QPoint at) const {
    const int count = view_.model()->rowCount(view_.rootIndex());
    int before = 0;
    for (; before < count; ++before) {
        const QRect row = RectOf(before).marginsAdded({0, 0, 0, Gap(view_)});
        const bool precedes =
            IsGrid(view_) ? row.bottom() < at.y() || (row.top() <= at.y() && row.center().x() < at.x())
                          : row.center().y() < at.y();
        if (!precedes) break;
    }
    return before;
}

QRect RowDrag::MarkAt(int before) const {
    const QRect last = before > 0 ? RectOf(before - 1) : QRect();
    const QRect next = before < view_.model()->rowCount(view_.rootIndex()) ? RectOf(before) : QRect();
    if (!IsGrid(view_)) {
        const int y = next.isValid() ? next.top() : last.bottom() + 1;
        return {0, std::max(y - MarkWidth / 2, 0), view_.viewport()->width(), MarkWidth};
    }
    // At the end of a line the mark stands there, or before the first of the next line: where the pointer is.
    const bool behindLast =
        !next.isValid() || (last.isValid() && last.top() < next.top() && at_.y() < next.top());
    const QRect& beside = behindLast ? last : next;
    const int x = behindLast ? beside.right() + 1 : std::max(beside.left() - MarkWidth, 0);
    return {x, beside.top(), MarkWidth, beside.height()};
}

}  // namespace lumarin::qt
