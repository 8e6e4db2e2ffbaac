#include "platform/qt/widgets/AnimationWidget.h"

#include <QPainter>

namespace lumarin::qt {

AnimationWidget::AnimationWidget(QWidget* parent) : QWidget(parent) {
    connect(&timer_, &QTimer::timeout, this, [this] { Advance(); });
}

void AnimationWidget::Open(const QString& path) {
    film_ = AviFile::Open(path);
    current_ = 0;
    frame_ = film_.Frame(0);
    timer_.setInterval(film_.FrameMilliseconds());
    updateGeometry();
    update();
    StartOrStop();
}

void AnimationWidget::SetPlaying(bool playing) {
    playing_ = playing;
    StartOrStop();
}

QSize AnimationWidget::sizeHint() const { return frame_.isNull() ? QSize(272, 60) : frame_.size(); }

void AnimationWidget::StartOrStop() {
    const bool runs = playing_ && isVisible() && film_.FrameCount() > 1;
    if (runs && !timer_.isActive()) timer_.start();
    if (!runs) timer_.stop();
}

void AnimationWidget::Advance() {
    current_ = (current_ + 1) % film_.FrameCount();
    // A damaged frame leaves the one before it.
    if (const QImage next = film_.Frame(current_); !next.isNull()) frame_ = next;
    update();
}

void AnimationWidget::paintEvent(QPaintEvent*) {
    if (frame_.isNull()) return;
    QRect place({}, frame_.size().scaled(size(), Qt::KeepAspectRatio).boundedTo(frame_.size()));
    place.moveCenter(rect().center());
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, frame_);
}

void AnimationWidget::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    StartOrStop();
}

void AnimationWidget::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    StartOrStop();
}

}  // namespace lumarin::qt
