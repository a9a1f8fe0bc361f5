#pragma once

#include <QPointer>

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

class TMEditPointDlg;

namespace TMObjects {

class TLFeatureLayer;
class TLGeometry;

// Picks one vertex near the click and shows its map coordinates in a small dialog. Picking works
// on every feature layer; moving the vertex is changeToNewCoord, an undoable "edit point".
class TL_ACTIONEX_EXPORT TLToolEditPoint : public TLTool {
public:
    TLToolEditPoint();
    explicit TLToolEditPoint(TLToolBuddy* buddy);
    ~TLToolEditPoint() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;

    // The same test as hitVertex.
    int getSnapPt(TLGeometry* geometry, double x, double y, double tolerance, double& outX,
                  double& outY);
    void showEditPointDialog(double x, double y, TLTool* tool, bool show);
    // Moves the picked vertex to the map point (x, y). Only that one raw point changes: the
    // closing vertex of a ring stays where it is.
    void changeToNewCoord(double x, double y);

    // What the last click picked; null, -1, -1 when nothing.
    TLFeatureLayer* pickedLayer() const { return mLayer; }
    int pickedFeatureId() const { return mFeatureId; }
    int pickedVertexIndex() const { return mVertexIndex; }

private:
    void clearPick();
    // Looks through the layer's features around the click; true and the pick stored on a hit.
    bool pickInLayer(TLFeatureLayer* layer, const TLPoint& click, double tolerance);
    // The picked layer if it is still one of the map's layers.
    TLFeatureLayer* livePickedLayer() const;
    void moveVertex(TLGeometry* geometry, double x, double y);

    TLFeatureLayer* mLayer = nullptr;  // not counted: checked against the map before use
    int mFeatureId = -1;
    int mVertexIndex = -1;
    double mX = 0.0;
    double mY = 0.0;
    // Guarded: the dialog is a child of the main window and may go with it.
    QPointer<TMEditPointDlg> mDialog;
};

}  // namespace TMObjects
