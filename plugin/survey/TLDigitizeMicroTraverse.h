#pragma once

#include <QPointer>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlmap/TLTool.h"

class TMMicroTraverse;

namespace TMObjects {

class TLEditor;
class TLFeatureLayer;
class TLRubberBand;

// Constructs one micro traverse leg from a start point, an end point, an angle and a distance,
// through its dialog. The tool turns map clicks into coordinates for the dialog, shows the legs
// A-B-cursor while an angle is picked, and draws the finished point into the survey scratch
// layer; the form and the arithmetic are the dialog's.
class TL_ACTIONEX_EXPORT TLDigitizeMicroTraverse : public TLTool {
public:
    TLDigitizeMicroTraverse();
    explicit TLDigitizeMicroTraverse(TLToolBuddy* buddy);
    ~TLDigitizeMicroTraverse() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    // The last left click as text, for the dialog; the pending pick is then answered.
    bool processInformation(TLString& x, TLString& y) override;
    // What the dialog asks for next: 1 a click for A, 2 a click for B, 3 a click for the angle
    // (the list holds A and B), 4 the list holds P.
    bool setInformation(TLString text) override;
    // At code 3 takes A and B for the band; at code 4 draws the point "x,y" of the first entry.
    bool setMultipleInformation(TLArray<TLString> texts) override;

    void Reset();
    // The point, in map coordinates, into the survey scratch layer.
    bool EndEntity(TLPoint& p);
    void showMicroTraverseDialog(TLTool* tool, bool show);

private:
    bool canEdit() const;
    void makeBand();
    void deleteBand();
    // Empties the band and repaints it, so that nothing of it stays on the map.
    void clearBand();

    TLString pickedX;
    TLString pickedY;
    TLRubberBand* rubberBand = nullptr;
    TLEditor* editor = nullptr;
    TLFeatureLayer* layer = nullptr;
    int pickCode = 0;
    TLPoint pointA;
    TLPoint pointB;
    TLPoint pointP;
    // Guarded: the dialog is a child of the main window and may go with it.
    QPointer<TMMicroTraverse> dialog;
    // A dialog let go by deactivate, still waiting for the event loop to delete it. Whatever is
    // left of it goes at the latest with the tool, while the dialog's code is still loaded.
    QPointer<TMMicroTraverse> retired;
};

}  // namespace TMObjects
