#pragma once

#include <QEvent>
#include <QTimer>
#include <QWidget>

#include "platform/qt/adapters/DroppedPictures.h"

namespace lumarin::qt {

/// Drags from outside over a widget that accepts drops. True when `event` belongs to one; what was dropped is
/// then in `dropped`. Anything may be dropped, so that the user can be told why it cannot be used.
bool HandleFileDrag(QEvent& event, Dropped& dropped);

/// The same for the widget of a control that takes drops. The control, if `find` still finds it, hears of a
/// drop when the event has ended: the program that the files come from stands still until then. `owner` lives
/// no longer than what `find` uses.
template <class Find>
bool HandleDrag(QEvent& event, QObject& owner, QWidget& widget, Find find) {
    Dropped dropped;
    if (!HandleFileDrag(event, dropped)) return false;
    if (event.type() != QEvent::Drop) return true;
    widget.activateWindow();
    QTimer::singleShot(0, &owner, [find, dropped] {
        auto* const control = find();
        if (control == nullptr) return;
        if (dropped.paths.empty())
            control->DropOther();
        else
            control->DropFiles(dropped.paths);
    });
    return true;
}

}  // namespace lumarin::qt
