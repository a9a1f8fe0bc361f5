// tlhost: the desktop shell that shows the plugin's tools at a map view.
//
//   tlhost [--plugin LIBRARY] [DATA ...]
//
// Without DATA it opens the demo GeoPackage, demo/demo.gpkg, looked for below the working
// directory and then in the source tree the program was built from.

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QMessageBox>

#include "TLCommandWindow.h"
#include "TLShellWindow.h"
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
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tlhost"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Desktop shell of the actionex map tools"));
    parser.addHelpOption();
    const QCommandLineOption pluginOption(
        QStringLiteral("plugin"), QStringLiteral("The plugin library to load."),
        QStringLiteral("library"), QString::fromStdString(TLPluginLoader::DefaultPluginPath()));
    parser.addOption(pluginOption);
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
        if (data.isEmpty()) {
            const QString demo = demoPath();
            if (demo.isEmpty())
                window.Commands()->AppendHostLine(QStringLiteral(
                    "demo/demo.gpkg was not found: generate it with scripts/demo, or open data "
                    "from the File menu."));
            else
                data << demo;
        }
        for (const QString& path : data) window.OpenData(path);
        window.show();
        status = app.exec();
    }
    loader.Unload();
    return status;
}
