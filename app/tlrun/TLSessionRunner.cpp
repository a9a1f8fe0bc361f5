#include "TLSessionRunner.h"

#include <QCoreApplication>

#include "TLSession.h"
#include "TLSessionActions.h"
#include "TLSessionChecks.h"
#include "TLTranscript.h"

namespace TMObjects {

TLSessionRunner::Status TLSessionRunner::Run(const TLSessionScript& script) {
    TLTranscript transcript(mOut);
    transcript.SetWorkdir(mWorkdir.string());
    transcript.Comment("# session " + script.Path());
    TLSession session(transcript, mWorkdir);
    std::string error;
    if (!session.Start(mPluginPath, error)) {
        transcript.Error(0, error);
        transcript.Summary(0, 0);
        return Broken;
    }
    TLSessionActions actions(session);
    TLSessionChecks checks(session);
    int commands = 0, expectations = 0;
    for (const TLSessionCommand& command : script.Commands()) {
        if (command.verb == "#") {
            transcript.Comment(command.text);
            continue;
        }
        transcript.Command(command.text);
        ++commands;
        const bool expectation = command.verb == "expect";
        expectations += expectation ? 1 : 0;
        const bool ran = expectation ? checks.Run(command, error) : actions.Run(command, error);
        // Whatever the command left for the event loop (a deferred deletion, a dialog's
        // repaint) happens before the next one, as it would between two user actions.
        QCoreApplication::processEvents();
        if (!ran) {
            transcript.Error(command.line, error);
            session.Stop();
            transcript.Summary(commands, expectations);
            return Broken;
        }
    }
    if (session.Answerer().Pending() > 0) {
        transcript.Event("note", std::to_string(session.Answerer().Pending()) +
                                     " queued answers were never asked for");
        transcript.CountFailure();
    }
    session.Stop();
    transcript.Summary(commands, expectations);
    return transcript.Failures() == 0 ? Passed : Failed;
}

}  // namespace TMObjects
