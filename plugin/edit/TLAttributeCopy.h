#pragma once

#include "TLPluginExport.h"

#include "tlbase/TLRefBase.h"

namespace TMObjects {

class TLFeature;
class TLFeatureLayer;
class TLGeometry;

// The attribute copy of the editing tools that replace a feature by new ones (trim, break,
// polygon cut): for each field of the old feature's table, in order, that is neither a geometry
// field nor a system field, the old value is set on the new feature under the field's name. The
// new feature gets no id here; the edit buffer gives it one.
class TL_ACTIONEX_EXPORT TLAttributeCopy {
public:
    // With `skipNull`, a null value is not set, so the new feature keeps what it had.
    static void Copy(const TLFeature& from, TLFeature& to, bool skipNull = false);
    // Adds a piece of the feature `oldId` to the layer's edit buffer as a new feature with the
    // old one's attributes, the old feature being read again for it. False, with nothing added,
    // when the old feature is gone.
    static bool AddPiece(TLFeatureLayer* layer, int oldId, TLRefPtr<TLGeometry> piece);
};

}  // namespace TMObjects
