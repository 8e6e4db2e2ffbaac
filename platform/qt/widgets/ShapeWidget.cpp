#include "platform/qt/widgets/ShapeWidget.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

#include "platform/qt/widgets/PictureWidget.h"

namespace lumarin::qt {

namespace {
constexpr QColor Dim(0, 0, 0, 130);
constexpr QColor Bright(255, 255, 255, 235);
constexpr QColor Dark(0, 0, 0, 170);
constexpr QColor Guide(255, 255, 255, 110);
constexpr QColor GuideEdge(0, 0, 0, 60);
constexpr int HandleLength = 18;
constexpr int HandleWidth = 4;
constexpr int GridStep = 32;
constexpr int Edge = 2;  // the parent's own, which shows that it has the focus

/// A light line with a dark edge is seen over any picture.
void DrawLine(QPainter& painter, const QLine& line) {
    painter.fillRect(
        QRect(line.p1(), line.p2()).adjusted(0, 0, line.dy() != 0 ? 1 : 0, line.dx() != 0 ? 1 : 0),
        GuideEdge);
    painter.fillRect(QRect(line.p1(), line.p2()), Guide);
}
}  // namespace

ShapeWidget::ShapeWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    CoverParent();
}

void ShapeWidget::SetBox(const QRect& box) {
    if (box == box_) return;
    box_ = box;
    raise();
    update();
}

void ShapeWidget::SetGrid(bool grid) {
    if (grid == grid_) return;
    grid_ = grid;
    update();
}

bool ShapeWidget::event(QEvent* event) {
    if (event->type() == QEvent::ParentChange) CoverParent();
    return QWidget::event(event);
}

bool ShapeWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize) resize(parentWidget()->size());
    return QWidget::eventFilter(watched, event);
}

void ShapeWidget::CoverParent() {
    if (parentWidget() == nullptr) return;
    parentWidget()->installEventFilter(this);
    setGeometry(parentWidget()->rect());
    raise();
}

QRegion ShapeWidget::PictureRegion() const {
    QRegion pictures;
    for (QObject* sibling : parentWidget()->children()) {
        const auto* picture = dynamic_cast<PictureWidget*>(sibling);
        if (picture != nullptr && picture->isVisible())
            pictures += picture->PictureRect().translated(picture->pos());
    }
    return pictures;
}

void ShapeWidget::PaintSurroundings(QPainter& painter) const {
    const QRegion pictures = PictureRegion();
    if (pictures.isEmpty()) return;
    for (const QRect& outside : pictures - QRegion(box_)) painter.fillRect(outside, Dim);
    const QRegion paper = QRegion(box_ & rect().adjusted(Edge, Edge, -Edge, -Edge)) - pictures;
    for (const QRect& overhang : paper) painter.fillRect(overhang, Qt::white);
}

void ShapeWidget::paintEvent(QPaintEvent*) {
    if (box_.isEmpty() || parentWidget() == nullptr) return;
    QPainter painter(this);
    PaintSurroundings(painter);
    if (grid_)
        PaintGrid(painter);
    else
        PaintGuides(painter);
    painter.setPen(Dark);
    painter.drawRect(box_.adjusted(-1, -1, 0, 0));
    painter.setPen(Bright);
    painter.drawRect(box_.adjusted(0, 0, -1, -1));
    PaintHandles(painter);
}

void ShapeWidget::PaintGuides(QPainter& painter) const {
    for (int third = 1; third <= 2; ++third) {
        const int x = box_.left() + box_.width() * third / 3;
        const int y = box_.top() + box_.height() * third / 3;
        DrawLine(painter, {x, box_.top() + 1, x, box_.bottom() - 1});
        DrawLine(painter, {box_.left() + 1, y, box_.right() - 1, y});
    }
}

void ShapeWidget::PaintGrid(QPainter& painter) const {
    const QRect picture = PictureRegion().boundingRect() & rect();
    for (int x = picture.left() + GridStep; x < picture.right(); x += GridStep)
        DrawLine(painter, {x, picture.top(), x, picture.bottom()});
    for (int y = picture.top() + GridStep; y < picture.bottom(); y += GridStep)
        DrawLine(painter, {picture.left(), y, picture.right(), y});
}

void ShapeWidget::PaintHandles(QPainter& painter) const {
    const auto handle = [&](QPoint middle, QSize size) {
        QRect bar({}, size.boundedTo({std::max(1, box_.width() / 3), std::max(1, box_.height() / 3)}));
        bar.moveCenter(middle);
        painter.fillRect(bar.adjusted(-1, -1, 1, 1), Dark);
        painter.fillRect(bar, Bright);
    };
    const QPoint middle = box_.center();
    handle({box_.left(), middle.y()}, {HandleWidth, HandleLength});
    handle({box_.right(), middle.y()}, {HandleWidth, HandleLength});
    handle({middle.x(), box_.top()}, {HandleLength, HandleWidth});
    handle({middle.x(), box_.bottom()}, {HandleLength, HandleWidth});
    PaintCorners(painter);
}

/// An angle along both edges.
void ShapeWidget::PaintCorners(QPainter& painter) const {
    const int length = std::min({HandleLength, box_.width() / 3, box_.height() / 3});
    for (const bool right : {false, true})
        for (const bool below : {false, true}) {
            const int x = right ? box_.right() + 1 - length : box_.left();
            const int y = below ? box_.bottom() + 1 - length : box_.top();
            const QRect across(x, below ? box_.bottom() - 1 : box_.top() - 2, length, HandleWidth);
            const QRect down(right ? box_.right() - 1 : box_.left() - 2, y, HandleWidth, length);
            for (const QRect& bar : {across, down}) painter.fillRect(bar.adjusted(-1, -1, 1, 1), Dark);
            for (const QRect& bar : {across, down}) painter.fillRect(bar, Bright);
        }
}

}  // namespace lumarin::qt
