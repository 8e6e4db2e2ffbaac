#include <QSignalBlocker>
#include <QTabWidget>

#include "forms/Controls.h"
#include "platform/qt/adapters/Adapters.h"

namespace lumarin::qt {

namespace {

class TabStripAdapter final : public AdapterFor<TabStrip, QTabWidget> {
public:
    TabStripAdapter(TabStrip& control, QTabWidget& tabs) : AdapterFor(control, tabs) {
        connect(&tabs, &QTabWidget::currentChanged, this, [this](int tab) {
            if (Bound() != nullptr) Bound()->SetTab(tab);
        });
    }

private:
    void ShowState() override {
        const QSignalBlocker blocker(View());
        for (int tab = 0; tab < View().count(); ++tab) View().setTabVisible(tab, Bound()->TabVisible(tab));
        View().setCurrentIndex(Bound()->Tab());
    }
};

}  // namespace

AdapterPtr MakeTabStripAdapter(Control& control, QWidget& widget) {
    return std::make_unique<TabStripAdapter>(static_cast<TabStrip&>(control),
                                             static_cast<QTabWidget&>(widget));
}

}  // namespace lumarin::qt
