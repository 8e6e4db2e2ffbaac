#include <gtest/gtest.h>

#include <QCoreApplication>

// For tests that draw pictures outside of a window: the toolkit looks for its plugins beside an application.
int main(int argumentCount, char** arguments) {
    ::testing::InitGoogleTest(&argumentCount, arguments);
    const QCoreApplication application(argumentCount, arguments);
    return RUN_ALL_TESTS();
}
