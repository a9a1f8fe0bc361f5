#pragma once

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlbase/TLRefBase.h"
#include "tlgeo/TLGeometry.h"

namespace TMObjects {

class TLToolBuddy;
class TLFeatureLayer;
class TLCoordinateSystem;

// Finds the line segment under the pointer on the line and polygon layers of the map, for the
// tools that construct from a picked line. The first hit wins: the layers from the last to the
// first, the features in the order the layer's search gives them, the segments in vertex order.
// There is no search for the nearest segment. The search goes through each layer's spatial index
// with a square of three pixels around the point.
class TL_ACTIONEX_EXPORT TLSelectAssistTool {
public:
    TLSelectAssistTool();
    virtual ~TLSelectAssistTool();

    // The ends of the segment at the map point (x, y). All four results are 0 when nothing was
    // found; they are left alone when there is no buddy or no view.
    void PickSegment(TLToolBuddy* buddy, const double* x, const double* y, double* x1, double* y1,
                     double* x2, double* y2);

    // The geometry of the feature under the map point, in its layer's coordinates, with the ends
    // of the segment that was hit; the feature is added to its layer's selection. Empty when
    // nothing was found, and the ends are then untouched.
    TLRefPtr<TLGeometry> PickFeature(TLToolBuddy* buddy, const TLPoint& point,
                                     TLPoint& segmentStart, TLPoint& segmentEnd);

    // As PickFeature, and also the foot of the perpendicular from the point on that segment.
    TLRefPtr<TLGeometry> PickFeatureAndFoot(TLToolBuddy* buddy, const TLPoint& point,
                                            TLPoint& segmentStart, TLPoint& segmentEnd,
                                            TLPoint& foot);

private:
    struct Hit {
        TLFeatureLayer* layer = nullptr;
        int featureId = -1;
        TLPoint start;
        TLPoint end;
        TLPoint foot;
        int startIndex = -1;  // raw index of the segment's first vertex
    };

    bool search(TLToolBuddy* buddy, double x, double y, Hit& hit) const;
    bool searchLayer(TLFeatureLayer* layer, TLCoordinateSystem* mapReference, TLGeometry* envelope,
                     double x, double y, double tolerance, Hit& hit) const;
    static bool firstSegment(TLGeometry* geometry, double x, double y, double tolerance, Hit& hit);
    // Whether the segment from the raw index runs from one part into the next.
    static bool joinsParts(TLGeometry* geometry, int startIndex);
    TLRefPtr<TLGeometry> selectHit(const Hit& hit) const;
};

}  // namespace TMObjects
