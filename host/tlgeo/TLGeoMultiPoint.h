#pragma once

#include "tlgeo/TLGeometry.h"
#include "tlgeo/TLPartList.h"

namespace TMObjects {

// Several points as one geometry, each point a part of its own. Tools do not digitize it; it is
// what the operations give where the answer is a set of points (two lines crossing twice, the
// end points of a line) and what MULTIPOINT text reads into.
class TLGeoMultiPoint : public TLGeometry {
public:
    TLGeoMultiPoint() = default;

    GeoType GetType() const override { return GeoMultipoint; }
    int GetDimension() const override { return 0; }
    bool IsEmpty() const override { return mParts.PointCount() == 0; }
    TLRect GetBound() override { return mParts.Bound(); }
    TLRefPtr<TLGeometry> Clone() override;
    bool GetRawPoints(double** points, int& count) override;
    bool UpdateRawPoints(double* points) override;

    bool open(TLFileFunc& file) override;
    bool save(TLFileFunc& file) const override;

    // Returns the index of the new point.
    int AddPoint(double x, double y);
    int GetPointCount() const { return mParts.PointCount(); }
    TLPoint GetPoint(int index) const { return mParts.Point(index); }

    const TLPartList& Parts() const { return mParts; }
    TLPartList& Parts() { return mParts; }

private:
    TLPartList mParts;
};

}  // namespace TMObjects
