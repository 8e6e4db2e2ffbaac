#include <QGestureEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPinchGesture>
#include <QWheelEvent>

#include <cmath>

#include "base/PutBack.h"
#include "forms/Controls.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/adapters/Adapters.h"
#include "platform/qt/widgets/FrameWidget.h"

namespace lumarin::qt {

namespace {

constexpr double ZoomOfNotch = 1.25;
constexpr int UnitsOfNotch = 120;

class FrameAdapter final : public AdapterFor<Frame, FrameWidget> {
public:
    using AdapterFor::AdapterFor;

private:
    void ShowState() override { View().SetLens(Bound()->Lens()); }

    bool WidgetEvent(QEvent& event) override {
        switch (event.type()) {
            case QEvent::KeyPress: {
                const KeyDown key = ToKeyDown(static_cast<QKeyEvent&>(event));
                return key.key != Key::None && Bound()->PressKey(key);
            }
            case QEvent::KeyRelease:
                if (!static_cast<QKeyEvent&>(event).isAutoRepeat())
                    Bound()->ReleaseKey(ToKeyDown(static_cast<QKeyEvent&>(event)).key);
                return false;
            case QEvent::Wheel:
            case QEvent::NativeGesture:
            case QEvent::Gesture:
                return ZoomEvent(event);
            default:
                return MouseEvent(event);
        }
    }

    bool MouseEvent(QEvent& event) {
        switch (event.type()) {
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonDblClick:
                event.accept();
                Bound()->MouseWentDown(UnderLens(PressedMouse(static_cast<QMouseEvent&>(event))));
                return true;
            case QEvent::MouseMove:
                Bound()->MouseMoved(UnderLens(MovedMouse(static_cast<QMouseEvent&>(event))));
                return true;
            case QEvent::MouseButtonRelease: {
                const Meanwhile place(MenuPlace(),
                                      static_cast<QMouseEvent&>(event).globalPosition().toPoint());
                Bound()->MouseWentUp(UnderLens(PressedMouse(static_cast<QMouseEvent&>(event))));
                return true;
            }
            default:
                return false;
        }
    }

    bool ZoomEvent(QEvent& event) {
        if (event.type() == QEvent::Wheel) {
            const auto& wheel = static_cast<QWheelEvent&>(event);
            event.accept();
            const bool zooms =
                Bound()->WheelUse() == WheelUse::Zooms || wheel.modifiers().testFlag(Qt::ControlModifier);
            if (!zooms) return TurnWheel(wheel.angleDelta().y()), true;
            ZoomAt(std::pow(ZoomOfNotch, wheel.angleDelta().y() / double{UnitsOfNotch}), wheel.position());
            return true;
        }
        if (event.type() == QEvent::NativeGesture) {
            const auto& gesture = static_cast<QNativeGestureEvent&>(event);
            if (gesture.gestureType() != Qt::ZoomNativeGesture) return false;
            ZoomAt(1 + gesture.value(), gesture.position());
            return true;
        }
        auto* pinch =
            static_cast<QPinchGesture*>(static_cast<QGestureEvent&>(event).gesture(Qt::PinchGesture));
        if (pinch == nullptr) return false;
        ZoomAt(pinch->scaleFactor(), View().mapFromGlobal(pinch->hotSpot()));
        return true;
    }

    /// A fine wheel reports parts of a notch.
    void TurnWheel(int units) {
        turned_ -= units;
        const int notches = turned_ / UnitsOfNotch;
        turned_ -= notches * UnitsOfNotch;
        if (notches != 0) Bound()->TurnWheel(notches);
    }

    void ZoomAt(double factor, QPointF place) {
        const Mouse at = UnderLens({MouseButton::None, place.x() * TwipsPerPixel, place.y() * TwipsPerPixel});
        if (factor > 0 && factor != 1) Bound()->Zoom({factor, at.x, at.y});
    }

    Mouse UnderLens(const Mouse& mouse) {
        const Lens& lens = Bound()->Lens();
        return {mouse.button, (mouse.x - lens.left) / lens.scale, (mouse.y - lens.top) / lens.scale};
    }

    int turned_ = 0;  ///< of the next notch
};

}  // namespace

AdapterPtr MakeFrameAdapter(Control& control, QWidget& widget) {
    return std::make_unique<FrameAdapter>(static_cast<Frame&>(control), static_cast<FrameWidget&>(widget));
}

}  // namespace lumarin::qt
