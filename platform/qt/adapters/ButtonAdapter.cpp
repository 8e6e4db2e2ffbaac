#include <QAbstractButton>
#include <QKeyEvent>
#include <QPushButton>

#include "forms/Controls.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/adapters/Adapters.h"

namespace lumarin::qt {

namespace {

class ButtonAdapter final : public AdapterFor<Button, QAbstractButton> {
public:
    ButtonAdapter(Button& control, QAbstractButton& button) : AdapterFor(control, button) {
        // The button that has the focus is the one that Enter presses, and looks so.
        if (auto* push = qobject_cast<QPushButton*>(&button)) push->setAutoDefault(true);
        connect(&button, &QAbstractButton::pressed, this, [this] {
            if (Bound() != nullptr) Bound()->MouseWentDown();
        });
        connect(&button, &QAbstractButton::released, this, [this] {
            if (Bound() != nullptr) Bound()->MouseWentUp();
        });
        connect(&button, &QAbstractButton::clicked, this, [this] {
            if (Bound() != nullptr) Bound()->Press();
        });
    }

private:
    void ShowState() override { View().setText(ToQt(Bound()->Caption())); }

    /// A tool button leaves Enter to the window's default button.
    bool WidgetEvent(QEvent& event) override {
        if (event.type() != QEvent::KeyPress || qobject_cast<QPushButton*>(&View()) != nullptr) return false;
        if (ToKeyDown(static_cast<QKeyEvent&>(event)).key != Key::Enter) return false;
        View().click();
        return true;
    }
};

}  // namespace

AdapterPtr MakeButtonAdapter(Control& control, QWidget& widget) {
    return std::make_unique<ButtonAdapter>(static_cast<Button&>(control),
                                           static_cast<QAbstractButton&>(widget));
}

}  // namespace lumarin::qt
