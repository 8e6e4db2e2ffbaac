#include <QButtonGroup>
#include <QRadioButton>
#include <QSignalBlocker>

#include "forms/Controls.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/adapters/Adapters.h"

namespace lumarin::qt {

namespace {

/// The widgets of one group are one choice, wherever in the window they stand: the arrow keys go
/// from one to the next.
QButtonGroup& ChoiceOf(const OptionButton& control, QWidget& window) {
    const QString name = ToQt(control.Group()) + "Choice";
    auto* choice = window.findChild<QButtonGroup*>(name);
    if (choice == nullptr) {
        choice = new QButtonGroup(&window);
        choice->setObjectName(name);
    }
    return *choice;
}

class OptionButtonAdapter final : public AdapterFor<OptionButton, QRadioButton> {
public:
    OptionButtonAdapter(OptionButton& control, QRadioButton& button) : AdapterFor(control, button) {
        ChoiceOf(control, *button.window()).addButton(&button);
        // A choice is given up only by another one, which then says so itself.
        connect(&button, &QRadioButton::toggled, this, [this](bool chosen) {
            if (Bound() != nullptr && chosen) Bound()->Choose();
        });
    }

private:
    void ShowState() override {
        const QSignalBlocker blocker(View());
        View().setText(ToQt(Bound()->Caption()));
        View().setChecked(Bound()->Value());
    }
};

}  // namespace

AdapterPtr MakeOptionButtonAdapter(Control& control, QWidget& widget) {
    return std::make_unique<OptionButtonAdapter>(static_cast<OptionButton&>(control),
                                                 static_cast<QRadioButton&>(widget));
}

}  // namespace lumarin::qt
