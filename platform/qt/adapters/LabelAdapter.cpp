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
    /// Until the code has set a caption, the design's stands.
    void ShowState() override {
        wasSet_ = wasSet_ || !Bound()->Caption().empty();
        const QString caption = ToQt(Bound()->Caption());
        if (wasSet_ && caption != View().text()) View().setText(caption);
    }

    bool wasSet_ = false;
};

}  // namespace

AdapterPtr MakeLabelAdapter(Control& control, QWidget& widget) {
    return std::make_unique<LabelAdapter>(static_cast<Label&>(control), static_cast<QLabel&>(widget));
}

}  // namespace lumarin::qt
