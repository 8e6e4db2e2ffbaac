#include <QMouseEvent>

#include "base/PutBack.h"
#include "forms/Controls.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/adapters/Adapters.h"
#include "platform/qt/adapters/FileDrops.h"
#include "platform/qt/widgets/FrameWidget.h"
#include "platform/qt/widgets/PictureWidget.h"

namespace lumarin::qt {

namespace {

class PictureBoxAdapter final : public AdapterFor<PictureBox, PictureWidget> {
public:
    using AdapterFor::AdapterFor;

private:
    void ShowState() override {
        View().SetPicture(Bound()->Image());
        View().SetTones(Bound()->Tones());
        View().setAcceptDrops(Bound()->AcceptsFiles());
    }

    bool WidgetEvent(QEvent& event) override {
        if (HandleDrag(event, *this, View(), [this] { return Bound(); })) return true;
        switch (event.type()) {
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonDblClick:
                Bound()->MouseWentDown(UnderLens(PressedMouse(Accepted(event))));
                return true;
            case QEvent::MouseMove:
                Bound()->MouseMoved(UnderLens(MovedMouse(Accepted(event))));
                return true;
            case QEvent::MouseButtonRelease: {
                const Meanwhile place(MenuPlace(), Accepted(event).globalPosition().toPoint());
                Bound()->MouseWentUp(UnderLens(PressedMouse(Accepted(event))));
                return true;
            }
            default:
                return false;
        }
    }

    Mouse UnderLens(const Mouse& mouse) {
        const double scale = LensOver(View()).scale;
        return {mouse.button, mouse.x / scale, mouse.y / scale};
    }

    /// What this box has seen does not go on to the frame that it stands in.
    static QMouseEvent& Accepted(QEvent& event) {
        event.accept();
        return static_cast<QMouseEvent&>(event);
    }
};

}  // namespace

AdapterPtr MakePictureBoxAdapter(Control& control, QWidget& widget) {
    return std::make_unique<PictureBoxAdapter>(static_cast<PictureBox&>(control),
                                               static_cast<PictureWidget&>(widget));
}

}  // namespace lumarin::qt
