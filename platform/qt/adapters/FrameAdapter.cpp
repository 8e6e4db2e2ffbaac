#include <QKeyEvent>
#include <QMouseEvent>

#include "base/PutBack.h"
#include "forms/Controls.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/adapters/Adapters.h"
#include "platform/qt/widgets/FrameWidget.h"

namespace lumarin::qt {

namespace {

class FrameAdapter final : public AdapterFor<Frame, FrameWidget> {
public:
    using AdapterFor::AdapterFor;

private:
    void ShowState() override {}

    bool WidgetEvent(QEvent& event) override {
        switch (event.type()) {
            case QEvent::KeyPress: {
                const KeyDown key = ToKeyDown(static_cast<QKeyEvent&>(event));
                return key.key != Key::None && Bound()->PressKey(key);
            }
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonDblClick:
                event.accept();
                Bound()->MouseWentDown(PressedMouse(static_cast<QMouseEvent&>(event)));
                return true;
            case QEvent::MouseMove:
                Bound()->MouseMoved(MovedMouse(static_cast<QMouseEvent&>(event)));
                return true;
            case QEvent::MouseButtonRelease: {
                const Meanwhile place(MenuPlace(),
                                      static_cast<QMouseEvent&>(event).globalPosition().toPoint());
                Bound()->MouseWentUp(PressedMouse(static_cast<QMouseEvent&>(event)));
                return true;
            }
            default:
                return false;
        }
    }
};

}  // namespace

AdapterPtr MakeFrameAdapter(Control& control, QWidget& widget) {
    return std::make_unique<FrameAdapter>(static_cast<Frame&>(control), static_cast<FrameWidget&>(widget));
}

}  // namespace lumarin::qt
