#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLRect.h"
#include "tlgeo/TLGeometry.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLTool.h"
#include "tlsde/TLFeature.h"

namespace TMObjects {

class CdataManager;
class CRvLayer;
class CvectorPackageData;
class TLFeatureLayer;

// Makes features that end near a selected boundary meet on it. The boundary is the one selected
// line or polygon; the user presses on it and drags a red circle out. On release:
// - on a line boundary, every vertex of the unselected line layers that lies in the working box
//   (the circle's bound grown by its own diagonal) and within the typed joint error limit of the
//   boundary's first segment moves to the pressed point, one step per feature;
// - on a polygon boundary, the boundary's layer and everything the circle's bound caught are
//   copied into a scratch package, the data library's edge matching moves the caught outlines
//   onto the boundary there, and every caught feature is written back, one step per feature.
// Ids and attributes stay. The tool has no prompts: the warning box is its only text.
class TL_ACTIONEX_EXPORT TLToolEdgeMatching : public TLTool {
public:
    TLToolEdgeMatching();
    explicit TLToolEdgeMatching(TLToolBuddy* buddy);
    ~TLToolEdgeMatching() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;

private:
    struct Collected {
        int recordId = -1;
        TLRefPtr<TLFeature> feature;
        int layerId = -1;
    };

    // Reads the selection; false (with the boundary released) unless exactly one line or polygon
    // feature of two or more vertices is selected.
    bool readBoundary(TLMapView* view);
    void drawCircle(TLMapView* view, const TLPoint& cursor);
    void ExecMeetEdge();
    void allureBorderPoint();
    void polygonPass();
    void linePass();
    // The reference line of the line pass; the boundary's first segment unless lines were caught
    // on a polygon boundary.
    void referenceLine(double& ax, double& ay, double& bx, double& by);
    void matchLineFeature(TLFeatureLayer* layer, TLFeature* feature, const TLRect& box,
                          double limit, double ax, double ay, double bx, double by);
    int initAllurePoint();
    void selFeaIntoCRvLayer();
    void modifyFeaFromGRvLayer();
    CRvLayer* CreateRvLayerByTLLayer(TLFeatureLayer* layer, CvectorPackageData* package);
    void releasePackage();

    bool mMeetLines = false;
    bool mDragging = false;
    TLPoint mFirstPoint;
    int mMode = 0;
    int mMeetKind = 0;
    TLRect mBox;
    TLRefPtr<TLGeometry> mBoxGeometry;
    TLRefPtr<TLFeature> mBoundary;
    TLRefPtr<TLFeatureLayer> mBoundaryLayer;
    CdataManager* mManager = nullptr;
    CvectorPackageData* mPackage = nullptr;
    int mBoundaryLayerNo = 0;
    int mCollectedLayerNo = 0;
    int mAllureDeviceX = 0;
    int mAllureDeviceY = 0;
    double mAllurePoint[2] = {0.0, 0.0};
    std::vector<Collected> mCollected;
    TLSnapTool mSnapTool;
};

}  // namespace TMObjects
