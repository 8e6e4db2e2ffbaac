#include <QLabel>

#include "forms/Controls.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/adapters/Adapters.h"

namespace lumarin::qt {

namespace {

class LabelAdapter final : public AdapterFor<Label, QLabel> {
public:
    LabelAdapter(Label& control, QLabel& label) : AdapterFor(control, label) {
        label.setTextFormat(Qt::PlainText);
    }

private:
    void ShowState() override { View().setText(ToQt(Bound()->Caption())); }
};

}  // namespace

AdapterPtr MakeLabelAdapter(Control& control, QWidget& widget) {
    return std::make_unique<LabelAdapter>(static_cast<Label&>(control), static_cast<QLabel&>(widget));
}

}  // namespace lumarin::qt
