#include <QTimer>

#include "forms/Controls.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/adapters/Adapters.h"

namespace lumarin::qt {

namespace {

/// A timer has no widget: it lives in the window as an object of its name.
class TimerAdapter final : public ControlAdapter {
public:
    TimerAdapter(Timer& control, QWidget& window)
        : ControlAdapter(control, window), timer_(new QTimer(&window)) {
        timer_->setObjectName(ToQt(control.ObjectName()));
        timer_->setTimerType(Qt::PreciseTimer);
        connect(timer_, &QTimer::timeout, this, [this] {
            if (Bound() != nullptr) Bound()->Tick();
        });
    }

private:
    Timer* Bound() const { return static_cast<Timer*>(Target()); }

    bool eventFilter(QObject*, QEvent*) override { return false; }
    void ShowCommonState() override {}

    void ShowState() override {
        const int interval = Bound()->Interval();
        const bool runs = Bound()->Enabled() && interval > 0;
        if (timer_->interval() != interval) timer_->setInterval(interval);
        if (runs && !timer_->isActive()) timer_->start();
        if (!runs) timer_->stop();
    }

    QTimer* timer_;
};

}  // namespace

AdapterPtr MakeTimerAdapter(Control& control, QWidget& window) {
    return std::make_unique<TimerAdapter>(static_cast<Timer&>(control), window);
}

}  // namespace lumarin::qt
