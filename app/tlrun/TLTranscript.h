#pragma once

#include <ostream>
#include <string>

#include "hostkit/TLHostBuddy.h"
#include "hostkit/TLModalAnswerer.h"
#include "tlmap/TLEditor.h"
#include "tlsde/TLFeatureTable.h"

namespace TMObjects {

// The record of a session, one line each:
//   "> ..."       a command of the script, as written
//   "# ..."       a comment of the script
//   "  [kind] ..." what the host saw: the tool's prompts and history lines, features written,
//                 editor steps, dialogs answered, saves
//   "  ok", "  FAIL line N: ..."   an expectation and whether it held
//   "  ERROR line N: ..."          a command that could not be run; the session stops
//   "= ..."       the summary
// Line breaks inside a text are written as "\n", so that each event stays one line, and paths
// inside the session's working folder are written relative to it, so that the record of a
// session reads the same wherever it ran.
class TLTranscript : public TLFeatureTableListener, public TLEditorListener {
public:
    explicit TLTranscript(std::ostream& out) : mOut(out) {}
    void SetWorkdir(const std::string& folder) { mWorkdir = folder; }

    void Command(const std::string& text);
    void Comment(const std::string& text);
    void Event(const std::string& kind, const std::string& text);
    void Ok();
    void Fail(int line, const std::string& what);
    void Error(int line, const std::string& what);
    void Summary(int commands, int expectations);
    int Failures() const { return mFailures; }
    // A failure that belongs to no expectation: a tool that threw, a dialog answer that fitted
    // no button, an answer never asked for.
    void CountFailure() { ++mFailures; }

    // When muted nothing is written: the session's own teardown is no part of the record.
    void Mute() { mMuted = true; }

    void HostEvent(const TLHostEvent& event);
    void Dialog(const TLModalAnswerer::Record& record);

    void OnFeatureChanged(TLFeatureTable* table, Change change, int id) override;
    void OnOperationCommitted(const TLString& label) override;
    void OnOperationAborted(const TLString& label) override;
    void OnUndo(const TLString& label) override;
    void OnRedo(const TLString& label) override;

    std::string OneLine(const std::string& text) const;

private:
    std::ostream& mOut;
    std::string mWorkdir;
    int mFailures = 0;
    bool mMuted = false;
};

}  // namespace TMObjects
