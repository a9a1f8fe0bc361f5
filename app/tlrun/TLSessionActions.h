#pragma once

#include <functional>
#include <string>

#include "TLSession.h"
#include "TLSessionScript.h"

class QWidget;

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
//   param KEY VALUE             the host sets a parameter of the tool in use (setParam)
//   dialog set OBJECT VALUE     types or picks a value in a widget of a dialog on screen
//   dialog click OBJECT         clicks a button of a dialog on screen
//   dialog click-item OBJECT "ITEM"
//                               clicks the item of a tree or list that shows ITEM (the first,
//                               depth first; "PARENT > CHILD" for one under another)
//   dialog click-cell OBJECT ROW COLUMN
//                               clicks a cell of a table, rows and columns from 0
//   dialog edit OBJECT ROW COLUMN TEXT
//                               edits a cell of a table through its delegate, whose checks may
//                               refuse the text (a date is typed yyyy-MM-dd)
//   dialog menu OBJECT ITEM ENTRY
//                               opens the context menu over the item that shows ITEM and picks
//                               ENTRY
//   answer ok|yes|no|cancel     the answer to the next modal dialog
//   answer set OBJECT VALUE     before that answer, a widget of the modal dialog takes a value
//   answer click OBJECT         a button of the modal dialog is clicked (its own OK, say)
//   answer expect OBJECT "T"    what a widget of the modal dialog shows; the session fails when
//                               it shows something else
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
    bool dialogItem(const TLSessionCommand& c, std::string& error);
    // Finds the widget on screen and lets `act` take it as the user's hand would, guarded; a
    // widget that is missing or refuses is trouble for the session.
    void handWidget(const std::string& name, const char* what,
                    const std::function<bool(QWidget*, std::string&)>& act);
    bool answer(const TLSessionCommand& c, std::string& error);
    bool modalStep(const TLSessionCommand& c, std::string& error);
    bool itemView(const TLSessionCommand& c, std::string& error);
    bool param(const TLSessionCommand& c, std::string& error);
    bool answerWith(const TLSessionCommand& c, std::string& error);

    // Tells the transcript what an event entry returned and keeps it when it is the main one.
    bool returned(const char* entry, bool result, bool main = true);

    TLSession& mSession;
};

}  // namespace TMObjects
