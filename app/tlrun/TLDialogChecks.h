#pragma once

#include <string>

#include "TLSession.h"
#include "TLSessionScript.h"

class QWidget;

namespace TMObjects {

// The expectations of a script about the dialogs on screen, as a user sees them:
//
//   expect dialog NAME|"TITLE"             a window of that object name or title is shown
//   expect no-dialog NAME|"TITLE"          none is
//   expect enabled OBJECT, expect disabled OBJECT
//                                          a widget on screen takes input, or is greyed out
//   expect placeholder OBJECT "T"          the grey hint text of a line edit or text box
//   expect tree OBJECT "T"                 the items of a tree or list, as
//                                          "ROOT (CHILD, CHILD); ROOT" (first column)
//   expect cell OBJECT ROW COLUMN "T"      one cell of a table, rows and columns from 0
//   expect widget OBJECT ~VALUE TOL        a widget shows a number within TOL of VALUE (the
//                                          number may be followed by a unit: "12.5 m")
//   expect tool NAME|none                  the tool in use, by class name; none when no tool
//                                          is active (also after a tool ended itself)
class TLDialogChecks {
public:
    explicit TLDialogChecks(TLSession& session) : mSession(session) {}

    static bool Knows(const std::string& what);
    // As TLSessionChecks::Run.
    bool Run(const TLSessionCommand& command, std::string& failure, std::string& error);
    // `expect widget OBJECT ~VALUE TOL`: true when the command has this form (and then it is
    // checked); false for the plain text form.
    bool NumericWidget(const TLSessionCommand& command, std::string& failure, std::string& error);

private:
    bool dialog(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool enabled(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool placeholder(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool tree(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool cell(const TLSessionCommand& c, std::string& failure, std::string& error);
    bool tool(const TLSessionCommand& c, std::string& failure, std::string& error);
    // The widget on screen, or null with the failure.
    QWidget* widget(const std::string& name, std::string& failure) const;

    TLSession& mSession;
};

}  // namespace TMObjects
