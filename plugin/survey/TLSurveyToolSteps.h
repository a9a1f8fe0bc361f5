#pragma once

#include <QPointer>

#include "tlbase/TLPoint.h"
#include "tlmap/TLTool.h"

class TMSurveyDialog;

namespace TMObjects {

class TLEditor;
class TLFeatureLayer;
class TLMapView;
class TLRubberBand;

// The steps every survey tool takes the same way, kept in one place so that the tools, which
// derive from TLTool each on their own, cannot drift apart in them. What a tool does with its
// picks and when it draws P stay the tool's own.
class TLSurveyToolSteps {
public:
    // The edit layer of the view's map, with its editor into `editor`; null when there is none.
    static TLFeatureLayer* findEditLayer(TLMapView* view, TLEditor*& editor);
    static bool canEdit(const TLEditor* editor, const TLFeatureLayer* layer);
    // A click the tool refuses: a form that stepped aside for it comes back as it was, so that
    // the user is not left without one. Always false, the answer to the refused click.
    static bool refuseClick(TMSurveyDialog* dialog, TLMouseButton button);
    // A left click kept as the texts for the dialog, and as A or B when it was picked for them.
    static void keepClick(const TLPoint& p, int pickCode, TLString& x, TLString& y, TLPoint& a,
                          TLPoint& b);
    // A red line band with a faint red fill, on the map view, as the picks of angles and
    // distances show their construction.
    static TLRubberBand* makeBand(TLMapView* view);
    // The band emptied and redrawn as the line through the three points.
    static void drawLine(TLRubberBand* band, const TLPoint& first, const TLPoint& second,
                         const TLPoint& third);

    // The point "x,y" of the list's first entry into `p`, and from there, in map coordinates,
    // into the survey scratch layer; false when nothing was written.
    static bool writeP(TLToolBuddy* buddy, const TLArray<TLString>& texts, TLPoint& p);

    // The tool's dialog, made when there is none, under the main window with an empty form and
    // at its place, shown or hidden; `tool` is its tool when given.
    template <class Tool, class Dialog>
    static void showDialog(QPointer<Dialog>& dialog, QPointer<Dialog>& retired, TLToolBuddy* buddy,
                           TLTool* tool, bool show) {
        if (!buddy) return;
        if (!dialog) {
            delete retired;
            dialog = new Dialog;
        }
        dialog->attachToMainWindow(buddy);
        dialog->move(250, 80);
        dialog->resetForm();
        if (tool) dialog->setTool(dynamic_cast<Tool*>(tool));
        if (show) {
            dialog->move(250, 80);
            dialog->show();
        } else {
            dialog->hide();
        }
    }

    // The dialog let go. This may run inside one of the dialog's own slots (Escape, "Draw P"):
    // it goes once control is back in the event loop, and hears nothing of the tool meanwhile.
    // Whatever is left of it goes at the latest with the tool, through `retired`.
    template <class Dialog>
    static void retire(QPointer<Dialog>& dialog, QPointer<Dialog>& retired) {
        if (!dialog) return;
        delete retired;
        dialog->setTool(nullptr);
        dialog->hide();
        dialog->deleteLater();
        retired = dialog;
        dialog = nullptr;
    }
};

}  // namespace TMObjects
