// tlhost: the desktop shell that shows the plugin's tools at a map view.
//
//   tlhost [--plugin LIBRARY] [--screenshot PNG] [DATA ...]
//
// --screenshot draws the window once the data are open, writes it to PNG and quits: a look at
// the real program from a script, under Xvfb or the offscreen platform. It says on the standard
// output what it opened, and dismisses any dialog (a source that fails to open) rather than wait
// for a user who is not there.
//
// Without DATA it opens a working copy of the demo GeoPackage, demo/demo.gpkg, looked for below
// the working directory and then in the source tree the program was built from: the demo's own
// file is never written.

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QMessageBox>
#include <QTimer>
#include <iostream>

#include "TLCommandWindow.h"
#include "TLDemoWorkingCopy.h"
#include "TLShellWindow.h"
#include "hostkit/TLGuardedApplication.h"
#include "hostkit/TLModalAnswerer.h"
#include "hostkit/TLPluginLoader.h"

using namespace TMObjects;

namespace {

QString demoPath() {
    const QStringList candidates = {QStringLiteral("demo/demo.gpkg"),
                                    QStringLiteral(TL_SOURCE_DIR "/demo/demo.gpkg")};
    for (const QString& candidate : candidates)
        if (QFileInfo::exists(candidate)) return candidate;
    return QString();
}

}  // namespace

int main(int argc, char** argv) {
    // A failure in a dialog's slot is reported on the command window, not the end of the
    // program (the window points the application at its dispatcher).
    TLGuardedApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tlhost"));
    // Where the shell keeps its settings (snapping): ~/.config/tlpluginactionex/tlhost.conf.
    QApplication::setOrganizationName(QStringLiteral("tlpluginactionex"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Desktop shell of the actionex map tools"));
    parser.addHelpOption();
    const QCommandLineOption pluginOption(
        QStringLiteral("plugin"), QStringLiteral("The plugin library to load."),
        QStringLiteral("library"), QString::fromStdString(TLPluginLoader::DefaultPluginPath()));
    parser.addOption(pluginOption);
    const QCommandLineOption screenshotOption(
        QStringLiteral("screenshot"), QStringLiteral("Write the window to a PNG file and quit."),
        QStringLiteral("png"));
    parser.addOption(screenshotOption);
    parser.addPositionalArgument(QStringLiteral("data"),
                                 QStringLiteral("Data sources to open (default: the demo)."));
    parser.process(app);

    TLPluginLoader loader;
    if (!loader.Load(parser.value(pluginOption).toStdString())) {
        QMessageBox::critical(nullptr, QStringLiteral("tlhost"),
                              QStringLiteral("The plugin could not be loaded: %1")
                                  .arg(QString::fromStdString(loader.Error())));
        return 1;
    }

    int status = 0;
    {
        // The window, and with it every tool's hold on the view, goes before the plugin.
        TLShellWindow window;
        QStringList data = parser.positionalArguments();
        TLDemoWorkingCopy demoCopy;
        QString demo;
        if (data.isEmpty()) {
            demo = demoPath();
            QString error;
            if (demo.isEmpty())
                window.Commands()->AppendHostLine(QStringLiteral(
                    "demo/demo.gpkg was not found: generate it with scripts/demo, or open data "
                    "from the File menu."));
            else if (!demoCopy.Make(demo, error))
                window.Commands()->AppendHostLine(error);
            else
                data << demoCopy.Path();
        }
        const bool scripted = parser.isSet(screenshotOption);
        TLModalAnswerer answerer;
        if (scripted) answerer.Start();
        for (const QString& path : data) {
            const bool opened = window.OpenData(path);
            // The demo is named as the user knows it; where its copy lies, the history says.
            const QString shown = path == demoCopy.Path() ? demo : path;
            if (opened && shown != path) window.Commands()->AppendHistory(demoCopy.Note(demo));
            if (scripted)
                std::cout << (opened ? "opened " : "could not open ") << shown.toStdString()
                          << "\n";
        }
        window.show();
        if (scripted) {
            // Once the event loop has laid the window out and drawn it.
            QTimer::singleShot(0, &window, [&] {
                const bool saved = window.grab().save(parser.value(screenshotOption));
                app.exit(saved ? 0 : 1);
            });
        }
        status = app.exec();
    }
    loader.Unload();
    return status;
}
