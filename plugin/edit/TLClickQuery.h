#pragma once

#include <vector>

#include "tlbase/TLRefBase.h"
#include "tlgeo/TLGeometry.h"

namespace TMObjects {

class TLCoordinateSystem;
class TLMapView;
class TLFeatureLayer;

// The features of a layer around a click, found through the layer's spatial index: the layer's
// selection becomes the features whose bounds meet the pick square, and each comes back with its
// geometry in map coordinates, ready for a hit test.
class TLClickQuery {
public:
    struct Candidate {
        int id = -1;
        TLRefPtr<TLGeometry> geometry;  // a copy when projected, so the layer's own stays put
    };

    // Empty when nothing is near, or without a view, map or transform.
    static std::vector<Candidate> Select(TLMapView* view, TLFeatureLayer* layer, double x,
                                         double y);
    // The click's map point from device pixels, and the pick tolerance in map units.
    static TLPoint ClickPoint(TLMapView* view, int x, int y);
    static double Tolerance(TLMapView* view);
    // True when the map and the layer both have a system and the two differ.
    static bool NeedsProjection(TLMapView* view, TLFeatureLayer* layer);
    // True when both systems are set and differ: only then is anything projected.
    static bool SystemsDiffer(TLCoordinateSystem* a, TLCoordinateSystem* b);
    // Projects the geometry in place from one system to the other when they differ.
    static void Project(TLGeometry* geometry, TLCoordinateSystem* from, TLCoordinateSystem* to);
};

}  // namespace TMObjects
