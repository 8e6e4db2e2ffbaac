#include "platform/qt/adapters/FileDrops.h"

#include <QDropEvent>
#include <QMimeData>

#include "platform/qt/Conversions.h"

namespace lumarin::qt {

bool HandleFileDrag(QEvent& event, std::vector<std::string>& dropped) {
    const QEvent::Type type = event.type();
    if (type == QEvent::DragLeave) return true;
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
    auto& drag = static_cast<QDropEvent&>(event);
    const std::vector<std::string> files = FilesOf(*drag.mimeData());
    drag.setDropAction(Qt::CopyAction);  // a dropped file stays where it is
    drag.setAccepted(true);
    if (type == QEvent::Drop) dropped = files;
    return true;
}

}  // namespace lumarin::qt
