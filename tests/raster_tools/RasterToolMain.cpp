#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>

// The dialogs are real widgets, so the tests run inside an application on the offscreen
// platform.
int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
