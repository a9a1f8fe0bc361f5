// tlrun: runs session scripts of the plugin's tools on an open host without a window, and writes
// what the user would have seen as a transcript.
//
//   tlrun [--workdir DIR] [--plugin LIBRARY] SCRIPT.tls
//   tlrun make-demo FILE.gpkg
//
// Exit status: 0 every expectation held, 1 something failed, 2 the session could not run.

#include <QApplication>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "TLDemoData.h"
#include "TLSessionRunner.h"
#include "TLSessionScript.h"
#include "hostkit/TLPluginLoader.h"

namespace {

namespace fs = std::filesystem;

int usage() {
    std::cerr << "usage: tlrun [--workdir DIR] [--plugin LIBRARY] SCRIPT.tls\n"
                 "       tlrun make-demo FILE.gpkg\n";
    return 2;
}

// Tools show dialogs; without a display they go to the offscreen platform.
void chooseHeadlessPlatform() {
    if (std::getenv("QT_QPA_PLATFORM") || std::getenv("DISPLAY") || std::getenv("WAYLAND_DISPLAY"))
        return;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
}

fs::path absoluteFolder(const std::string& folder) {
    fs::path path = fs::absolute(folder).lexically_normal();
    if (path.has_parent_path() && path.filename().empty()) path = path.parent_path();
    return path;
}

int makeDemo(const std::string& file) {
    std::string error;
    if (!TMObjects::TLDemoData::Write(file, error)) {
        std::cerr << "tlrun: " << error << "\n";
        return 2;
    }
    std::cout << "demo GeoPackage written to " << file << "\n";
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    chooseHeadlessPlatform();
    // The toolkit takes options of its own from the command line ("-plugin" among them): it is
    // given the program's name only, and the arguments stay the runner's.
    int toolkitArgc = 1;
    QApplication application(toolkitArgc, argv);
    std::string workdir = ".", plugin = TMObjects::TLPluginLoader::DefaultPluginPath(), script;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "make-demo" && i + 2 == argc) return makeDemo(argv[i + 1]);
        if (arg == "--workdir" && i + 1 < argc)
            workdir = argv[++i];
        else if (arg == "--plugin" && i + 1 < argc)
            plugin = argv[++i];
        else if (script.empty() && arg[0] != '-')
            script = arg;
        else
            return usage();
    }
    if (script.empty()) return usage();
    TMObjects::TLSessionScript session;
    std::string error;
    if (!session.Load(script, error)) {
        std::cerr << "tlrun: " << error << "\n";
        return 2;
    }
    const fs::path folder = absoluteFolder(workdir);
    std::error_code failed;
    fs::create_directories(folder, failed);
    if (failed) {
        std::cerr << "tlrun: cannot make the working folder " << folder << "\n";
        return 2;
    }
    TMObjects::TLSessionRunner runner(std::cout, folder, plugin);
    return runner.Run(session);
}
