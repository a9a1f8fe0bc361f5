#pragma once

#include <filesystem>
#include <ostream>
#include <string>

#include "TLSessionScript.h"

namespace TMObjects {

class TLSession;

// Runs a session script against the plugin: first dry, every command checked without doing
// anything, then for real, writing the transcript. Needs a QApplication, since tools show
// dialogs.
class TLSessionRunner {
public:
    enum Status { Passed = 0, Failed = 1, Broken = 2 };

    // The transcript goes to `out`; the one line that says why a session failed or could not
    // run goes to `errors`, as "FILE:LINE: ...".
    TLSessionRunner(std::ostream& out, std::ostream& errors, std::filesystem::path workdir,
                    std::string pluginPath)
        : mOut(out),
          mErrors(errors),
          mWorkdir(std::move(workdir)),
          mPluginPath(std::move(pluginPath)) {}

    // Passed: every command ran and every expectation held. Failed: an expectation did not hold
    // (or a tool failed, or a dialog answer went amiss); the session stopped there. Broken: the
    // script or its data are wrong, found before anything ran; or, rarely, a command could not be
    // carried out.
    Status Run(const TLSessionScript& script);

private:
    // Goes through the script without acting; false with the line and the reason.
    bool check(TLSession& session, const TLSessionScript& script);
    static TLSessionCommand nextCommand(const std::vector<TLSessionCommand>& commands,
                                        std::size_t index);
    static bool expectsFailure(const TLSessionCommand& command);
    static bool failedUnexpectedly(TLSession& session, std::string& why);
    // One command for real. Broken when it could not be carried out, Failed when the session
    // must stop at it, Passed otherwise.
    Status play(TLSession& session, const TLSessionCommand& command, std::string& why);
    bool runCommand(TLSession& session, const TLSessionCommand& command, std::string& failure,
                    std::string& error);
    void report(const TLSessionScript& script, int line, const std::string& what);

    std::ostream& mOut;
    std::ostream& mErrors;
    std::filesystem::path mWorkdir;
    std::string mPluginPath;
};

}  // namespace TMObjects
