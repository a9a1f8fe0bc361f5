#pragma once

#include <map>
#include <ostream>
#include <string>

#include "hostkit/TLHostBuddy.h"
#include "hostkit/TLModalAnswerer.h"
#include "tlmap/TLEditor.h"
#include "tlsde/TLFeatureTable.h"

namespace TMObjects {

// The record of a session, one line for each thing that happened, in order:
//   "> ..."            a command of the script, as written
//   "# ..."            a comment of the script
//   "  [kind] ..."     what the host saw: the tool's prompts, history lines and notices, message
//                      boxes and other dialogs, editor operations started and committed, features
//                      added, deleted and changed, each event's result, failures caught
//   "  ok"             an expectation that held
//   "  FAIL ..."       the expectation that did not; the session stops there
//   "  ERROR ..."      a command that could not be carried out; the session stops there
//   "= ..."            the summary
// Line breaks inside a text are written as "\n", so that each happening stays one line, and paths
// inside the session's working folder are written relative to it, so that the record of a session
// reads the same wherever it ran.
class TLTranscript : public TLFeatureTableListener, public TLEditorListener {
public:
    explicit TLTranscript(std::ostream& out) : mOut(out) {}
    void SetWorkdir(const std::string& folder) { mWorkdir = folder; }

    void Command(const std::string& text);
    void Comment(const std::string& text);
    void Event(const std::string& kind, const std::string& text);
    void Ok();
    void Fail(const std::string& what);
    void Error(const std::string& what);
    void Summary(int commands, int expectations, const std::string& stop);

    // When muted nothing is written: the session's own teardown is no part of the record.
    void Mute() { mMuted = true; }

    void HostEvent(const TLHostEvent& event);
    void Dialog(const TLModalAnswerer::Record& record);

    // Keeps what the table's features look like now, so that a later deletion can say what went
    // and an attribute change which values changed.
    void Remember(TLFeatureTable* table);
    void Remember(TLFeatureTable* table, int id);
    void Forget(TLFeatureTable* table);

    void OnFeatureChanged(TLFeatureTable* table, Change change, int id) override;
    void OnOperationStarted(const TLString& label) override;
    void OnOperationCommitted(const TLString& label) override;
    void OnOperationAborted(const TLString& label) override;
    void OnUndo(const TLString& label) override;
    void OnRedo(const TLString& label) override;

    std::string OneLine(const std::string& text) const;

private:
    struct Seen {
        std::string wkt;
        std::map<std::string, std::string> values;
    };
    static Seen look(const TLFeature& feature);
    // "name=Alder depth=42.5": the values of `now` that differ from `before`.
    static std::string differences(const Seen& before, const Seen& now);

    std::ostream& mOut;
    std::string mWorkdir;
    bool mMuted = false;
    std::map<TLFeatureTable*, std::map<int, Seen>> mSeen;
};

}  // namespace TMObjects
