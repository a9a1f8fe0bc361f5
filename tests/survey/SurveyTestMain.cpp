#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdlib>

// The dialogs are real widgets, so the tests run inside an application on the offscreen
// platform, with settings of their own in a folder that goes with the run.
int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication application(argc, argv);
    QTemporaryDir settingsDir;
    QCoreApplication::setOrganizationName("terraloom-survey-tests");
    QCoreApplication::setApplicationName("survey_tests");
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settingsDir.path());
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
