#include "host/drive/ScreenReader.h"

#include <QAccessible>
#include <QSet>
#include <QWidget>

namespace host {

namespace {

/// What a person works or reads, whatever it belongs to.
const QSet<QAccessible::Role> Named = {
    QAccessible::Button,      QAccessible::ButtonMenu, QAccessible::EditableText, QAccessible::ComboBox,
    QAccessible::RadioButton, QAccessible::CheckBox,   QAccessible::Slider,       QAccessible::Tree,
    QAccessible::Table,       QAccessible::List,       QAccessible::PageTab,      QAccessible::MenuItem,
    QAccessible::ProgressBar, QAccessible::Graphic,    QAccessible::Animation,    QAccessible::SpinBox,
    QAccessible::Dialog,      QAccessible::Window};

bool HasName(const QAccessibleInterface& part) { return !part.text(QAccessible::Name).trimmed().isEmpty(); }

/// A picture on a stage is what the stage is called.
bool IsOnNamedStage(const QAccessibleInterface& part) {
    return part.role() == QAccessible::Graphic && part.parent()->role() == QAccessible::Grouping &&
           HasName(*part.parent());
}

/// What takes the keyboard itself and says neither what it is nor what it is called.
bool IsNothing(const QAccessibleInterface& part) {
    const auto* widget = qobject_cast<const QWidget*>(part.object());
    return part.state().focusable && (widget == nullptr || widget->focusProxy() == nullptr) &&
           (part.role() == QAccessible::NoRole || part.role() == QAccessible::Client);
}

void FindUnnamed(const QAccessibleInterface& part, const QString& path, QStringList& unnamed) {
    if (part.role() == QAccessible::ScrollBar || part.state().invisible) return;
    const QString own = part.object() != nullptr ? part.object()->objectName() : QString("item");
    const QString here = path.isEmpty() ? own : path + " > " + own;
    if ((Named.contains(part.role()) || IsNothing(part)) && !HasName(part) && !IsOnNamedStage(part))
        unnamed << here;
    for (int i = 0; i < part.childCount(); ++i)
        if (const QAccessibleInterface* child = part.child(i); child != nullptr)
            FindUnnamed(*child, here, unnamed);
}

}  // namespace

QStringList UnnamedParts(QWidget& window) {
    QStringList unnamed;
    if (const auto* whole = QAccessible::queryAccessibleInterface(&window); whole != nullptr)
        FindUnnamed(*whole, {}, unnamed);
    return unnamed;
}

}  // namespace host
