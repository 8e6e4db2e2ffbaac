#include "host/drive/KeyStroke.h"

#include <QHash>

#include "host/drive/DriveError.h"

namespace host {

namespace {

const QHash<QString, KeyStroke>& NamedKeys() {
    static const QHash<QString, KeyStroke> keys = {
        {"enter", {Qt::Key_Return, {}, "\r"}},
        {"escape", {Qt::Key_Escape, {}, "\x1b"}},
        {"delete", {Qt::Key_Delete, {}, "\x7f"}},
        {"backspace", {Qt::Key_Backspace, {}, "\b"}},
        {"tab", {Qt::Key_Tab, {}, "\t"}},
        {"space", {Qt::Key_Space, {}, " "}},
        {"plus", {Qt::Key_Plus, {}, "+"}},
        {"minus", {Qt::Key_Minus, {}, "-"}},
        {"up", {Qt::Key_Up, {}, {}}},
        {"down", {Qt::Key_Down, {}, {}}},
        {"left", {Qt::Key_Left, {}, {}}},
        {"right", {Qt::Key_Right, {}, {}}},
        {"home", {Qt::Key_Home, {}, {}}},
        {"end", {Qt::Key_End, {}, {}}},
        {"pageup", {Qt::Key_PageUp, {}, {}}},
        {"pagedown", {Qt::Key_PageDown, {}, {}}},
        {"insert", {Qt::Key_Insert, {}, {}}},
    };
    return keys;
}

KeyStroke BareKey(const QString& name) {
    if (name.size() == 1) return KeyFor(name[0]);
    const QString lower = name.toLower();
    if (const auto found = NamedKeys().find(lower); found != NamedKeys().end()) return *found;
    bool isNumber = false;
    const int number = lower.mid(1).toInt(&isNumber);
    if (lower.startsWith('f') && isNumber && number >= 1 && number <= 12)
        return {static_cast<Qt::Key>(Qt::Key_F1 + number - 1), {}, {}};
    throw DriveError("There is no key \"" + name + "\"");
}

Qt::KeyboardModifier Modifier(const QString& name) {
    const QString lower = name.toLower();
    if (lower == "ctrl") return Qt::ControlModifier;
    if (lower == "shift") return Qt::ShiftModifier;
    if (lower == "alt") return Qt::AltModifier;
    throw DriveError("There is no modifier \"" + name + "\"");
}

}  // namespace

KeyStroke KeyFor(QChar character) {
    // Keys carry the code of their upper-case letter.
    const char16_t code = character.toUpper().unicode();
    return {static_cast<Qt::Key>(code), {}, QString(character)};
}

KeyStroke ParseKey(const QString& name) {
    QString rest = name;
    Qt::KeyboardModifiers modifiers;
    for (qsizetype plus = rest.indexOf('+'); plus > 0 && plus + 1 < rest.size(); plus = rest.indexOf('+')) {
        modifiers |= Modifier(rest.left(plus));
        rest = rest.mid(plus + 1);
    }
    KeyStroke stroke = BareKey(rest);
    stroke.modifiers = modifiers;
    if (modifiers & Qt::ShiftModifier) {
        stroke.text = stroke.text.toUpper();
        if (stroke.key == Qt::Key_Tab) stroke = {Qt::Key_Backtab, modifiers, {}};
    }
    if (modifiers & Qt::ControlModifier) {
        const bool isLetter = stroke.key >= Qt::Key_A && stroke.key <= Qt::Key_Z;
        stroke.text = isLetter ? QString(QChar(stroke.key - Qt::Key_A + 1)) : QString();
    } else if (modifiers & Qt::AltModifier) {
        stroke.text.clear();
    }
    return stroke;
}

}  // namespace host
