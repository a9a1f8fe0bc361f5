#pragma once

#include <string>

#include "TLSession.h"
#include "TLSessionScript.h"

namespace TMObjects {

// The commands of a script that act as the user: picking tools, the pointer and keys at the view,
// lines typed on the command window, the Edit menu, and dialogs.
//
//   tool NAME                   picks a tool by class name, registered name or place in the pool:
//                               the tool in use is left, then Init(buddy) and activate()
//   deactivate                  leaves the tool in use
//   move [B] X Y                the pointer moves to device pixel (X, Y), with button B held
//                               (none when left out)
//   down|up|click|dblclick B X Y
//                               the pointer at device pixel (X, Y) with button B (left, right,
//                               middle); "@X,Y" for "X Y" aims at the pixel that shows the map
//                               point (X, Y). click is down and up, dblclick is down, up,
//                               double-click, up
//   key CODE                    a key press: a Qt key code, or its name (Escape, Return, Z, F2)
//   type [TEXT]                 a line typed on the command window: the rest of the line, or
//                               exactly the text in quotes; alone, the empty line
//   undo, redo                  the editor's undo and redo
//   save [NAME]                 writes the pending edits of a layer (or of every layer)
//   set NAME ID FIELD VALUE     an attribute change as the attribute editor makes it, one step
//   dialog set OBJECT VALUE     types or picks a value in a widget of a dialog on screen
//   dialog click OBJECT         clicks a button of a dialog on screen
//   answer ok|yes|no|cancel     the answer to the next modal dialog
//   answer choose COMBO ITEM    the next modal dialog: ITEM chosen in its combo box COMBO, then
//                               accepted
//   answer value TEXT           the next modal dialog (an input dialog): TEXT given, then
//                               accepted
//   file PATH                   the file chosen in the next file dialog
// Each event's result goes to the transcript; `expect result` looks at the main one: the press of
// a click, the double-click of a dblclick.
class TLSessionActions {
public:
    explicit TLSessionActions(TLSession& session) : mSession(session) {}

    static bool Knows(const std::string& verb);
    // False with the reason when the command is wrong, or cannot be carried out.
    bool Run(const TLSessionCommand& command, std::string& error);

private:
    bool tool(const TLSessionCommand& c, std::string& error);
    bool pointer(const TLSessionCommand& c, std::string& error);
    bool aim(const TLSessionCommand& c, int& x, int& y, std::string& error);
    bool key(const TLSessionCommand& c, std::string& error);
    bool type(const TLSessionCommand& c);
    bool undo(const TLSessionCommand& c, std::string& error);
    bool save(const TLSessionCommand& c, std::string& error);
    void saveLayer(TLFeatureLayer* layer, bool named);
    bool set(const TLSessionCommand& c, std::string& error);
    bool dialog(const TLSessionCommand& c, std::string& error);
    bool answer(const TLSessionCommand& c, std::string& error);
    bool answerWith(const TLSessionCommand& c, std::string& error);

    // Tells the transcript what an event entry returned and keeps it when it is the main one.
    bool returned(const char* entry, bool result, bool main = true);

    TLSession& mSession;
};

}  // namespace TMObjects
