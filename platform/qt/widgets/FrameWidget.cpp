#include "platform/qt/widgets/FrameWidget.h"

#include <QPainter>

namespace lumarin::qt {

FrameWidget::FrameWidget(QWidget* parent) : QFrame(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

void FrameWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool focused = hasFocus();
    const double line = focused ? 2.0 : 1.0;
    painter.setPen(QPen(palette().color(focused ? QPalette::Highlight : QPalette::Mid), line));
    painter.setBrush(palette().color(QPalette::Dark));
    const double inset = line / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), 3, 3);
}

void FrameWidget::focusInEvent(QFocusEvent* event) {
    QFrame::focusInEvent(event);
    update();
}

void FrameWidget::focusOutEvent(QFocusEvent* event) {
    QFrame::focusOutEvent(event);
    update();
}

}  // namespace lumarin::qt
