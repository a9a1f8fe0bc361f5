// random_sessions: plays seeded random sessions against every built tool on the demo GeoPackage's
// layers and checks the host's promises after every event (see RandomSession).
//
//   random_sessions [--seeds N] [--first S] [--events E] [--plugin LIBRARY]
//
// Exit status 0 when every session held; 1 when one broke, printing its seed and the events
// before the break ("random_sessions --first SEED --seeds 1" plays it again); 2 on bad arguments.
#include <QTemporaryDir>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <map>
#include <set>
#include <string>

#include "RandomSession.h"
#include "TLDemoData.h"
#include "hostkit/TLGuardedApplication.h"
#include "hostkit/TLModalAnswerer.h"
#include "hostkit/TLPluginLoader.h"

namespace {

namespace fs = std::filesystem;

struct Options {
    unsigned seeds = 300;
    unsigned first = 1;
    int events = 60;
    std::string plugin = TMObjects::TLPluginLoader::DefaultPluginPath();
};

bool parse(int argc, char** argv, Options& o) {
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string option = argv[i];
        char* end = nullptr;
        const unsigned long value = std::strtoul(argv[i + 1], &end, 10);
        const bool number = *argv[i + 1] && *end == '\0';
        if (option == "--seeds" && number)
            o.seeds = unsigned(value);
        else if (option == "--first" && number)
            o.first = unsigned(value);
        else if (option == "--events" && number)
            o.events = int(value);
        else if (option == "--plugin")
            o.plugin = argv[i + 1];
        else
            return false;
    }
    return argc % 2 == 1;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    if (!parse(argc, argv, options)) {
        std::cerr << "usage: random_sessions [--seeds N] [--first S] [--events E] "
                     "[--plugin LIBRARY]\n";
        return 2;
    }
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    // The offscreen platform remarks on every dialog shown; the report is what matters here.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    int toolkitArgc = 1;
    TMObjects::TLGuardedApplication application(toolkitArgc, argv);
    std::setlocale(LC_NUMERIC, "C");
    QTemporaryDir folder;
    const fs::path demo = fs::path(folder.path().toStdString()) / "demo.gpkg";
    std::string error;
    if (!TMObjects::TLDemoData::Write(demo.string(), error)) {
        std::cerr << "random_sessions: " << error << "\n";
        return 2;
    }
    TMObjects::TLPluginLoader loader;
    if (!loader.Load(options.plugin)) {
        std::cerr << "random_sessions: " << loader.Error() << "\n";
        return 2;
    }
    // Dialogs a tool opens modally are dismissed, as Escape would.
    TMObjects::TLModalAnswerer answerer;
    answerer.Start();
    std::map<std::string, int> caught;
    std::set<std::string> otherKinds;
    for (unsigned seed = options.first; seed < options.first + options.seeds; ++seed) {
        const fs::path data = fs::path(folder.path().toStdString()) / "session.gpkg";
        fs::copy_file(demo, data, fs::copy_options::overwrite_existing);
        std::string report;
        bool held = false;
        {
            TMObjects::RandomSession session(seed, data.string());
            held = session.Play(options.events, report);
            for (const std::string& what : session.Caught()) ++caught[what.substr(0, 120)];
            otherKinds.insert(session.OtherKinds().begin(), session.OtherKinds().end());
        }
        if (!held) {
            std::cerr << "random_sessions: seed " << seed << " broke: " << report
                      << "\nreplay: random_sessions --first " << seed << " --seeds 1 --events "
                      << options.events << "\n";
            return 1;
        }
    }
    std::cout << options.seeds << " random sessions of " << options.events << " events held (seeds "
              << options.first << " to " << options.first + options.seeds - 1 << ")\n";
    for (const auto& [what, count] : caught)
        std::cout << "  caught " << count << "x: " << what << "\n";
    for (const std::string& what : otherKinds)
        std::cout << "  pending, refused at save: " << what << "\n";
    answerer.Stop();
    return 0;
}
