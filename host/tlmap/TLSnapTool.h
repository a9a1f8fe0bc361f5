#pragma once

#include <map>
#include <memory>
#include <vector>

#include "tlbase/TLPoint.h"
#include "tlbase/TLRefBase.h"
#include "tlgeo/TLGeometry.h"

namespace TMObjects {

class TLToolBuddy;
class TLFeatureLayer;
class TLDisplayTransform;
class TLMapView;
class TLCoordinateSystem;

class TLPointSnapper {
public:
    void clearCache() { mCached.clear(); }
    std::vector<TLPoint>& cache() { return mCached; }

private:
    std::vector<TLPoint> mCached;
};

// The process-wide snap setting: on or off, what to snap to, and the tolerance in pixels.
class TLSnapEnvironment {
public:
    static TLSnapEnvironment* Instance();
    bool isEnabled() const { return mEnabled; }
    void setEnabled(bool enabled) { mEnabled = enabled; }
    double getTolerance() const { return mTolerance; }
    void setTolerance(double pixels) { mTolerance = pixels; }
    bool snapToVertex() const { return mVertex; }
    bool snapToSegment() const { return mSegment; }
    void setSnapToVertex(bool on) { mVertex = on; }
    void setSnapToSegment(bool on) { mSegment = on; }
    TLPointSnapper* getPointSnapper() { return &mPointSnapper; }

private:
    bool mEnabled = false;
    double mTolerance = 10.0;
    bool mVertex = true;
    bool mSegment = true;
    TLPointSnapper mPointSnapper;
};

enum TLSnappingType { TLSnapNone = 0, TLSnapVertex = 1, TLSnapSegment = 2 };

// Finds the snap target near a map point: the nearest vertex within the tolerance, else the
// nearest point on a segment, over the visible feature layers of the map (through their
// spatial indexes) and the shapes the tool cached. Vertices win over segments.
class TLSnapTool : public TLRefBase {
public:
    TLSnapTool();
    ~TLSnapTool() override;

    bool Init(TLToolBuddy* buddy);
    bool CanSnap();
    bool Snap(const double& x, const double& y, TLFeatureLayer* layer);
    bool Snap(TLPoint p, TLFeatureLayer* layer);
    bool GetSnapXY(double& x, double& y);
    bool GetSnappedPoint(TLPoint& p);
    void Draw(TLDisplayTransform* transform, TLSnapEnvironment* environment);
    void CacheShapes(TLGeometry* geometry);
    void Reset();

    TLSnappingType LastType() const { return mType; }
    int CachedShapeCount() const { return int(mCached.size()); }

private:
    // The best hit so far of one kind, in map coordinates.
    struct Candidate {
        bool found = false;
        double distance = 0.0;
        TLPoint point;
        void offer(const TLPoint& p, double d);
    };
    struct LayerProjection;

    TLMapView* view() const;
    bool searchable(TLFeatureLayer* layer, TLDisplayTransform* transform) const;
    void searchLayer(TLFeatureLayer* layer, TLCoordinateSystem* mapReference, const TLPoint& p,
                     double tolerance, Candidate& vertex, Candidate& segment);
    void searchCached(const TLPoint& p, double tolerance, Candidate& vertex, Candidate& segment);
    // The projector pair for a layer in a system other than the map's; null when they agree.
    LayerProjection* projectionFor(TLFeatureLayer* layer, TLCoordinateSystem* mapReference);

    TLToolBuddy* mBuddy = nullptr;
    bool mHasResult = false;
    TLPoint mResult;
    TLSnappingType mType = TLSnapNone;
    bool mMarkerShown = false;
    std::vector<TLRefPtr<TLGeometry>> mCached;
    std::map<int, std::unique_ptr<LayerProjection>> mProjections;  // by layer id
};

}  // namespace TMObjects
