#pragma once

#include <QEvent>

#include <string>
#include <vector>

namespace lumarin::qt {

/// Drags of files over a widget that accepts drops. True when `event` belongs to a drag; dropped files are
/// then in `dropped`. Anything may be dropped, so that the user can be told why it cannot be used.
bool HandleFileDrag(QEvent& event, std::vector<std::string>& dropped);

/// The same for a control that takes drops: it hears what was dropped.
template <class Target>
bool HandleDrag(QEvent& event, Target& target) {
    std::vector<std::string> dropped;
    if (!HandleFileDrag(event, dropped)) return false;
    if (event.type() != QEvent::Drop) return true;
    if (dropped.empty()) {
        target.DropOther();
    } else {
        target.DropFiles(dropped);
    }
    return true;
}

}  // namespace lumarin::qt
