#pragma once

#include <vector>

namespace TMObjects {

class TLCoordinateSystem;
class TLFeatureLayer;

// One pick on one layer, as the identify tool and its dialog both make it: the pick envelope
// (map coordinates) narrowed by the layer's standing filter, selected on the layer, read out and
// cleared again, so that the user's selection is never left changed.
class TLIdentifyQuery {
public:
    TLIdentifyQuery(double xmin, double xmax, double ymin, double ymax, double tolerance);

    // The ids picked on the layer, in the layer's order; `method` is that of SelectFeatures.
    std::vector<int> pick(TLFeatureLayer* layer, TLCoordinateSystem* mapReference,
                          int method) const;

private:
    double mXMin;
    double mXMax;
    double mYMin;
    double mYMax;
    double mTolerance;
};

}  // namespace TMObjects
