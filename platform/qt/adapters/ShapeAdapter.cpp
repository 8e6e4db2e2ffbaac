#include "forms/Controls.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/adapters/Adapters.h"
#include "platform/qt/widgets/FrameWidget.h"
#include "platform/qt/widgets/ShapeWidget.h"

namespace lumarin::qt {

namespace {

class ShapeAdapter final : public AdapterFor<Shape, ShapeWidget> {
public:
    using AdapterFor::AdapterFor;

private:
    /// The widget covers its parent; what stands at the control's place is the rectangle drawn on it.
    void ShowBounds() override {}
    void ShowState() override {
        View().SetGrid(Bound()->Guides() == Guides::Grid);
        View().SetBox(ToPixels(LensOver(View()).Shown(Bound()->Bounds())));
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == FrameWidget::LensChanged && Bound() != nullptr) ShowState();
        return false;
    }
};

}  // namespace

AdapterPtr MakeShapeAdapter(Control& control, QWidget& widget) {
    return std::make_unique<ShapeAdapter>(static_cast<Shape&>(control), static_cast<ShapeWidget&>(widget));
}

}  // namespace lumarin::qt
