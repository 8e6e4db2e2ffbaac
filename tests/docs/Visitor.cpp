// Uses the example host as an agent would: enters its listing, closes the window. It is linked beside the
// example and starts with the application's first turn of events.

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QTreeView>

#include <cstdio>

namespace {

QWidget* PhotoWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->objectName() == "frmLumarin") return widget;
    return nullptr;
}

void Visit() {
    QWidget* window = PhotoWindow();
    if (window == nullptr || !window->isVisible()) {
        std::puts("no photo window");
        QApplication::exit(1);
        return;
    }
    auto* number = window->findChild<QLineEdit*>("txtID");
    for (const char digit : {'1', '0', '0', '1'}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_0 + (digit - '0'), Qt::NoModifier,
                        QString(QLatin1Char(digit)));
        QApplication::sendEvent(number, &press);
    }
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
    QApplication::sendEvent(number, &enter);
    const auto* model = window->findChild<QTreeView*>("RecList")->model();
    if (model->rowCount() == 1)
        std::printf("listing %s shown\n", qPrintable(model->index(0, 0).data().toString()));
    window->close();
    QTimer::singleShot(0, [] { QApplication::exit(0); });
}

void Arrange() { QTimer::singleShot(100, Visit); }
Q_COREAPP_STARTUP_FUNCTION(Arrange)

}  // namespace
