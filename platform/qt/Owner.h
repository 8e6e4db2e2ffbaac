#pragma once

#include <QRect>
#include <QWidget>

#include "platform/system/HostWindow.h"

namespace lumarin::qt {

/// Above which window another is shown: one of the toolkit's, one of a host's that is not, or none.
struct Owner {
    QWidget* widget = nullptr;
    platform::WindowNumber host = 0;

    /// Puts the window above its owner, now that it is about to be seen.
    void Own(QWidget& window) const;
    /// The owner's place with its frame; nothing when there is none.
    QRect Place(const QWidget& window) const;
};

}  // namespace lumarin::qt
