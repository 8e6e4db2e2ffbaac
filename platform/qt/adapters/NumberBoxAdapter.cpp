#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpressionValidator>
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
        edit.setValidator(new QRegularExpressionValidator(&edit));
        connect(&edit, &QLineEdit::textChanged, this, [this] { TakeText(); });
    }

private:
    void TakeText() {
        if (Bound() == nullptr) return;
        const std::string text = FromQt(View().text());
        std::optional<std::int32_t> typed = ParseInteger(text);
        const bool tooLong = !typed && text.find_first_of("0123456789") != std::string::npos;
        if (tooLong) typed = text.starts_with('-') ? Bound()->Min() : Bound()->Max();
        typing_ = true;
        Bound()->SetValue(typed);
        typing_ = false;
        if (tooLong) ShowValue();
    }

    /// A number that was kept within the range, or half a number, is put right when the user is done.
    bool WidgetEvent(QEvent& event) override {
        if (event.type() == QEvent::FocusOut) ShowValue();
        if (event.type() == QEvent::KeyPress && ToKeyDown(static_cast<QKeyEvent&>(event)).key == Key::Enter)
            ShowValue();
        return false;
    }

    void ShowState() override {
        const QString allowed = Bound()->Min() < 0 ? "-?[0-9]*" : "[0-9]*";
        auto& filter =
            static_cast<QRegularExpressionValidator&>(const_cast<QValidator&>(*View().validator()));
        if (filter.regularExpression().pattern() != allowed)
            filter.setRegularExpression(QRegularExpression(allowed));
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
