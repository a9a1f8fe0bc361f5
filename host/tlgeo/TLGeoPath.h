#pragma once

#include <memory>

#include "tlbase/TLPoint.h"
#include "tlbase/TLRefBase.h"
#include "tlgeo/TLPartList.h"

namespace TMObjects {

// One path of a polyline (TLGeoPath) or one ring of a polygon (TLGeoRing).
//
// A path handed out by a geometry (GetPath, GetRing, CreatePath, CreateRing) is a live view of
// that part: its raw arrays are the geometry's own, so a write through GetRawPoints or
// GetRawPointsZValue changes the geometry, and the view stays usable after the geometry is gone.
// It looks the part up on every call, so after parts are added or removed it sees whatever part
// now has its index (nothing when the index is out of range). A path made from a point array
// owns its points.
class TLGeoPath : public TLRefBase {
public:
    TLGeoPath();
    TLGeoPath(const double* xy, int count);
    TLGeoPath(std::shared_ptr<TLPartList> list, int part);

    int GetPointCount() const;
    // NaN coordinates for an index out of range.
    TLPoint GetPoint(int i) const;
    // The part's (x, y) pairs; false and a null pointer when the part is empty or gone.
    bool GetRawPoints(double** points, int& count);
    // The part's Z values; false when the geometry has no Z.
    bool GetRawPointsZValue(double** z, int& count);
    bool IsClosed() const;
    double GetLength() const;

protected:
    const double* first() const;

    std::shared_ptr<TLPartList> mList;
    int mPart = 0;
};

class TLGeoRing : public TLGeoPath {
public:
    using TLGeoPath::TLGeoPath;
    // Signed shoelace area: positive when the ring runs counter-clockwise. An unclosed ring
    // counts as closed.
    double GetSignedArea() const;
    double GetArea() const;
    bool IsClockwise() const { return GetSignedArea() < 0; }
};

}  // namespace TMObjects
