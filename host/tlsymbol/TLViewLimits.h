#pragma once

#include "tlbase/TLRect.h"
#include "tlsymbol/TLDisplayTransform.h"

namespace TMObjects {

// Whatever it is asked, a display transform stays finite and usable: TLDisplayTransform::
// SetVisibleBounds keeps the view it shows when the bounds have a coordinate beyond
// TLCoordinateLimit, or would give a view in which neighbouring pixels share one map point (a
// span of a millimetre far from the origin). The map view asks first and tells the user.
bool TLCanShow(const TLDisplayTransform& transform, const TLRect& bounds);

}  // namespace TMObjects
