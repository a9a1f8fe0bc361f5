#pragma once

#include "TLPluginExport.h"
#include "tlgeo/TLGeometry.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLFeatureLayer;
class TLMapView;
class TLRubberBand;

// Moves a vertex, a stretch or a whole feature by the mouse. The mode is typed first ("1" a
// vertex, "2" the stretch between two vertices, "3" the whole feature); a blue band previews the
// moved geometry while the pointer moves and the next click writes it, one step "part offset".
// Ids and attributes stay; the menu stands again after each move.
class TL_ACTIONEX_EXPORT TLToolPartOffset : public TLTool {
public:
    TLToolPartOffset();
    explicit TLToolPartOffset(TLToolBuddy* buddy);
    ~TLToolPartOffset() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;

private:
    // The raw range a stretch move shifts: the two picks in index order, except that on a ring
    // picked from its first index the end after the second pick is taken when it is shorter.
    struct Range {
        int lo = 0;
        int hi = -1;
    };

    void reset();
    void makeUpRubberBand(TLMapView* view, double x, double y);
    void pickFeature(TLMapView* view, const TLPoint& click, double tolerance);
    void pickSecondVertex(const TLPoint& click, double tolerance);
    // Moves mGeometry's raw points for the click, by the mode; false when there are none.
    bool moveRawPoints(const TLPoint& click);
    void commitMove(TLMapView* view, TLRect rect);
    Range movedRange();
    void bandVertexNeighbours(const double* xy, int count, const TLPoint& cursor);
    void bandStretch(const double* xy, const TLPoint& cursor);
    void bandWhole(const double* xy, const TLPoint& cursor);
    TLString statePrompt() const;

    int mStep = 0;
    int mMode = 0;
    TLFeatureLayer* mLayer = nullptr;
    int mFeatureId = -1;
    int mVertexIndex = -1;
    int mSecondIndex = -1;
    TLRefPtr<TLGeometry> mGeometry;
    TLRubberBand* mBand = nullptr;
    double mStartX = 0.0;
    double mStartY = 0.0;
};

}  // namespace TMObjects
