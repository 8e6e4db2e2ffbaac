#include "platform/qt/Owner.h"

#include <QWindow>

namespace lumarin::qt {

void Owner::Own(QWidget& window) const {
    const WId own = window.winId();  // the window below is there from now on
    window.windowHandle()->setTransientParent(widget != nullptr ? widget->window()->windowHandle() : nullptr);
    if (widget == nullptr && host != 0) platform::SetOwner(own, host);
}

QRect Owner::Place(const QWidget& window) const {
    if (widget != nullptr) return widget->window()->frameGeometry();
    const platform::WindowPlace place = host != 0 ? platform::PlaceOf(host) : platform::WindowPlace{};
    const qreal scale = window.devicePixelRatio();
    return QRectF(place.left / scale, place.top / scale, place.width / scale, place.height / scale).toRect();
}

}  // namespace lumarin::qt
