#pragma once

#include <QString>

#include <memory>

#include "platform/qt/adapters/ControlAdapter.h"

/// One adapter per control kind. `Fits` says whether a widget can show the control; the makers expect that
/// it does. A kind without a widget in the design gets one that the adapter makes in the window.
namespace lumarin::qt {

using AdapterPtr = std::unique_ptr<ControlAdapter>;

bool NeedsWidget(ControlKind kind);
/// "text box (QLineEdit)" and so on, for reports.
QString WidgetNeededFor(ControlKind kind);
bool Fits(ControlKind kind, QWidget& widget);

AdapterPtr MakeAdapter(Control& control, QWidget& widget);

AdapterPtr MakeTextBoxAdapter(Control& control, QWidget& widget);
AdapterPtr MakeButtonAdapter(Control& control, QWidget& widget);
AdapterPtr MakeLabelAdapter(Control& control, QWidget& widget);
AdapterPtr MakeComboBoxAdapter(Control& control, QWidget& widget);
AdapterPtr MakeSliderAdapter(Control& control, QWidget& widget);
AdapterPtr MakeListViewAdapter(Control& control, QWidget& widget);
AdapterPtr MakePictureBoxAdapter(Control& control, QWidget& widget);
AdapterPtr MakeFrameAdapter(Control& control, QWidget& widget);
AdapterPtr MakeShapeAdapter(Control& control, QWidget& widget);
/// The widget is the window.
AdapterPtr MakeTimerAdapter(Control& control, QWidget& window);
AdapterPtr MakeAnimationAdapter(Control& control, QWidget& widget);
AdapterPtr MakeToolBarAdapter(Control& control, QWidget& widget);
AdapterPtr MakeOptionButtonAdapter(Control& control, QWidget& widget);
AdapterPtr MakeTabStripAdapter(Control& control, QWidget& widget);
AdapterPtr MakeNumberBoxAdapter(Control& control, QWidget& widget);
AdapterPtr MakeProgressBarAdapter(Control& control, QWidget& widget);

}  // namespace lumarin::qt
