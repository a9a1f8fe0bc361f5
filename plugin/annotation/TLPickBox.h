#pragma once

#include "tlbase/TLRect.h"
#include "tlbase/TLRefBase.h"

namespace TMObjects {

class TLCoordinateSystem;
class TLGeoEnvelope;
class TLMap;
class TLMapView;

// What the box-picking tools of annotation and attributes share: the box of a press and a
// release, the envelope projected to a layer, and the clearing of every layer's selection.
class TLPickBox {
public:
    // The box between the two map points; when it is flatter than `flat` on either axis, the
    // square of half-side `tolerance` around the release.
    static TLRect Box(double downX, double downY, double upX, double upY, double tolerance,
                      double flat);
    // True when both systems are set and differ.
    static bool Differ(TLCoordinateSystem* a, TLCoordinateSystem* b);
    // Projects the envelope in place from the map's system into the layer's.
    static void ToLayer(TLGeoEnvelope* envelope, TLCoordinateSystem* map,
                        TLCoordinateSystem* layer);
    // Clears the selection of every feature layer that has one and zeroes the selection count;
    // the view's selection picture is refreshed.
    static void ClearAll(TLMap* map, TLMapView* view);
};

}  // namespace TMObjects
