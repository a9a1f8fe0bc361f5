#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLEditor;
class TLEvent;
class TLLayer;
class TLMapView;
class TLRubberBand;
class TLSelectFeature;

// Breaks the one selected line feature into pieces: at one point, at two points, or where a
// line drawn by the user crosses it. The old feature goes and each piece becomes a new feature
// with its attributes, in one undoable step. After a single-point break the tool asks whether
// to go on, and on yes the user box-selects the next line.
class TL_ACTIONEX_EXPORT TLToolInterrupt : public TLTool {
public:
    TLToolInterrupt();
    explicit TLToolInterrupt(TLToolBuddy* buddy);
    ~TLToolInterrupt() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;

protected:
    void OnLayerRemoved(void* sender, TLEvent* event);
    // Two pieces: the line up to `point` on the segment starting at raw index `index`, and the
    // rest from `point` on. Earlier paths stay with the front piece, later ones with the back.
    void SplitLineByPoint(TLGeoPolyline* line, const TLPoint& point, const int& index,
                          const double& tolerance, std::vector<TLRefPtr<TLGeoPolyline>>& pieces);
    // Three pieces in line order, split at both points; nothing when either misses the line.
    void SplitLineByPoint(TLGeometry* line, const TLPoint& first, const TLPoint& second,
                          const double& tolerance, std::vector<TLRefPtr<TLGeoPolyline>>& pieces);

private:
    bool CanEdit(bool update);
    void refuseSelection();
    void breakAt(int x, int y);
    void writePieces(std::vector<TLRefPtr<TLGeoPolyline>>& pieces, int id);
    void dragBox(int x, int y);
    void selectInBox(int x, int y);
    void showSnap(TLMapView* view, TLGeometry* geometry, const TLPoint& cursor);
    TLRefPtr<TLGeometry> featureInMap();
    TLString signalKey() const;

    TLRubberBand* mBand = nullptr;
    TLEditor* mEditor = nullptr;
    TLRefPtr<TLLayer> mLayer;
    TLRefPtr<TLSelectFeature> mFeature;
    std::vector<TLPoint> mPoints;
    int mStep = 0;
    int mMethod = 1;
    bool mSelecting = false;
    bool mDragging = false;
    double mDownMapX = 0.0;
    double mDownMapY = 0.0;
    double mDownDevX = 0.0;
    double mDownDevY = 0.0;
};

}  // namespace TMObjects
