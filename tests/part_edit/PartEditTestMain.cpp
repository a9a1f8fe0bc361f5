#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>

// The layer dialog of the part copy is a real widget, so the tests run inside an application on
// the offscreen platform.
int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
