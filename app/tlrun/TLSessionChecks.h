#pragma once

#include <string>

#include "TLSession.h"
#include "TLSessionScript.h"

namespace TMObjects {

// The expectations of a script. Each says what a user would see, and the transcript says whether
// it held; a failed one does not stop the script.
//
//   expect prompt TEXT                   the prompt now shown
//   expect message TEXT                  the last line of the command history
//   expect returned true|false           what the tool's last event entry returned
//   expect count LAYER N                 features in the layer
//   expect feature LAYER ID|last WKT     the feature's geometry, in the layer's coordinates,
//                                        vertex by vertex within the tolerance
//   expect value LAYER ID|last FIELD TEXT   a field's value as text; "(null)" for none
//   expect undo N [LABEL]                undo steps, and the label of the next one undone
//   expect pending LAYER N               changes not yet saved
//   expect stored LAYER N                features of the layer in its data store, read afresh
//   expect stored-feature LAYER ID|last WKT  a stored feature's geometry, read afresh
//   expect save-error LAYER TEXT         the last save of the layer failed, saying TEXT
//   expect dialog TEXT                   the text of the last dialog answered contains TEXT
class TLSessionChecks {
public:
    explicit TLSessionChecks(TLSession& session) : mSession(session) {}

    // True when the expectation could be judged, whether it held or not (the transcript has the
    // verdict). False with the reason when it makes no sense (an unknown layer, a bad number).
    bool Run(const TLSessionCommand& command, std::string& error);

private:
    // Each gives the verdict through `failure`: empty when the expectation held.
    bool prompt(const TLSessionCommand& c, std::string& failure);
    bool message(const TLSessionCommand& c, std::string& failure);
    bool returned(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool count(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool feature(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool value(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool undo(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool pending(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool stored(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool storedFeature(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool saveError(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool dialog(const TLSessionCommand& c, std::string& failure);

    // The feature `word` names in the table: an id or "last", the highest id.
    static bool featureId(const TLFeatureTable& table, const std::string& word, int& id,
                          std::string& error);
    // The layer as its data store has it now, read anew.
    std::unique_ptr<TMWorkspace> reread(TLFeatureLayer* layer, std::string& error) const;

    TLSession& mSession;
};

}  // namespace TMObjects
