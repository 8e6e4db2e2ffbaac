#pragma once

#include <QString>
#include <Qt>

namespace host {

/// A key as a keyboard sends it.
struct KeyStroke {
    Qt::Key key = Qt::Key_unknown;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    QString text;
};

/// "Enter", "Ctrl+V", "Shift+Tab", "F1", "a", "+" ... Names are not case-sensitive. Throws DriveError for
/// a key that it does not know.
KeyStroke ParseKey(const QString& name);

/// The key that types this character.
KeyStroke KeyFor(QChar character);

}  // namespace host
