#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

#include "forms/Controls.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/adapters/Adapters.h"

namespace lumarin::qt {

namespace {

constexpr int EnterCode = 13;
constexpr int BackspaceCode = 8;
constexpr int PasteCode = 22;
constexpr int NoCode = 0;

/// The character that a key types, as a control's key filter counts it; NoCode for a key that types none.
int CodeOf(const QKeyEvent& key) {
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) return EnterCode;
    if (key.key() == Qt::Key_Backspace) return BackspaceCode;
    if (key.matches(QKeySequence::Paste)) return PasteCode;
    if (key.modifiers() == Qt::ControlModifier)
        return key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z ? key.key() - Qt::Key_A + 1 : NoCode;
    const QString text = key.text();
    return !text.isEmpty() && text[0].isPrint() ? text[0].unicode() : NoCode;
}

class TextBoxAdapter final : public AdapterFor<TextBox, QLineEdit> {
public:
    TextBoxAdapter(TextBox& control, QLineEdit& edit) : AdapterFor(control, edit) {
        edit.setPlaceholderText(ToQt(control.Texts().placeholder));
        connect(&edit, &QLineEdit::textChanged, this, [this](const QString& text) {
            if (Bound() != nullptr) Bound()->SetText(FromQt(text));
        });
    }

private:
    void ShowState() override {
        const QString text = ToQt(Bound()->Text());
        if (text == View().text()) return;
        const QSignalBlocker blocker(View());
        View().setText(text);
    }

    void SelectAllText() override { View().selectAll(); }

    bool WidgetEvent(QEvent& event) override {
        if (event.type() == QEvent::ShortcutOverride && IsForTheWindow(static_cast<QKeyEvent&>(event))) {
            event.ignore();
            return true;
        }
        if (event.type() == QEvent::KeyPress) {
            const int code = CodeOf(static_cast<QKeyEvent&>(event));
            return code != NoCode && !Bound()->PressKey(code);
        }
        if (event.type() == QEvent::InputMethod)
            return !PassesFilter(static_cast<QInputMethodEvent&>(event).commitString());
        return false;
    }

    /// Undo and redo that have nothing to do in the text are the window's.
    bool IsForTheWindow(const QKeyEvent& key) const {
        return (key.matches(QKeySequence::Undo) && !View().isUndoAvailable()) ||
               (key.matches(QKeySequence::Redo) && !View().isRedoAvailable());
    }

    /// Text that an input method has composed is taken whole or not at all.
    bool PassesFilter(const QString& text) const {
        for (const QChar character : text)
            if (Bound() == nullptr || !Bound()->PressKey(character.unicode())) return false;
        return true;
    }
};

}  // namespace

AdapterPtr MakeTextBoxAdapter(Control& control, QWidget& widget) {
    return std::make_unique<TextBoxAdapter>(static_cast<TextBox&>(control), static_cast<QLineEdit&>(widget));
}

}  // namespace lumarin::qt
