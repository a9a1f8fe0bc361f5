#include "TLSessionRunner.h"

#include <QCoreApplication>
#include <exception>

#include "TLEnvironmentSetup.h"
#include "TLSession.h"
#include "TLSessionActions.h"
#include "TLSessionChecks.h"
#include "TLSessionSetup.h"
#include "TLSessionStoreActions.h"
#include "TLStyleSetup.h"
#include "TLTranscript.h"

namespace TMObjects {

void TLSessionRunner::report(const TLSessionScript& script, int line, const std::string& what) {
    mErrors << TLSessionScript::Escaped(script.Path());
    if (line > 0) mErrors << ":" << line;
    mErrors << ": " << TLSessionScript::Escaped(what) << "\n";
    mErrors.flush();
}

bool TLSessionRunner::runCommand(TLSession& session, const TLSessionCommand& command,
                                 std::string& failure, std::string& error) {
    // Whatever goes wrong in the runner itself is a command that could not be carried out:
    // no script brings the session down.
    try {
        if (command.verb == "expect") return TLSessionChecks(session).Run(command, failure, error);
        if (TLSessionSetup::Knows(command.verb)) return TLSessionSetup(session).Run(command, error);
        if (TLEnvironmentSetup::Knows(command.verb))
            return TLEnvironmentSetup(session).Run(command, error);
        if (TLStyleSetup::Knows(command.verb)) return TLStyleSetup(session).Run(command, error);
        if (TLSessionActions::Knows(command.verb))
            return TLSessionActions(session).Run(command, error);
        if (TLSessionStoreActions::Knows(command.verb))
            return TLSessionStoreActions(session).Run(command, error);
        error = "unknown verb \"" + command.verb + "\"";
    } catch (const std::exception& e) {
        error = std::string("the command failed: ") + e.what();
    } catch (...) {
        error = "the command failed";
    }
    return false;
}

bool TLSessionRunner::expectsFailure(const TLSessionCommand& command) {
    return command.verb == "expect" && !command.words.empty() && command.words[0] == "failure";
}

// The command after the one at `index`, comments left out; an empty one at the end.
TLSessionCommand TLSessionRunner::nextCommand(const std::vector<TLSessionCommand>& commands,
                                              std::size_t index) {
    for (std::size_t i = index + 1; i < commands.size(); ++i)
        if (commands[i].verb != "#") return commands[i];
    return TLSessionCommand();
}

// A failure the host caught in an event is fine only where the script expects it, on the line
// straight after that event; elsewhere the session stops at the event.
bool TLSessionRunner::failedUnexpectedly(TLSession& session, std::string& why) {
    if (session.Caught().empty()) return false;
    why = "expected the tool to run, got an exception in " + session.Caught();
    session.Transcript().Fail(why);
    return true;
}

bool TLSessionRunner::check(TLSession& session, const TLSessionScript& script) {
    session.SetDry(true);
    for (const TLSessionCommand& command : script.Commands()) {
        if (command.verb == "#") continue;
        std::string failure, error;
        if (!runCommand(session, command, failure, error)) {
            report(script, command.line, error);
            return false;
        }
    }
    session.SetDry(false);
    return true;
}

TLSessionRunner::Status TLSessionRunner::play(TLSession& session, const TLSessionCommand& command,
                                              std::string& why) {
    std::string failure;
    const bool ran = runCommand(session, command, failure, why);
    // Whatever the command left for the event loop (a deferred deletion, a dialog's repaint)
    // happens before the next one, as it would between two user actions.
    QCoreApplication::processEvents();
    if (!ran) {
        session.Transcript().Error(why);
        return Broken;
    }
    if (failure.empty()) failure = session.Trouble();
    if (failure.empty()) {
        if (command.verb == "expect") session.Transcript().Ok();
        return Passed;
    }
    why = failure;
    session.Transcript().Fail(failure);
    return Failed;
}

TLSessionRunner::Status TLSessionRunner::Run(const TLSessionScript& script) {
    TLTranscript transcript(mOut);
    transcript.SetWorkdir(mWorkdir.string());
    TLSession session(transcript, mWorkdir);
    std::string error;
    if (!session.Start(mPluginPath, error)) {
        report(script, 0, error);
        return Broken;
    }
    if (!check(session, script)) return Broken;
    transcript.Comment("# session " + script.Path());
    int commands = 0, expectations = 0;
    const std::vector<TLSessionCommand>& all = script.Commands();
    for (std::size_t i = 0; i < all.size(); ++i) {
        const TLSessionCommand& command = all[i];
        if (command.verb == "#") {
            transcript.Comment(command.text);
            continue;
        }
        transcript.Command(command.text);
        ++commands;
        expectations += command.verb == "expect" ? 1 : 0;
        Status status = play(session, command, error);
        if (status == Passed && !expectsFailure(nextCommand(all, i)) &&
            failedUnexpectedly(session, error))
            status = Failed;
        if (status == Passed) continue;
        transcript.Summary(commands, expectations,
                           "stopped at line " + std::to_string(command.line));
        report(script, command.line, error);
        return status;
    }
    if (session.Answerer().Pending() > 0) {
        error = "expected a dialog for each answer given, got " +
                std::to_string(session.Answerer().Pending()) + " answers never asked for";
        transcript.Fail(error);
        transcript.Summary(commands, expectations, "stopped at the end");
        report(script, script.Commands().empty() ? 0 : script.Commands().back().line, error);
        return Failed;
    }
    transcript.Summary(commands, expectations, std::string());
    return Passed;
}

}  // namespace TMObjects
