#pragma once

#include <QIcon>
#include <QString>

class QWidget;

namespace lumarin::qt {

/// The icon of this name in the desktop's icon naming: the desktop theme's, else one of our own drawings,
/// which take the colours of the palette. A null icon for a name that neither has.
QIcon ToolIcon(const QString& name);

/// Gives every button and picture in a window the icon that its property "iconName" names. A picture
/// whose property "iconIsPicture" is true shows it as large as it fits, else as a faint place holder.
void ApplyIconNames(QWidget& window);

}  // namespace lumarin::qt
