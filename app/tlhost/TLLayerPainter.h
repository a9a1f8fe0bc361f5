#pragma once

#include <QColor>
#include <vector>

#include "tlbase/TLRect.h"
#include "tlgeo/TLGeometry.h"

class QPainter;

namespace TMObjects {

class TLDisplay;
class TLFeatureLayer;
class TLGeometryPainter;

// Draws a feature layer, or its selection, as the map shows it. Features are found through the
// table's spatial index, so that only those that meet the area being drawn are touched. A layer
// whose coordinate system differs from the map's has each feature projected on the way; the map
// side is what the tools see, so this is where the two must agree.
class TLLayerPainter {
public:
    TLLayerPainter(TLDisplay* display, TLGeometryPainter& geometry);

    // The features that meet `area` (map coordinates) in the layer's own style; returns how many
    // were drawn.
    int DrawFeatures(QPainter& painter, TLFeatureLayer* layer, const TLRect& area);
    // The selected features that meet `area`, outlined in `colour`.
    int DrawSelection(QPainter& painter, TLFeatureLayer* layer, const TLRect& area,
                      const QColor& colour);

    // Ids of the layer's features whose bound may meet `area`.
    std::vector<int> candidates(TLFeatureLayer* layer, const TLRect& area) const;
    // The feature's geometry in map coordinates: the table's own when no projection is needed,
    // else a projected copy. Null when the feature is gone or has no shape.
    TLRefPtr<TLGeometry> mapGeometry(TLFeatureLayer* layer, int id, bool project) const;
    bool needsProjection(TLFeatureLayer* layer) const;

private:
    TLDisplay* mDisplay;
    TLGeometryPainter& mGeometry;
};

}  // namespace TMObjects
