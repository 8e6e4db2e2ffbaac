#include "platform/qt/widgets/FrameWidget.h"

#include <QCoreApplication>
#include <QPainter>

namespace lumarin::qt {

namespace {
constexpr int Edge = 2;  // shows the focus, also where a picture fills the frame
}

FrameWidget::FrameWidget(QWidget* parent) : QFrame(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    grabGesture(Qt::PinchGesture);
    setContentsMargins(Edge, Edge, Edge, Edge);
}

void FrameWidget::SetLens(const Lens& lens) {
    if (lens == lens_) return;
    lens_ = lens;
    for (QObject* child : children()) {
        QEvent changed(LensChanged);
        QCoreApplication::sendEvent(child, &changed);
    }
}

Lens LensOver(const QWidget& widget) {
    const auto* frame = dynamic_cast<const FrameWidget*>(widget.parentWidget());
    return frame != nullptr ? frame->Seen() : Lens();
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
