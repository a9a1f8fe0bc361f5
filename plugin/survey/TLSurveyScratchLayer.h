#pragma once

#include "tlbase/TLPoint.h"

namespace TMObjects {

class TLToolBuddy;
class TLFeatureLayer;
class TLMap;

// The memory point layer that all survey tools draw their results into. It is made on first need,
// put on top of the map, and its id is kept by the buddy so that every survey tool finds it again
// as long as it stays in the map.
class TLSurveyScratchLayer {
public:
    // The point, in the map's coordinates, as a new feature of the scratch layer, in one undoable
    // "add feature" step of the map's editor. False when there is no view, the layer cannot be
    // had, or the point is no finite position.
    static bool addPoint(TLToolBuddy* buddy, const TLPoint& p);

    // The scratch layer of the map, made and inserted when there is none; null when the id names
    // a layer of another kind or no layer can be made.
    static TLFeatureLayer* findOrCreate(TLToolBuddy* buddy, TLMap* map);
};

}  // namespace TMObjects
