#pragma once

#include <QJsonObject>

class QAction;
class QMenu;
class QMessageBox;
class QWidget;

/// What a person sees of widgets, as JSON.
namespace host {

/// {"caption","enabled","visible","focus","controls"}: the last two are control names.
QJsonObject WindowState(const QWidget& window);

/// Always "enabled", "visible" and "place" (left, top, width, height in the window, in logical pixels); the
/// rest depends on the kind: a text box and a label have their "text", a list view "columns", "rows" and
/// "selected" (-1 for none), a combo box "items", "selected" and "text", a slider "value", "minimum" and
/// "maximum", a button "caption" and, when it has two states, "checked"; "picture" is the place at which a
/// picture box shows its picture, of no width without one, and "box" that of a drawn rectangle.
QJsonObject ControlState(const QWidget& control);

/// {"name","caption","enabled","visible","checked"}
QJsonObject ToolState(const QAction& tool);

/// {"tools":[tool, ...]} without separators; a group has "tools" of its own.
QJsonObject MenuState(const QMenu& menu);

/// {"text","title","buttons","icon"}
QJsonObject MessageState(const QMessageBox& box);

/// A caption without its access key mark.
QString PlainCaption(const QString& caption);

}  // namespace host
