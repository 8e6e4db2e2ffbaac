#pragma once

#include <QString>

class QAction;
class QDialog;
class QFileDialog;
class QMessageBox;
class QWidget;

/// Finds windows, controls and tools by the names that they carry as object names. What is not there or
/// cannot be used is a DriveError. The widgets belong to their windows; keep none beyond a command.
namespace host {

/// "frmLumarin.cmdMove(0)" taken apart; the index of a control array becomes the ending of its object
/// name ("cmdMove_0"). Without a dot there is only a window.
struct DriveTarget {
    QString window;
    QString control;
};
DriveTarget ParseTarget(const QString& text);

/// The window of this name, the visible one if there are several; null when there is none.
QWidget* TopLevelWindow(const QString& name);
QWidget& RequireWindow(const QString& name);
QWidget& RequireControl(const DriveTarget& target);
/// Null when the window has no such control.
QWidget* FindControl(QWidget& window, const QString& name);
/// Null when the window has no such tool.
QAction* FindTool(QWidget& window, const QString& name);
QAction& RequireTool(const DriveTarget& target);

/// Throws unless a person could use the window now: visible, enabled, and not behind a modal window.
void RequireUsable(const QWidget& window);
/// The same for a control, which must be visible and enabled itself.
void RequireUsableControl(const QWidget& control);

/// The modal window or open menu that waits for the user; null when nothing does.
QWidget* WaitingForUser();
/// The message box, or the file dialog, that waits; null when there is none.
QMessageBox* WaitingMessage();
QFileDialog* WaitingFileDialog();

}  // namespace host
