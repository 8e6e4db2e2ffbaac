#include "platform/qt/adapters/FileDrops.h"

#include <QDropEvent>
#include <QMimeData>

namespace lumarin::qt {

bool HandleFileDrag(QEvent& event, Dropped& dropped) {
    const QEvent::Type type = event.type();
    if (type == QEvent::DragLeave) return true;
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
    auto& drag = static_cast<QDropEvent&>(event);
    // Rows that are dragged within the program are the list's own affair.
    if (drag.source() != nullptr && !drag.mimeData()->hasUrls()) return false;
    drag.setDropAction(Qt::CopyAction);  // a dropped file stays where it is
    drag.setAccepted(true);
    if (type == QEvent::Drop) dropped = TakeDropped(*drag.mimeData());
    return true;
}

}  // namespace lumarin::qt
