#include <gtest/gtest.h>
#include <QGuiApplication>

// Text is measured with the toolkit's font metrics, which need a GUI application.
int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
