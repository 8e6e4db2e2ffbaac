#include "platform/qt/adapters/ControlAdapter.h"

#include <QEvent>
#include <QLabel>

#include "platform/qt/Conversions.h"
#include "platform/qt/widgets/FrameWidget.h"

namespace lumarin::qt {

namespace {

PlacedBy WhoPlaces(const QWidget& widget) {
    const auto* frame = dynamic_cast<FrameWidget*>(widget.parentWidget());
    return frame != nullptr && frame->layout() == nullptr ? PlacedBy::Code : PlacedBy::Layout;
}

/// A widget that nobody has hidden is shown together with its window.
bool WasHidden(const QWidget& widget) {
    return widget.testAttribute(Qt::WA_WState_ExplicitShowHide) && widget.testAttribute(Qt::WA_WState_Hidden);
}

Qt::CursorShape ShapeOf(Pointer pointer) {
    switch (pointer) {
        case Pointer::Hourglass:
            return Qt::WaitCursor;
        case Pointer::SizeWestEast:
            return Qt::SizeHorCursor;
        case Pointer::SizeNorthSouth:
            return Qt::SizeVerCursor;
        case Pointer::SizeAll:
            return Qt::SizeAllCursor;
        case Pointer::Default:
            break;
    }
    return Qt::ArrowCursor;
}

}  // namespace

ControlAdapter::ControlAdapter(Control& control, QWidget& widget)
    : control_(&control), widget_(widget), placedBy_(WhoPlaces(widget)) {}

void ControlAdapter::Attach() {
    // What the design hides starts hidden; the code may show it later.
    if (WasHidden(widget_) && !widget_.isWindow()) control_->SetVisible(false);
    view_ = MakeView();
    control_->Attach(view_.get());
    widget_.installEventFilter(this);
    Refresh();
}

void ControlAdapter::Detach() {
    if (control_ == nullptr) return;
    control_->Attach(nullptr);
    Forget();
}

void ControlAdapter::Forget() {
    control_ = nullptr;
    Release();
}

std::unique_ptr<ControlView> ControlAdapter::MakeView() {
    return std::make_unique<ForwardingView<ControlView>>(*this);
}

void ControlAdapter::Refresh() {
    if (control_ == nullptr) return;
    ShowCommonState();
    if (placedBy_ == PlacedBy::Code) ShowBounds();
    ShowState();
}

void ControlAdapter::ShowCommonState() {
    widget_.setEnabled(control_->Enabled());
    if (WasHidden(widget_) == control_->Visible()) {
        widget_.setVisible(control_->Visible());
        ShowLabelsOf(widget_, control_->Visible());
    }
    if (control_->MousePointer() == pointer_) return;
    pointer_ = control_->MousePointer();
    if (pointer_ == Pointer::Default)
        widget_.unsetCursor();
    else
        widget_.setCursor(ShapeOf(pointer_));
}

/// A label that names a control comes and goes with it.
void ControlAdapter::ShowLabelsOf(const QWidget& widget, bool visible) const {
    if (widget.isWindow()) return;
    for (QLabel* label : widget.window()->findChildren<QLabel*>())
        if (label->buddy() == &widget) label->setVisible(visible);
}

void ControlAdapter::ShowBounds() { widget_.setGeometry(ToPixels(control_->Bounds())); }

void ControlAdapter::ReportPlace() {
    // Only a real change is reported: what the code has set in twips stays exact.
    if (control_ == nullptr || placedBy_ == PlacedBy::Code) return;
    if (ToPixels(control_->Bounds()) != widget_.geometry()) control_->Placed(ToTwips(widget_.geometry()));
}

void ControlAdapter::TakeFocus() { widget_.setFocus(Qt::OtherFocusReason); }

bool ControlAdapter::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &widget_ || control_ == nullptr) return false;
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize) ReportPlace();
    if (event->type() == QEvent::FocusIn) control_->TookFocus();
    return control_ != nullptr && WidgetEvent(*event);
}

}  // namespace lumarin::qt
