#include <QSignalBlocker>
#include <QTabWidget>

#include "forms/Controls.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/adapters/Adapters.h"

namespace lumarin::qt {

namespace {

constexpr int WidestNote = 160;  // pixels

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
        for (int tab = 0; tab < View().count(); ++tab) {
            View().setTabVisible(tab, Bound()->TabVisible(tab));
            View().setTabText(tab, ToQt(Bound()->Captions()[static_cast<std::size_t>(tab)]) + NoteText(tab));
        }
        View().setCurrentIndex(Bound()->Tab());
    }

    QString NoteText(int tab) const {
        const QString note = ToQt(Bound()->TabNote(tab));
        if (note.isEmpty()) return {};
        // A "&" would mark an access key.
        return ": " + View().fontMetrics().elidedText(note, Qt::ElideRight, WidestNote).replace('&', "&&");
    }
};

}  // namespace

AdapterPtr MakeTabStripAdapter(Control& control, QWidget& widget) {
    return std::make_unique<TabStripAdapter>(static_cast<TabStrip&>(control),
                                             static_cast<QTabWidget&>(widget));
}

}  // namespace lumarin::qt
