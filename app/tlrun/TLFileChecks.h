#pragma once

#include <string>

#include "TLSession.h"
#include "TLSessionScript.h"

namespace TMObjects {

// The expectations of a script about the files a tool wrote (paths relative to the working
// folder):
//
//   expect file PATH missing               no such file was written
//   expect file PATH contains "TEXT"       the file holds the text
//   expect file PATH lacks "TEXT"          it does not
//   expect file PATH same-as OTHER         the two files are byte for byte the same
//   expect file PATH rules N               a style document with N "sld:Rule" elements
//   expect library PATH "NAME, NAME"       a symbol library holding these styles, in order
class TLFileChecks {
public:
    explicit TLFileChecks(TLSession& session) : mSession(session) {}

    static bool Knows(const std::string& what);
    // As TLSessionChecks::Run.
    bool Run(const TLSessionCommand& command, std::string& failure, std::string& error);

private:
    bool file(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool library(const TLSessionCommand& c, std::string& failure, std::string& error);

    TLSession& mSession;
};

}  // namespace TMObjects
