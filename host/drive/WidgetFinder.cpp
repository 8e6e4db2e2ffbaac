#include "host/drive/WidgetFinder.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QRegularExpression>

#include "host/drive/DriveError.h"

namespace host {

DriveTarget ParseTarget(const QString& text) {
    const qsizetype dot = text.indexOf('.');
    DriveTarget target{text.left(dot), dot < 0 ? QString() : text.mid(dot + 1)};
    static const QRegularExpression arrayElement(R"(^(.+)\((\d+)\)$)");
    if (const auto match = arrayElement.match(target.control); match.hasMatch())
        target.control = match.captured(1) + "_" + match.captured(2);
    return target;
}

QWidget* TopLevelWindow(const QString& name) {
    QWidget* found = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() != name || name.isEmpty()) continue;
        if (widget->isVisible()) return widget;
        found = widget;
    }
    return found;
}

QWidget& RequireWindow(const QString& name) {
    if (QWidget* window = TopLevelWindow(name)) return *window;
    throw DriveError("There is no window \"" + name + "\"");
}

QWidget* FindControl(QWidget& window, const QString& name) {
    for (QWidget* widget : window.findChildren<QWidget*>(name))
        if (widget->window() == &window) return widget;
    return nullptr;
}

QWidget& RequireControl(const DriveTarget& target) {
    QWidget& window = RequireWindow(target.window);
    if (target.control.isEmpty())
        throw DriveError("A control must be named: \"" + target.window + ".CONTROL\"");
    if (QWidget* control = FindControl(window, target.control)) return *control;
    throw DriveError("Window \"" + target.window + "\" has no control \"" + target.control + "\"");
}

QAction* FindTool(QWidget& window, const QString& name) { return window.findChild<QAction*>(name); }

QAction& RequireTool(const DriveTarget& target) {
    QWidget& window = RequireWindow(target.window);
    QAction* tool = target.control.isEmpty() ? nullptr : FindTool(window, target.control);
    if (tool != nullptr) return *tool;
    throw DriveError("Window \"" + target.window + "\" has no tool \"" + target.control + "\"");
}

void RequireUsable(const QWidget& window) {
    const QString name = window.objectName();
    if (!window.isVisible()) throw DriveError("Window \"" + name + "\" is not visible");
    if (const QWidget* modal = QApplication::activeModalWidget();
        modal != nullptr && modal != &window && !modal->isAncestorOf(&window)) {
        const QString what = modal->objectName().isEmpty() ? modal->windowTitle() : modal->objectName();
        throw DriveError("Window \"" + name + "\" takes no input while \"" + what + "\" waits");
    }
    if (!window.isEnabled()) throw DriveError("Window \"" + name + "\" is disabled");
}

void RequireUsableControl(const QWidget& control) {
    RequireUsable(*control.window());
    if (!control.isVisible()) throw DriveError("Control \"" + control.objectName() + "\" is not visible");
    if (!control.isEnabled()) throw DriveError("Control \"" + control.objectName() + "\" is disabled");
}

QWidget* WaitingForUser() {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup;
    return QApplication::activeModalWidget();
}

QMessageBox* WaitingMessage() { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }

QFileDialog* WaitingFileDialog() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr) return nullptr;
    if (auto* dialog = qobject_cast<QFileDialog*>(modal)) return dialog;
    return modal->findChild<QFileDialog*>();
}

}  // namespace host
