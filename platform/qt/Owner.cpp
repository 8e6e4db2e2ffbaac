#include "platform/qt/Owner.h"

#include <QEvent>
#include <QWindow>

namespace lumarin::qt {

namespace {

/// Puts a window above one that is not of the toolkit. When the toolkit shows a window it sets the owner
/// anew, to one that it knows or none; so this does it after that, whenever the window comes to be seen.
class ForeignOwner final : public QObject {
public:
    ForeignOwner(QWindow& window, platform::WindowNumber owner) : QObject(&window), owner_(owner) {
        window.installEventFilter(this);
        platform::SetOwner(window.winId(), owner);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Expose)
            platform::SetOwner(static_cast<QWindow*>(watched)->winId(), owner_);
        return false;
    }

private:
    platform::WindowNumber owner_;
};

}  // namespace

void Owner::Own(QWidget& window) const {
    window.setAttribute(Qt::WA_QuitOnClose, false);  // when a host's program ends is its own affair
    window.winId();                                  // the window below is there from now on
    window.windowHandle()->setTransientParent(widget != nullptr ? widget->window()->windowHandle() : nullptr);
    for (QObject* child : window.windowHandle()->children())
        if (dynamic_cast<ForeignOwner*>(child) != nullptr) delete child;
    if (widget == nullptr && host != 0) new ForeignOwner(*window.windowHandle(), host);
}

QRect Owner::Place(const QWidget& window) const {
    if (widget != nullptr) return widget->window()->frameGeometry();
    const platform::WindowPlace place = host != 0 ? platform::PlaceOf(host) : platform::WindowPlace{};
    const qreal scale = window.devicePixelRatio();
    return QRectF(place.left / scale, place.top / scale, place.width / scale, place.height / scale).toRect();
}

}  // namespace lumarin::qt
