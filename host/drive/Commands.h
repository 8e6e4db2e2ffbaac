#pragma once

#include <QStringList>

#include "host/drive/Step.h"

namespace host {

/// The step for a command line's words. Throws DriveError for an unknown command, wrong arguments or a
/// malformed name; "quit" is not among them.
Step MakeStep(const QStringList& words);

// The commands by kind; each takes the words after the command's name, their number checked.
namespace commands {

// Reading: what is on the screen.
Step Get(const QStringList& words);
Step Windows(const QStringList& words);
Step Unnamed(const QStringList& words);
Step Message(const QStringList& words);
Step Shot(const QStringList& words);
Step Wait(const QStringList& words);
Step Pause(const QStringList& words);

// Acting on a window's controls.
Step Set(const QStringList& words);
Step Key(const QStringList& words);
Step Press(const QStringList& words);
Step Tool(const QStringList& words);
Step Select(const QStringList& words);
Step Double(const QStringList& words);
Step Menu(const QStringList& words);
Step Drag(const QStringList& words);
Step Reorder(const QStringList& words);
Step Drop(const QStringList& words);
Step Close(const QStringList& words);

// What waits for the user, the clipboard, and the browser.
Step Answer(const QStringList& words);
Step Choose(const QStringList& words);
Step Clipboard(const QStringList& words);
Step Browser(const QStringList& words);

}  // namespace commands

/// A whole number; throws DriveError naming `what`.
int DriveNumber(const QString& text, const QString& what);

}  // namespace host
