// tlrun: runs a session script of the plugin's tools on an open host without a window, and
// writes what the user would have seen as a transcript on the standard output.
//
//   tlrun [--plugin LIBRARY] [--workdir DIR] SCRIPT.tls [DATA ...]
//   tlrun make-demo FILE.gpkg
//
// DATA are data sources opened before the script's first command. Paths in the script are taken
// from DIR (the working directory when not given).
// Exit status: 0 every expectation held; 1 one did not (or a tool failed), and the session stopped
// there, saying "FILE:LINE: expected ..., got ..." on the standard error; 2 the script or its
// arguments are wrong ("FILE:LINE: ..."), found before any event ran and anything was written.

#include <QSettings>
#include <QTemporaryDir>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "TLDemoData.h"
#include "TLSessionRunner.h"
#include "TLSessionScript.h"
#include "hostkit/TLGuardedApplication.h"
#include "hostkit/TLPluginLoader.h"

namespace {

namespace fs = std::filesystem;

struct Arguments {
    std::string workdir = ".";
    std::string plugin = TMObjects::TLPluginLoader::DefaultPluginPath();
    std::string script;
    std::vector<std::string> data;
};

int usage() {
    std::cerr << "usage: tlrun [--plugin LIBRARY] [--workdir DIR] SCRIPT.tls [DATA ...]\n"
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

bool parse(int argc, char** argv, Arguments& a) {
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if ((arg == "--workdir" || arg == "--plugin") && i + 1 < argc)
            (arg == "--workdir" ? a.workdir : a.plugin) = argv[++i];
        else if (!arg.empty() && arg[0] == '-')
            return false;
        else if (a.script.empty())
            a.script = arg;
        else
            a.data.push_back(fs::absolute(arg).string());
    }
    return !a.script.empty();
}

}  // namespace

int main(int argc, char** argv) {
    chooseHeadlessPlatform();
    if (argc == 3 && std::string(argv[1]) == "make-demo") return makeDemo(argv[2]);
    Arguments arguments;
    if (!parse(argc, argv, arguments)) return usage();
    // The toolkit takes options of its own from the command line ("-plugin" among them): it is
    // given the program's name only, and the arguments stay the runner's.
    int toolkitArgc = 1;
    TMObjects::TLGuardedApplication application(toolkitArgc, argv);
    // The toolkit sets the locale from the environment; numbers in scripts, WKT and transcripts
    // are written with a point whatever the user's locale.
    std::setlocale(LC_NUMERIC, "C");
    // Each session starts from settings of its own, empty, and leaves the user's alone: nothing
    // a script expects depends on what was saved on the machine (`setting` sets what it needs).
    QTemporaryDir settingsFolder;
    if (!settingsFolder.isValid()) {
        std::cerr << "tlrun: cannot make a settings folder for the session\n";
        return 2;
    }
    for (QSettings::Format format : {QSettings::NativeFormat, QSettings::IniFormat})
        for (QSettings::Scope scope : {QSettings::UserScope, QSettings::SystemScope})
            QSettings::setPath(format, scope, settingsFolder.path());
    TMObjects::TLSessionScript script;
    std::string error;
    if (!script.Load(arguments.script, error)) {
        std::cerr << TMObjects::TLSessionScript::Escaped(error) << "\n";
        return 2;
    }
    std::vector<TMObjects::TLSessionCommand> opens;
    for (const std::string& data : arguments.data)
        opens.push_back(TMObjects::TLSessionScript::Make(0, {"open", data}));
    script.Prepend(opens);
    const fs::path folder = absoluteFolder(arguments.workdir);
    std::error_code failed;
    fs::create_directories(folder, failed);
    if (failed) {
        std::cerr << "tlrun: cannot make the working folder " << folder << "\n";
        return 2;
    }
    TMObjects::TLSessionRunner runner(std::cout, std::cerr, folder, arguments.plugin);
    return runner.Run(script);
}
