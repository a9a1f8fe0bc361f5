#pragma once

#include <vector>

#include "tlbase/TLRefBase.h"
#include "tlgeo/TLGeometry.h"

namespace TMObjects {

class TLFeatureLayer;
class TLMapView;

// The steps that the part copy and part offset tools share: the pick of a feature by one of its
// vertices, the part table of a raw point array, and the way between map and layer coordinates.
class TLPartEdit {
public:
    // One part of a line or polygon, as first and last raw index over the whole geometry.
    struct Part {
        int first = 0;
        int last = -1;
    };

    // What a click picked: the layer, the feature, the raw index hit, and the feature's geometry
    // in map coordinates (a copy that the layer does not share). No layer when nothing was hit.
    struct Pick {
        TLFeatureLayer* layer = nullptr;
        int id = -1;
        int index = -1;
        TLRefPtr<TLGeometry> geometry;
    };

    // Clears the selection of every feature layer, then walks the valid feature layers in list
    // order (point layers too unless `skipPointLayers`) and queries around the click. The first
    // feature with a vertex in the pick box (or, when `trySegments`, a segment within tolerance)
    // wins and is left as the only selected feature. Editability is not asked.
    static Pick PickFeature(TLMapView* view, const TLPoint& click, double tolerance,
                            bool skipPointLayers, bool trySegments);

    // The parts of a polyline or polygon in order; none for any other geometry.
    static std::vector<Part> Parts(TLGeometry* geometry);

    // Projects in place from the layer's system to the map's, or back, when both are set and
    // differ; true when nothing needed doing.
    static bool ToMap(TLMapView* view, TLFeatureLayer* layer, TLGeometry* geometry);
    static bool ToLayer(TLMapView* view, TLFeatureLayer* layer, TLGeometry* geometry);

    // The feature layer of the map's layer list that is `layer`; null when it has gone.
    static TLFeatureLayer* LiveLayer(TLMapView* view, TLFeatureLayer* layer);
};

}  // namespace TMObjects
