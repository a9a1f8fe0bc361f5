// Runs the shell's test classes under the offscreen platform: all of them, or the one named by
// the first argument (the remaining arguments go to QTest).

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <iostream>

#include "ShellFixture.h"
#include "hostkit/TLGuardedApplication.h"
#include "hostkit/TLPluginLoader.h"

using namespace TMObjects;

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    // The application the desktop runs: a dialog's failing slot is reported, not fatal.
    TLGuardedApplication app(argc, argv);
    // The shell keeps its settings (snapping) in the user's; the tests keep theirs apart, and
    // each test starts from the defaults a new user finds (see ShellFixture).
    QTemporaryDir settings;
    QCoreApplication::setOrganizationName(QStringLiteral("tlpluginactionex-tests"));
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    TLPluginLoader loader;
    if (!loader.Load(TLPluginLoader::DefaultPluginPath())) {
        std::cerr << "plugin: " << loader.Error() << "\n";
        return 1;
    }
    QStringList arguments = app.arguments();
    QString only;
    if (arguments.size() > 1 && ShellTestRegistry::Classes().count(arguments.at(1))) {
        only = arguments.at(1);
        arguments.removeAt(1);
    }
    int failures = 0;
    for (const auto& [name, factory] : ShellTestRegistry::Classes()) {
        if (!only.isEmpty() && name != only) continue;
        std::unique_ptr<QObject> test = factory();
        failures += QTest::qExec(test.get(), arguments);
    }
    loader.Unload();
    return failures == 0 ? 0 : 1;
}
