#pragma once

#include <string>

#include "TLSession.h"
#include "TLSessionScript.h"

namespace TMObjects {

// The set-up commands of a script for what a user sets in the host's options, so that a
// script's outcome never depends on the machine it runs on:
//
//   selection-mode new|add|subtract|intersect
//                                  the mode of the selection environment (identify asks it)
//   filter NAME none               the layer's standing query filter: none,
//   filter NAME where "CLAUSE"     a where clause,
//   filter NAME area "WKT"         or a shape the features must meet, in the layer's coordinates
//   display-field NAME FIELD       the field that names the layer's features (identify's tree)
//   setting angleunits|decimalplaces VALUE
//                                  the measuring settings "/terraloom/measure/angleunits" and
//                                  "/terraloom/measure/decimalplaces"; tlrun keeps the settings
//                                  of each session in a folder of its own, empty at the start
class TLEnvironmentSetup {
public:
    explicit TLEnvironmentSetup(TLSession& session) : mSession(session) {}

    static bool Knows(const std::string& verb);
    // False with the reason when the command is wrong.
    bool Run(const TLSessionCommand& command, std::string& error);

private:
    bool selectionMode(const TLSessionCommand& c, std::string& error);
    bool filter(const TLSessionCommand& c, std::string& error);
    bool setting(const TLSessionCommand& c, std::string& error);
    bool displayField(const TLSessionCommand& c, std::string& error);

    TLSession& mSession;
};

}  // namespace TMObjects
