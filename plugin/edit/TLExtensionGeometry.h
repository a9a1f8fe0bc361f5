#pragma once

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlbase/TLRefBase.h"

namespace TMObjects {

class TLGeoPolyline;

// The plane arithmetic of the extension tool. The comparisons are exact, and the cases keep
// their differences: a vertical target segment tests the meeting point against its own y span,
// a vertical prolongation against the span of q (found when the point lies outside it or on its
// ends), and two sloping lines against the box of the target segment.

// Where the line through q1 and q2 meets the target segment p1-p2. `found` becomes 1 when the
// meeting point counts as lying on the segment; parallel lines give 0; with two sloping lines a
// point off the segment leaves `found` as the caller set it.
TL_ACTIONEX_EXPORT void crossSegment(const TLPoint& p1, const TLPoint& p2, const TLPoint& q1,
                                     const TLPoint& q2, TLPoint& out, int& found);

// The point `distance` beyond b on the ray from a through b. Equal points a and b divide 0 by 0:
// the point is not a number.
TL_ACTIONEX_EXPORT void pointBeyond(const TLPoint& a, const TLPoint& b, double distance,
                                    TLPoint& out);

// A copy of the line's paths with `point` put before the first vertex (atStart) or after the
// last; x and y only.
TL_ACTIONEX_EXPORT TLRefPtr<TLGeoPolyline> extendedLine(TLGeoPolyline* line, const TLPoint& point,
                                                        bool atStart);

}  // namespace TMObjects
