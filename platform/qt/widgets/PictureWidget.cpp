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
    scaled_ = {};
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

void PictureWidget::paintEvent(QPaintEvent*) {
    const QRect place = PictureRect();
    if (place.isEmpty()) return PaintIcon();
    const QSize physical = (QSizeF(place.size()) * devicePixelRatioF()).toSize();
    if (scaled_.size() != physical) {
        const QImage image = ToImage(picture_);
        scaled_ = QPixmap::fromImage(image.size() == physical ? image
                                                              : image.scaled(physical, Qt::IgnoreAspectRatio,
                                                                             Qt::SmoothTransformation));
    }
    QPainter(this).drawPixmap(place, scaled_);
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
