#pragma once

#include <QPointer>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlmap/TLTool.h"

class TMOffsetDistance;

namespace TMObjects {

class TLEditor;
class TLFeatureLayer;

// Constructs a point at an offset distance from known points, through its dialog. The tool turns
// map clicks into coordinates for the dialog and draws the finished point into the survey
// scratch layer; the form and the arithmetic are the dialog's.
class TL_ACTIONEX_EXPORT TLDigitizeOffsetDistance : public TLTool {
public:
    TLDigitizeOffsetDistance();
    explicit TLDigitizeOffsetDistance(TLToolBuddy* buddy);
    ~TLDigitizeOffsetDistance() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    // The last left click as text, for the dialog.
    bool processInformation(TLString& x, TLString& y) override;
    // What the dialog asks for next: 1 a click for A, 2 a click for B, 3 the list holds P.
    bool setInformation(TLString text) override;
    // At code 3, draws the point "x,y" of the first entry.
    bool setMultipleInformation(TLArray<TLString> texts) override;

    void Reset();
    // The point, in map coordinates, into the survey scratch layer.
    bool EndEntity(TLPoint& p);
    void showOffsetDistanceDialog(TLTool* tool, bool show);

private:
    bool canEdit() const;

    TLString pickedX;
    TLString pickedY;
    TLEditor* editor = nullptr;
    TLFeatureLayer* layer = nullptr;
    int pickCode = 0;
    TLPoint pointA;
    TLPoint pointB;
    TLPoint pointP;
    // Guarded: the dialog is a child of the main window and may go with it.
    QPointer<TMOffsetDistance> dialog;
    // A dialog let go by deactivate, still waiting for the event loop to delete it. Whatever is
    // left of it goes at the latest with the tool, while the dialog's code is still loaded.
    QPointer<TMOffsetDistance> retired;
};

}  // namespace TMObjects
