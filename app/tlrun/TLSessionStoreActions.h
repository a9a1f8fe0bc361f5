#pragma once

#include <string>

#include "TLSession.h"
#include "TLSessionScript.h"

namespace TMObjects {

// The commands of a script for layers shared with other editors (a PostGIS table), as the user
// gives them after a refused save or to see what others saved:
//
//   reload NAME                 reads again the features the last save of the layer was refused
//                               for (another editor changed or deleted them); their pending
//                               edits are dropped, every other edit stays
//   refresh [NAME]              reads again every feature at hand without a pending edit, of a
//                               layer (or of every layer): what others saved appears
//
// Each tells the transcript what it did; a layer of a file store has nothing to read again.
class TLSessionStoreActions {
public:
    explicit TLSessionStoreActions(TLSession& session) : mSession(session) {}

    static bool Knows(const std::string& verb);
    // False with the reason when the command is wrong, or cannot be carried out.
    bool Run(const TLSessionCommand& command, std::string& error);

private:
    bool reload(const TLSessionCommand& c, std::string& error);
    bool refresh(const TLSessionCommand& c, std::string& error);
    void refreshLayer(TLFeatureLayer* layer);

    TLSession& mSession;
};

}  // namespace TMObjects
