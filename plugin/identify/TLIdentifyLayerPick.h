#pragma once

#include <vector>

namespace TMObjects {

// What one gesture found on one layer. No ids means the layer was not asked yet: it is queried
// when the user chooses it in the dialog.
struct TLIdentifyLayerPick {
    int layerId = -1;
    std::vector<int> featureIds;
};

}  // namespace TMObjects
