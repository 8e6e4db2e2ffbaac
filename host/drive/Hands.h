#pragma once

#include <QPoint>
#include <QStringList>

#include <functional>

#include "host/drive/KeyStroke.h"

class QWidget;

/// Mouse and keyboard: input goes through the windowing system's entry, so that focus, shortcuts, mouse
/// capture and context menus behave as for a person. Points are logical pixels relative to the widget; the
/// widget that really lies under the point gets the event. Each call returns when the handlers have run,
/// which may be long after a modal window was opened and closed.
namespace host::hands {

/// Brings the window to the front and makes it the one that has the keyboard.
void Activate(QWidget& window);

void Click(QWidget& widget, QPoint point, Qt::KeyboardModifiers held = {});
void DoubleClick(QWidget& widget, QPoint point);
void RightClick(QWidget& widget, QPoint point);
/// Moves to `from`, presses the left button, moves to `to` in steps and lets go.
void Drag(QWidget& widget, QPoint from, QPoint to);
/// The same where the goal is known only when the drag has begun.
void Drag(QWidget& widget, QPoint from, const std::function<QPoint()>& to);

/// Gives the widget the focus and sends the key to it.
void PressKey(QWidget& widget, const KeyStroke& stroke);
void Type(QWidget& widget, const QString& text);

/// Drags files onto the middle of the widget. Throws DriveError when what lies there takes no files.
void DropFiles(QWidget& widget, const QStringList& paths);

}  // namespace host::hands
