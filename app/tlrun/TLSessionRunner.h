#pragma once

#include <filesystem>
#include <ostream>
#include <string>

#include "TLSessionScript.h"

namespace TMObjects {

// Runs a session script against the plugin and writes its transcript. Needs a QApplication,
// since tools show dialogs.
class TLSessionRunner {
public:
    enum Status { Passed = 0, Failed = 1, Broken = 2 };

    TLSessionRunner(std::ostream& out, std::filesystem::path workdir, std::string pluginPath)
        : mOut(out), mWorkdir(std::move(workdir)), mPluginPath(std::move(pluginPath)) {}

    // Passed: every command ran and every expectation held. Failed: an expectation did not
    // hold, a tool failed, or a dialog answer went amiss. Broken: the session could not run to
    // its end (a command it does not know, data it cannot open, the plugin not loaded).
    Status Run(const TLSessionScript& script);

private:
    std::ostream& mOut;
    std::filesystem::path mWorkdir;
    std::string mPluginPath;
};

}  // namespace TMObjects
