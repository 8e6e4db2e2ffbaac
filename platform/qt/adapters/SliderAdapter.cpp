#include <QSignalBlocker>
#include <QSlider>

#include "forms/Controls.h"
#include "platform/qt/adapters/Adapters.h"

namespace lumarin::qt {

namespace {

class SliderAdapter final : public AdapterFor<Slider, QSlider> {
public:
    SliderAdapter(Slider& control, QSlider& slider) : AdapterFor(control, slider) {
        connect(&slider, &QSlider::valueChanged, this, [this](int value) {
            if (Bound() != nullptr) Bound()->SetValue(value);
        });
    }

private:
    void ShowState() override {
        const QSignalBlocker blocker(View());
        View().setRange(Bound()->Min(), Bound()->Max());
        View().setSingleStep(Bound()->SmallChange());
        View().setPageStep(Bound()->LargeChange());
        View().setValue(Bound()->Value());
    }
};

}  // namespace

AdapterPtr MakeSliderAdapter(Control& control, QWidget& widget) {
    return std::make_unique<SliderAdapter>(static_cast<Slider&>(control), static_cast<QSlider&>(widget));
}

}  // namespace lumarin::qt
