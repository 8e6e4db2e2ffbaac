#pragma once

#include <QStringList>

class QWidget;

namespace host {

/// "frmX > fraY > cmdZ" for each part of the window that a person works or reads and that the platform's
/// accessibility tree has no name for; hidden parts do not count.
QStringList UnnamedParts(QWidget& window);

}  // namespace host
