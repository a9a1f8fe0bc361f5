#pragma once

#include <string>

#include "TLSession.h"
#include "TLSessionScript.h"

namespace TMObjects {

// The commands of a script that act: on data, on the map and view, and as the user at the view
// and the command window.
//
//   demo-data FILE                 writes a fresh demo GeoPackage at FILE
//   open FILE [readonly]           opens a data source; its layers go on the map
//   crs CODE                       the map's coordinate system: "EPSG:n", WKT or PROJ text
//   view W H XMIN YMIN XMAX YMAX   the view's size in pixels and the map rectangle it shows
//   edit [LAYER]                   makes LAYER the edit layer (and the current one); without
//                                  LAYER no layer is edited
//   tool CLASS                     picks a tool of the plugin by class name or place in the pool
//   leave                          leaves the active tool
//   move|press|release|click|dblclick [left|right|middle] X Y
//                                  the pointer at device pixel (X, Y); "@X,Y" gives a map point
//   key CODE                       a key press, as a Qt key code
//   type [TEXT]                    a line typed on the command window; without TEXT an empty one
//   shift on|off                   whether Shift is held
//   snap on|off [PIXELS]           snapping, and its tolerance
//   part-mode line|polygon N       the part mode the host answers the line or polygon tool
//   set LAYER ID FIELD VALUE       an attribute change through the edit buffer, one undo step
//   undo, redo                     the editor's undo and redo
//   save [LAYER]                   writes the pending edits of LAYER (or of all) to their store
//   answer TEXT                    the answer to the next modal dialog
//   tol VALUE                      the tolerance of geometry expectations
class TLSessionActions {
public:
    explicit TLSessionActions(TLSession& session) : mSession(session) {}

    static bool Knows(const std::string& verb);
    // False with the reason when the command cannot be run; the script stops there.
    bool Run(const TLSessionCommand& command, std::string& error);

private:
    bool demoData(const TLSessionCommand& c, std::string& error);
    bool open(const TLSessionCommand& c, std::string& error);
    bool crs(const TLSessionCommand& c, std::string& error);
    bool view(const TLSessionCommand& c, std::string& error);
    bool edit(const TLSessionCommand& c, std::string& error);
    bool tool(const TLSessionCommand& c, std::string& error);
    bool pointer(const TLSessionCommand& c, std::string& error);
    bool key(const TLSessionCommand& c, std::string& error);
    bool type(const TLSessionCommand& c);
    bool shift(const TLSessionCommand& c, std::string& error);
    bool snap(const TLSessionCommand& c, std::string& error);
    bool partMode(const TLSessionCommand& c, std::string& error);
    bool set(const TLSessionCommand& c, std::string& error);
    bool undo(bool redo);
    bool save(const TLSessionCommand& c, std::string& error);
    bool saveLayer(TLFeatureLayer* layer, bool named);
    bool tol(const TLSessionCommand& c, std::string& error);

    // Notes what an event entry of the tool returned; a refusal is shown.
    void returned(bool result);

    TLSession& mSession;
};

}  // namespace TMObjects
