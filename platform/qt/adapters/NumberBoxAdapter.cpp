#include <QIntValidator>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

#include <optional>

#include "base/Numbers.h"
#include "forms/Controls.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/adapters/Adapters.h"

namespace lumarin::qt {

namespace {

class NumberBoxAdapter final : public AdapterFor<NumberBox, QLineEdit> {
public:
    NumberBoxAdapter(NumberBox& control, QLineEdit& edit) : AdapterFor(control, edit) {
        auto* digits = new QIntValidator(&edit);
        digits->setLocale(QLocale::c());
        edit.setValidator(digits);
        connect(&edit, &QLineEdit::textChanged, this, [this] { TakeText(); });
    }

private:
    std::optional<std::int32_t> Typed() const { return ParseInteger(FromQt(View().text())); }

    void TakeText() {
        if (Bound() == nullptr) return;
        typing_ = true;
        Bound()->SetValue(Typed());
        typing_ = false;
    }

    /// A number that was kept within the range, or half a number, is put right when the user is done.
    bool WidgetEvent(QEvent& event) override {
        if (event.type() == QEvent::FocusOut) ShowValue();
        if (event.type() == QEvent::KeyPress && ToKeyDown(static_cast<QKeyEvent&>(event)).key == Key::Enter)
            ShowValue();
        return false;
    }

    void ShowState() override {
        const auto* digits = static_cast<const QIntValidator*>(View().validator());
        if (digits->bottom() != Bound()->Min() || digits->top() != Bound()->Max())
            const_cast<QIntValidator*>(digits)->setRange(Bound()->Min(), Bound()->Max());
        if (!typing_) ShowValue();
    }

    void ShowValue() {
        const auto& value = Bound()->Value();
        const QString text = value ? QString::number(*value) : QString();
        if (text == View().text()) return;
        const QSignalBlocker blocker(View());
        View().setText(text);
    }

    bool typing_ = false;
};

}  // namespace

AdapterPtr MakeNumberBoxAdapter(Control& control, QWidget& widget) {
    return std::make_unique<NumberBoxAdapter>(static_cast<NumberBox&>(control),
                                              static_cast<QLineEdit&>(widget));
}

}  // namespace lumarin::qt
