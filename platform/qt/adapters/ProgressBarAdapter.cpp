#include <QProgressBar>

#include "forms/Controls.h"
#include "platform/qt/adapters/Adapters.h"

namespace lumarin::qt {

namespace {

class ProgressBarAdapter final : public AdapterFor<ProgressBar, QProgressBar> {
public:
    using AdapterFor::AdapterFor;

private:
    void ShowState() override {
        // A range of nothing would show an endless movement.
        View().setRange(0, Bound()->Max() > 0 ? Bound()->Max() : 1);
        View().setValue(Bound()->Max() > 0 ? Bound()->Value() : 0);
    }
};

}  // namespace

AdapterPtr MakeProgressBarAdapter(Control& control, QWidget& widget) {
    return std::make_unique<ProgressBarAdapter>(static_cast<ProgressBar&>(control),
                                                static_cast<QProgressBar&>(widget));
}

}  // namespace lumarin::qt
