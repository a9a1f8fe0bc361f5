#pragma once

#include "TLPluginExport.h"

namespace TMObjects {

class TLFeature;

// The attribute copy of the editing tools that replace a feature by new ones (trim, break,
// polygon cut): for each field of the old feature's table, in order, that is neither a geometry
// field nor a system field, the old value is set on the new feature under the field's name. The
// new feature gets no id here; the edit buffer gives it one.
class TL_ACTIONEX_EXPORT TLAttributeCopy {
public:
    // With `skipNull`, a null value is not set, so the new feature keeps what it had.
    static void Copy(const TLFeature& from, TLFeature& to, bool skipNull = false);
};

}  // namespace TMObjects
