#include "forms/Controls.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/adapters/Adapters.h"
#include "platform/qt/widgets/AnimationWidget.h"

namespace lumarin::qt {

namespace {

class AnimationAdapter final : public AdapterFor<Animation, AnimationWidget> {
public:
    using AdapterFor::AdapterFor;

private:
    void ShowState() override {
        if (Bound()->File() != opened_) {
            opened_ = Bound()->File();
            View().Open(ToQt(opened_));
        }
        View().SetPlaying(Bound()->AutoPlay());
    }

    std::string opened_;
};

}  // namespace

AdapterPtr MakeAnimationAdapter(Control& control, QWidget& widget) {
    return std::make_unique<AnimationAdapter>(static_cast<Animation&>(control),
                                              static_cast<AnimationWidget&>(widget));
}

}  // namespace lumarin::qt
