#pragma once

#include <QString>

#include "tlmap/TLLayer.h"

namespace TMObjects {

class TLMap;

// One obvious layer to work on. A drawing tool writes to the edit layer and refuses a layer of
// another kind; when the user picks such a tool while a layer of the wrong kind is edited, the
// shell moves the editing to an editable layer of the right kind before the tool starts, and
// says so. The current layer (the one measuring and identify start from) follows the edit layer.
class TLEditLayerChooser {
public:
    // The kind of edit layer the tool of that class draws on; TLLayer::UnknownLayer for a tool
    // that takes any layer or none.
    static TLLayer::LayerType KindOf(const QString& className);
    static bool Matches(const TLLayer* layer, TLLayer::LayerType kind);

    // Makes a layer of the tool's kind the edit layer when the present one is not: the current
    // layer if it fits, else the first editable one of that kind in the map. The answer is the
    // line for the history: what was done, what is missing, or empty when nothing needed doing.
    static QString Prepare(TLMap* map, const QString& className, const QString& toolLabel);
};

}  // namespace TMObjects
