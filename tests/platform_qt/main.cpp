#include <gtest/gtest.h>

#include <QApplication>

#include "platform/qt/QtDesktop.h"

int main(int argumentCount, char** arguments) {
    ::testing::InitGoogleTest(&argumentCount, arguments);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LUMARIN_DRIVEN", "1");
    QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    lumarin::qt::SetUpApplication(application);
    return RUN_ALL_TESTS();
}
