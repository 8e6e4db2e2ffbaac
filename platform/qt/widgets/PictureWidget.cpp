#include "platform/qt/widgets/PictureWidget.h"

#include <QPainter>

#include <algorithm>

#include "platform/qt/Conversions.h"

namespace lumarin::qt {

namespace {
constexpr double PlaceHolderOpacity = 0.35;
constexpr int LargestPlaceHolder = 96;
}  // namespace

PictureWidget::PictureWidget(QWidget* parent) : QWidget(parent) { setMouseTracking(true); }

void PictureWidget::SetPicture(PicturePtr picture) {
    if (picture == picture_) return;
    picture_ = std::move(picture);
    scaledPart_ = {};
    update();
}

void PictureWidget::SetTones(const std::optional<ToneTable>& tones) {
    if (tones == tones_) return;
    tones_ = tones;
    tonedIsCurrent_ = false;
    update();
}

void PictureWidget::SetIcon(const QIcon& icon, IconUse use) {
    icon_ = icon;
    iconUse_ = use;
    update();
}

QRect PictureWidget::PictureRect() const {
    if (picture_ == nullptr || picture_->IsEmpty()) return {};
    QRect seen(
        {}, QSize(picture_->width, picture_->height).scaled(size(), Qt::KeepAspectRatio).expandedTo({1, 1}));
    seen.moveCenter(rect().center());
    // The middle of an even and an odd length lies between two pixels; the picture then keeps to the left.
    seen.moveTopLeft({std::max(0, seen.left()), std::max(0, seen.top())});
    return seen;
}

QSize PictureWidget::sizeHint() const { return {320, 200}; }

QRect PictureWidget::VisiblePart() const {
    const QRect shown =
        parentWidget() != nullptr ? parentWidget()->contentsRect().translated(-pos()) : rect();
    return PictureRect() & rect() & shown;
}

void PictureWidget::paintEvent(QPaintEvent*) {
    if (PictureRect().isEmpty()) return PaintIcon();
    const QRect part = VisiblePart();
    if (part.isEmpty()) return;
    if (part != scaledPart_ || scaledPlace_ != PictureRect() ||
        scaled_.devicePixelRatio() != devicePixelRatioF())
        ScaleVisiblePart(part);
    QPainter(this).drawImage(part.topLeft(), tones_ ? WithTones() : scaled_);
}

void PictureWidget::ScaleVisiblePart(const QRect& part) {
    const double ratio = devicePixelRatioF();
    const QRect place = PictureRect();
    const QImage image = ToImage(picture_);
    const QSize whole = (QSizeF(place.size()) * ratio).toSize();
    if (part == place) {
        scaled_ = image.size() == whole
                      ? image
                      : image.scaled(whole, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        scaled_ = scaled_.convertToFormat(QImage::Format_RGB32);
    } else {
        scaled_ = QImage((QSizeF(part.size()) * ratio).toSize(), QImage::Format_RGB32);
        QPainter painter(&scaled_);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        const QPointF offset = QPointF(place.topLeft() - part.topLeft()) * ratio;
        painter.drawImage(QRectF(offset, whole), image, QRectF(image.rect()));
    }
    scaled_.setDevicePixelRatio(ratio);
    tonedIsCurrent_ = false;
    scaledPart_ = part;
    scaledPlace_ = place;
}

const QImage& PictureWidget::WithTones() {
    if (tonedIsCurrent_) return toned_;
    if (toned_.size() != scaled_.size()) toned_ = QImage(scaled_.size(), QImage::Format_RGB32);
    toned_.setDevicePixelRatio(scaled_.devicePixelRatio());
    const ToneTable& tones = *tones_;
    for (int y = 0; y < toned_.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(scaled_.constScanLine(y));
        auto* to = reinterpret_cast<QRgb*>(toned_.scanLine(y));
        for (int x = 0; x < toned_.width(); ++x) {
            const QRgb colour = from[x];
            to[x] = qRgb(tones[(colour >> 16) & 0xFF], tones[(colour >> 8) & 0xFF], tones[colour & 0xFF]);
        }
    }
    tonedIsCurrent_ = true;
    return toned_;
}

void PictureWidget::PaintIcon() {
    if (icon_.isNull()) return;
    const bool placeHolder = iconUse_ == IconUse::PlaceHolder;
    int side = std::min(width(), height());
    if (placeHolder) side = std::min(side / 2, LargestPlaceHolder);
    QRect place(0, 0, side, side);
    place.moveCenter(rect().center());
    QPainter painter(this);
    if (placeHolder) painter.setOpacity(PlaceHolderOpacity);
    icon_.paint(&painter, place);
}

}  // namespace lumarin::qt
