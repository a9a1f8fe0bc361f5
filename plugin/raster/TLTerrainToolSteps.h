#pragma once

#include <QPointer>

#include "raster/TLRasterToolKit.h"
#include "tlmap/TLTool.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

// The steps the four terrain tools take alike with their dialog, each tool deriving from TLTool
// on its own.
class TLTerrainToolSteps {
public:
    // The tool's dialog, made under the main window when there is none, given the tool and
    // the buddy (its combo refilled), then `before` done with it, and shown.
    template <class Dialog, class Before>
    static Dialog* showDialog(QPointer<Dialog>& dialog, TLTool* tool, TLToolBuddy* buddy,
                              Before before) {
        if (!dialog) {
            dialog = new Dialog;
            TLRasterToolKit::attachToMainWindow(dialog, buddy);
        }
        dialog->setTool(tool);
        dialog->setBuddy(buddy);
        before(dialog.data());
        dialog->show();
        return dialog;
    }
    template <class Dialog>
    static Dialog* showDialog(QPointer<Dialog>& dialog, TLTool* tool, TLToolBuddy* buddy) {
        return showDialog(dialog, tool, buddy, [](Dialog*) {});
    }
    // The dialog let go; it may be the dialog whose close or cancel is ending the tool, so it
    // goes once the event loop runs again. Until then it is kept in `retired`, which the tool
    // deletes at the latest with itself: a host that never runs its loop again (a script at its
    // end) must not find it alive after the plugin is gone.
    template <class Dialog>
    static void retire(QPointer<Dialog>& dialog, QPointer<Dialog>& retired) {
        if (!dialog) return;
        if (retired != dialog) delete retired;
        dialog->retire();
        retired = dialog;
        dialog = nullptr;
    }
};

}  // namespace TMObjects
