#include "host/drive/Hands.h"

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QPointer>
#include <QUrl>
#include <QWidget>
#include <QWindow>
#include <QtTest/QTest>

#include "host/drive/DriveError.h"

namespace host::hands {

namespace {

constexpr int DragSteps = 8;
// Longer than a double click takes: two clicks of two commands are never one double click.
constexpr int ClickGap = 1000;

QWindow* WindowHandle(QWidget& widget) {
    if (QWindow* handle = widget.window()->windowHandle()) return handle;
    throw DriveError("Window \"" + widget.window()->objectName() + "\" is not on the screen");
}

QPoint InWindow(QWidget& widget, QPoint point) {
    const QPoint place = widget.mapTo(widget.window(), point);
    // The input entry takes the exact corner for "anywhere".
    return place.isNull() ? QPoint(1, 1) : place;
}

QAbstractButton* ButtonHeldDown(const QWidget& window) {
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>())
        if (button->isDown()) return button;
    return nullptr;
}

/// A button whose access key was pressed shows itself pressed for a moment before it clicks.
void AwaitAnimatedClick(QWidget& window) {
    const QPointer<QAbstractButton> button = ButtonHeldDown(window);
    while (button && button->isDown() && QApplication::activePopupWidget() == nullptr)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

}  // namespace

void Activate(QWidget& window) {
    if (window.isActiveWindow()) return;
    window.activateWindow();
    QCoreApplication::processEvents();
}

void Click(QWidget& widget, QPoint point, Qt::KeyboardModifiers held) {
    QTest::mouseClick(WindowHandle(widget), Qt::LeftButton, held, InWindow(widget, point), ClickGap);
}

void DoubleClick(QWidget& widget, QPoint point) {
    QTest::mouseDClick(WindowHandle(widget), Qt::LeftButton, {}, InWindow(widget, point), ClickGap);
}

void RightClick(QWidget& widget, QPoint point) {
    // Menus open at the pointer.
    QCursor::setPos(widget.mapToGlobal(point));
    QTest::mouseClick(WindowHandle(widget), Qt::RightButton, {}, InWindow(widget, point), ClickGap);
}

void Drag(QWidget& widget, QPoint from, QPoint to) {
    Drag(widget, from, [to] { return to; });
}

void Drag(QWidget& widget, QPoint from, const std::function<QPoint()>& to) {
    QPointer<QWindow> handle = WindowHandle(widget);
    const QPoint start = InWindow(widget, from);
    QTest::mouseMove(handle, start);
    QTest::mousePress(handle, Qt::LeftButton, {}, start, ClickGap);
    const QPoint end = InWindow(widget, to());
    for (int step = 1; step <= DragSteps && handle; ++step)
        QTest::mouseMove(handle, start + (end - start) * step / DragSteps);
    if (handle) QTest::mouseRelease(handle, Qt::LeftButton, {}, end);
}

void PressKey(QWidget& widget, const KeyStroke& stroke) {
    widget.setFocus(Qt::OtherFocusReason);
    const QPointer<QWidget> window = widget.window();
    QTest::sendKeyEvent(QTest::Click, WindowHandle(widget), stroke.key, stroke.text, stroke.modifiers);
    if (window && stroke.modifiers.testFlag(Qt::AltModifier)) AwaitAnimatedClick(*window);
}

void Type(QWidget& widget, const QString& text) {
    QPointer<QWidget> target = &widget;
    for (const QChar character : text)
        if (target) PressKey(*target, KeyFor(character));
}

void DropFiles(QWidget& widget, const QStringList& paths) {
    const QPoint middle = widget.rect().center();
    QWidget* target = widget.childAt(middle);
    if (target == nullptr) target = &widget;
    while (!target->acceptDrops() && target != &widget) target = target->parentWidget();
    if (!target->acceptDrops()) throw DriveError("Control \"" + widget.objectName() + "\" takes no files");

    QMimeData data;
    QList<QUrl> urls;
    for (const QString& path : paths) urls += QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    data.setUrls(urls);
    const QPoint place = target->mapFrom(&widget, middle);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    if (!enter.isAccepted()) throw DriveError("Control \"" + widget.objectName() + "\" refuses these files");
    QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &move);
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &drop);
    // The control hears of a drop when the event has ended, by an event of its own; the one posted here comes
    // behind it.
    bool heard = false;
    QMetaObject::invokeMethod(
        qApp, [&] { heard = true; }, Qt::QueuedConnection);
    while (!heard) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

}  // namespace host::hands
