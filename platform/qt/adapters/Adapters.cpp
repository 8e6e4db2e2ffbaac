#include "platform/qt/adapters/Adapters.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeView>

#include "platform/qt/widgets/AnimationWidget.h"
#include "platform/qt/widgets/FrameWidget.h"
#include "platform/qt/widgets/PictureWidget.h"
#include "platform/qt/widgets/ShapeWidget.h"

namespace lumarin::qt {

namespace {

template <class... Types>
bool IsOneOf(QWidget& widget) {
    return (... || (dynamic_cast<Types*>(&widget) != nullptr));
}

/// What the binder knows of one kind of control.
struct Kind {
    ControlKind kind;
    const char* widget;  ///< the widget's class; null when the adapter makes what it needs
    bool (*fits)(QWidget&);
    AdapterPtr (*make)(Control&, QWidget&);
};

bool IsMenuOfMainWindow(QWidget& widget) {
    return IsOneOf<QMenuBar>(widget) && qobject_cast<QMainWindow*>(widget.window()) != nullptr;
}

constexpr Kind Kinds[] = {
    {ControlKind::TextBox, "QLineEdit", IsOneOf<QLineEdit>, MakeTextBoxAdapter},
    {ControlKind::Button, "QPushButton or QToolButton", IsOneOf<QPushButton, QToolButton>, MakeButtonAdapter},
    {ControlKind::Label, "QLabel", IsOneOf<QLabel>, MakeLabelAdapter},
    {ControlKind::ComboBox, "QComboBox", IsOneOf<QComboBox>, MakeComboBoxAdapter},
    {ControlKind::Slider, "QSlider", IsOneOf<QSlider>, MakeSliderAdapter},
    {ControlKind::ListView, "QTreeView or QListView", IsOneOf<QTreeView, QListView>, MakeListViewAdapter},
    {ControlKind::PictureBox, "PictureWidget", IsOneOf<PictureWidget>, MakePictureBoxAdapter},
    {ControlKind::Frame, "FrameWidget", IsOneOf<FrameWidget>, MakeFrameAdapter},
    {ControlKind::Shape, "ShapeWidget", IsOneOf<ShapeWidget>, MakeShapeAdapter},
    {ControlKind::Timer, nullptr, nullptr, MakeTimerAdapter},
    {ControlKind::Animation, "AnimationWidget", IsOneOf<AnimationWidget>, MakeAnimationAdapter},
    {ControlKind::ToolBar, "QMenuBar of a QMainWindow", IsMenuOfMainWindow, MakeToolBarAdapter},
    {ControlKind::OptionButton, "QRadioButton", IsOneOf<QRadioButton>, MakeOptionButtonAdapter},
    {ControlKind::TabStrip, "QTabWidget", IsOneOf<QTabWidget>, MakeTabStripAdapter},
    {ControlKind::NumberBox, "QLineEdit", IsOneOf<QLineEdit>, MakeNumberBoxAdapter},
    {ControlKind::ProgressBar, "QProgressBar", IsOneOf<QProgressBar>, MakeProgressBarAdapter},
};

const Kind& Find(ControlKind wanted) {
    for (const Kind& kind : Kinds)
        if (kind.kind == wanted) return kind;
    qFatal("a control kind without adapter");
}

}  // namespace

bool NeedsWidget(ControlKind kind) { return Find(kind).widget != nullptr; }

QString WidgetNeededFor(ControlKind kind) { return QString::fromLatin1(Find(kind).widget); }

bool Fits(ControlKind kind, QWidget& widget) { return Find(kind).fits(widget); }

AdapterPtr MakeAdapter(Control& control, QWidget& widget) {
    return Find(control.Kind()).make(control, widget);
}

}  // namespace lumarin::qt
