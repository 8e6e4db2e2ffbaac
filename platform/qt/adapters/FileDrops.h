#pragma once

#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <string>
#include <vector>

namespace lumarin::qt {

/// Drags of files over a widget that accepts drops. True when `event` belongs to a drag; dropped files are
/// then in `dropped`. Anything may be dropped, so that the user can be told why it cannot be used.
bool HandleFileDrag(QEvent& event, std::vector<std::string>& dropped);

/// The same for the widget of a control that takes drops. The control, if `find` still finds it, hears of a
/// drop when the event has ended: the program that the files come from stands still until then. `owner` lives
/// no longer than what `find` uses.
template <class Find>
bool HandleDrag(QEvent& event, QObject& owner, QWidget& widget, Find find) {
    std::vector<std::string> dropped;
    if (!HandleFileDrag(event, dropped)) return false;
    if (event.type() != QEvent::Drop) return true;
    widget.activateWindow();
    QTimer::singleShot(0, &owner, [find, dropped] {
        auto* const control = find();
        if (control == nullptr) return;
        if (dropped.empty())
            control->DropOther();
        else
            control->DropFiles(dropped);
    });
    return true;
}

}  // namespace lumarin::qt
