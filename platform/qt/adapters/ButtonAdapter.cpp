#include <QAbstractButton>

#include "forms/Controls.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/adapters/Adapters.h"

namespace lumarin::qt {

namespace {

class ButtonAdapter final : public AdapterFor<Button, QAbstractButton> {
public:
    ButtonAdapter(Button& control, QAbstractButton& button)
        : AdapterFor(control, button), designed_(button.text()) {
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
    void ShowState() override {
        const QString caption = Bound()->Caption().empty() ? designed_ : ToQt(Bound()->Caption());
        if (caption != View().text()) View().setText(caption);
    }

    QString designed_;
};

}  // namespace

AdapterPtr MakeButtonAdapter(Control& control, QWidget& widget) {
    return std::make_unique<ButtonAdapter>(static_cast<Button&>(control),
                                           static_cast<QAbstractButton&>(widget));
}

}  // namespace lumarin::qt
