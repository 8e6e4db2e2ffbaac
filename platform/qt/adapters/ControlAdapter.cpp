#include "platform/qt/adapters/ControlAdapter.h"

#include <QEvent>
#include <QLabel>
#include <QRegularExpression>

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
        case Pointer::SizeFalling:
            return Qt::SizeFDiagCursor;
        case Pointer::SizeRising:
            return Qt::SizeBDiagCursor;
        case Pointer::Hand:
            return Qt::OpenHandCursor;
        case Pointer::Default:
            break;
    }
    return Qt::ArrowCursor;
}

/// What a screen reader calls a control. Not every kind of widget is called what its label says, and a button
/// may have no caption.
QString NameOf(const ControlTexts& texts, bool hasLabel) {
    if (!texts.accessibleName.empty()) return ToQt(texts.accessibleName);
    if (texts.caption.empty()) return ToQt(texts.toolTip);
    static const QRegularExpression marks("&(?=.)|:$");
    return hasLabel ? ToQt(texts.caption).remove(marks) : QString();
}

}  // namespace

QLabel* LabelOf(const QWidget& widget) {
    for (QLabel* label : widget.window()->findChildren<QLabel*>())
        if (label->buddy() == &widget) return label;
    return nullptr;
}

ControlAdapter::ControlAdapter(Control& control, QWidget& widget)
    : control_(&control), widget_(widget), label_(LabelOf(widget)), placedBy_(WhoPlaces(widget)) {}

void ControlAdapter::Attach() {
    // What the design hides starts hidden; the code may show it later.
    if (WasHidden(widget_) && !widget_.isWindow()) control_->SetVisible(false);
    view_ = MakeView();
    control_->Attach(view_.get());
    widget_.installEventFilter(this);
    ShowFixedTexts();
    Refresh();
}

/// The code can change the caption alone.
void ControlAdapter::ShowFixedTexts() const {
    const ControlTexts& texts = control_->Texts();
    widget_.setToolTip(ToQt(texts.toolTip));
    widget_.setAccessibleName(NameOf(texts, label_ != nullptr));
    widget_.setAccessibleDescription(ToQt(texts.accessibleDescription));
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
        // A label that names a control comes and goes with it.
        if (label_ != nullptr) label_->setVisible(control_->Visible());
    }
    // A label that is a control itself has its caption from there.
    if (label_ != nullptr && !control_->Caption().empty()) label_->setText(ToQt(control_->Caption()));
    if (control_->MousePointer() == pointer_) return;
    pointer_ = control_->MousePointer();
    if (pointer_ == Pointer::Default)
        widget_.unsetCursor();
    else
        widget_.setCursor(ShapeOf(pointer_));
}

void ControlAdapter::ShowBounds() {
    widget_.setGeometry(ToPixels(LensOver(widget_).Shown(control_->Bounds())));
}

void ControlAdapter::ReportPlace() {
    // Only a real change is reported: what the code has set in twips stays exact.
    if (control_ == nullptr || placedBy_ == PlacedBy::Code) return;
    if (ToPixels(control_->Bounds()) != widget_.geometry()) control_->Placed(ToTwips(widget_.geometry()));
}

void ControlAdapter::TakeFocus() { widget_.setFocus(Qt::OtherFocusReason); }

bool ControlAdapter::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &widget_ || control_ == nullptr) return false;
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize) ReportPlace();
    if (event->type() == FrameWidget::LensChanged && placedBy_ == PlacedBy::Code) ShowBounds();
    if (event->type() == QEvent::FocusIn) control_->TookFocus();
    return control_ != nullptr && WidgetEvent(*event);
}

}  // namespace lumarin::qt
