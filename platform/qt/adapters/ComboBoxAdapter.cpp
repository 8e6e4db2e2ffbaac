#include <QComboBox>
#include <QSignalBlocker>

#include "forms/Controls.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/adapters/Adapters.h"

namespace lumarin::qt {

namespace {

class ComboBoxAdapter final : public AdapterFor<ComboBox, QComboBox> {
public:
    ComboBoxAdapter(ComboBox& control, QComboBox& box) : AdapterFor(control, box) {
        connect(&box, &QComboBox::currentIndexChanged, this, [this](int index) {
            if (Bound() != nullptr) Bound()->SetListIndex(index);
        });
    }

private:
    void ShowState() override {
        const QSignalBlocker blocker(View());
        if (shown_ != Bound()->Items()) {
            shown_ = Bound()->Items();
            View().clear();
            for (const ComboBox::Item& item : shown_) View().addItem(ToQt(item.text), item.data);
        }
        View().setCurrentIndex(Bound()->ListIndex());
    }

    std::vector<ComboBox::Item> shown_;
};

}  // namespace

AdapterPtr MakeComboBoxAdapter(Control& control, QWidget& widget) {
    return std::make_unique<ComboBoxAdapter>(static_cast<ComboBox&>(control),
                                             static_cast<QComboBox&>(widget));
}

}  // namespace lumarin::qt
