#include <gtest/gtest.h>

#include <QApplication>

#include "platform/qt/QtDesktop.h"

namespace lumarin::qt {
void AddTestDesigns();  // made by the build of windows/
}

int main(int argumentCount, char** arguments) {
    ::testing::InitGoogleTest(&argumentCount, arguments);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    lumarin::qt::SetUpApplication(application);
    lumarin::qt::AddTestDesigns();
    return RUN_ALL_TESTS();
}
