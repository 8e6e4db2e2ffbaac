#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QPixmap>
#include <QWidget>

#include "host/drive/Commands.h"
#include "host/drive/DriveError.h"
#include "host/drive/ScreenReader.h"
#include "host/drive/WidgetFinder.h"
#include "host/drive/WidgetState.h"

namespace host::commands {

namespace {

constexpr int UsualWait = 60000;

QJsonValue Done() { return QJsonObject{{"ok", true}}; }

int Milliseconds(const QString& text) {
    const int milliseconds = DriveNumber(text, "number of milliseconds");
    if (milliseconds < 0) throw DriveError("A time cannot be negative");
    return milliseconds;
}

QJsonValue StateOf(const DriveTarget& target) {
    QWidget& window = RequireWindow(target.window);
    if (target.control.isEmpty()) return WindowState(window);
    if (const QWidget* control = FindControl(window, target.control)) return ControlState(*control);
    if (const QAction* tool = FindTool(window, target.control)) return ToolState(*tool);
    throw DriveError("Window \"" + target.window + "\" has neither a control nor a tool \"" + target.control +
                     "\"");
}

}  // namespace

Step Get(const QStringList& words) {
    const DriveTarget target = ParseTarget(words[0]);
    return {.window = target.window, .read = [target] { return StateOf(target); }};
}

Step Windows(const QStringList&) {
    return {.read = [] {
        QStringList names;
        for (const QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && !window->objectName().isEmpty() && window->windowType() != Qt::Popup)
                names += window->objectName();
        names.sort();
        return QJsonObject{{"windows", QJsonArray::fromStringList(names)}};
    }};
}

Step Unnamed(const QStringList& words) {
    return {.window = words[0], .read = [name = words[0]] {
                const QStringList parts = UnnamedParts(RequireWindow(name));
                return QJsonObject{{"unnamed", QJsonArray::fromStringList(parts)}};
            }};
}

Step Message(const QStringList&) {
    return {.untilIdle = true, .read = []() -> QJsonValue {
                const QMessageBox* box = WaitingMessage();
                return box != nullptr ? QJsonValue(MessageState(*box)) : QJsonValue();
            }};
}

Step Shot(const QStringList& words) {
    const QString &name = words[0], &path = words[1];
    return {.window = name, .read = [name, path]() -> QJsonValue {
                QWidget& window = RequireWindow(name);
                if (!window.isVisible()) throw DriveError("Window \"" + name + "\" is not visible");
                QDir().mkpath(QFileInfo(path).absolutePath());
                if (!window.grab().save(path, "PNG")) throw DriveError("Cannot write \"" + path + "\"");
                return Done();
            }};
}

Step Wait(const QStringList& words) {
    const QString& name = words[0];
    const int patience = words.size() > 1 ? Milliseconds(words[1]) : UsualWait;
    const auto isVisible = [name] {
        const QWidget* window = TopLevelWindow(name);
        return window != nullptr && window->isVisible();
    };
    return {.ready = isVisible, .patience = patience, .read = [name, isVisible]() -> QJsonValue {
                if (!isVisible()) throw DriveError("Window \"" + name + "\" has not appeared");
                return Done();
            }};
}

Step Pause(const QStringList& words) {
    return {.ready = [] { return false; }, .patience = Milliseconds(words[0]), .read = Done};
}

}  // namespace host::commands
