#pragma once

#include "tlsde/TLQueryFilter.h"

namespace TMObjects {

class TLMapView;
class TLFeatureLayer;

// The filter by which a click selects features of a layer: a square of the selection tolerance
// around the map point, in the layer's coordinates, inside the layer's own standing filter.
class TLPickFilter {
public:
    // A default filter when the view, its map or its transform is missing.
    static TLQueryFilter Build(TLMapView* view, TLFeatureLayer* layer, double x, double y);
};

}  // namespace TMObjects
