#pragma once

#include <QObject>
#include <QPoint>
#include <QWidget>

#include <memory>
#include <optional>

#include "forms/Control.h"

class QLabel;

namespace lumarin::qt {

class UserLayout;

/// Who says where a control stands.
enum class PlacedBy { Layout, Code };

/// The label that names a widget, as its buddy; null when there is none.
QLabel* LabelOf(const QWidget& widget);

/// Connects one control with one widget: shows the control's state in the widget and reports to the control
/// what the user does. The control may go while the widget still lives, so an adapter looks at `Target`
/// again after everything that can run a handler.
class ControlAdapter : public QObject {
public:
    ControlAdapter(Control& control, QWidget& widget);
    /// Attaches to the control and shows its state.
    void Attach();
    /// The adapter does nothing from then on.
    void Detach();

    void Refresh();
    /// What the user has made of the widget is taken from here, and put here; it outlives the widget. Called
    /// before `Attach`.
    virtual void UseLayout(UserLayout&) {}
    /// Tells the control where the layout has put it.
    void ReportPlace();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    Control* Target() const { return control_; }
    QWidget& Widget() const { return widget_; }

    virtual std::unique_ptr<ControlView> MakeView();
    /// Shows what this kind of control has beyond the common state.
    virtual void ShowState() = 0;
    /// The control is about to go, or has half gone: read nothing of it, and keep nothing.
    virtual void Release() {}
    /// An event of the widget; true when it has been used.
    virtual bool WidgetEvent(QEvent&) { return false; }
    virtual void TakeFocus();
    virtual void SelectAllText() {}
    virtual void ShowBounds();
    /// Enabled, visible, pointer, the label that names the control.
    virtual void ShowCommonState();

    /// The control's side of the link, for a kind of view `Base`.
    template <class Base>
    class ForwardingView : public Base {
    public:
        explicit ForwardingView(ControlAdapter& adapter) : adapter_(adapter) {}
        void StateChanged() override { adapter_.Refresh(); }
        void TakeFocus() override { adapter_.TakeFocus(); }
        void SelectAllText() override { adapter_.SelectAllText(); }
        void ControlGoes() override { adapter_.Forget(); }

    private:
        ControlAdapter& adapter_;
    };

private:
    void Forget();
    void ShowFixedTexts() const;

    Control* control_;
    QWidget& widget_;
    QLabel* label_;  ///< that names the widget; null when there is none
    std::unique_ptr<ControlView> view_;
    PlacedBy placedBy_;
    Pointer pointer_ = Pointer::Default;
};

/// An adapter for a known kind of control and widget.
template <class ControlType, class WidgetType>
class AdapterFor : public ControlAdapter {
public:
    AdapterFor(ControlType& control, WidgetType& widget) : ControlAdapter(control, widget) {}

protected:
    /// Null when detached.
    ControlType* Bound() const { return static_cast<ControlType*>(Target()); }
    WidgetType& View() const { return static_cast<WidgetType&>(Widget()); }
};

/// Where a context menu belongs that a handler opens now: the place of the click, or of the selected row
/// when the keyboard asked for it. Empty outside of such a handler.
inline std::optional<QPoint>& MenuPlace() {
    static std::optional<QPoint> place;
    return place;
}

}  // namespace lumarin::qt
