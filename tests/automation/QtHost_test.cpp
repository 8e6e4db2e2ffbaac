#include <QorLumarin.h>

#include <QApplication>
#include <QPushButton>
#include <QStyle>
#include <QTimer>

#include <algorithm>

#include "automation/TestHost.h"

namespace lumarin::automation {

/// Its own windows and looks stay its own, and so does the moment of its end.
TEST_F(TestHost, Job_WithinAnApplicationOfTheHosts_UsesItAndLeavesItAsItIs) {
    const QStyle* const style = QApplication::style();
    const QPalette palette = QApplication::palette();
    const QStringList plugins = QApplication::libraryPaths();
    int lastClosed = 0, ticks = 0, presses = 0;
    QObject::connect(qApp, &QGuiApplication::lastWindowClosed, [&] { ++lastClosed; });
    QPushButton own("The host's");
    QObject::connect(&own, &QPushButton::clicked, [&] { ++presses; });
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(1);

    const auto job = NewClass();
    host.onEndJob = [&](int) { job->UnloadObj(); };
    ASSERT_EQ(Start(*job.Get()), S_OK);
    ASSERT_TRUE(Until([&] { return Seen(PhotoWindow) != nullptr && ticks > 0; }));
    EXPECT_TRUE(std::ranges::any_of(QApplication::topLevelWidgets(), [](QWidget* widget) {
        return widget->windowTitle() == "Listing Photos";
    }));
    own.click();
    PostMessageW(Seen(PhotoWindow), WM_CLOSE, 0, 0);
    EXPECT_TRUE(Until([&] { return !host.endedJobs.empty(); }));

    EXPECT_EQ(presses, 1);
    EXPECT_EQ(lastClosed, 0);
    EXPECT_EQ(QApplication::style(), style);
    EXPECT_EQ(QApplication::palette(), palette);
    EXPECT_EQ(QApplication::libraryPaths(), plugins);
    EXPECT_TRUE(QApplication::quitOnLastWindowClosed());
    EXPECT_EQ(QApplication::applicationName(), "host with Qt");
}

}  // namespace lumarin::automation

int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    QApplication application(count, arguments);
    QApplication::setApplicationName("host with Qt");
    return RUN_ALL_TESTS();
}
