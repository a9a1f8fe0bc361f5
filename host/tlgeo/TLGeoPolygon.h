#pragma once

#include "tlgeo/TLGeoPath.h"
#include "tlgeo/TLGeometry.h"
#include "tlgeo/TLPartList.h"

namespace TMObjects {

// A polygon of one or more rings. Built in the order BeginPath, BeginSegment(1), AddXY for each
// vertex, EndEntity (which closes every ring), then Forward, which turns each outer ring
// counter-clockwise and each hole clockwise. A polygon with several outer rings is a multipolygon.
class TLGeoPolygon : public TLGeometry {
public:
    TLGeoPolygon() = default;

    GeoType GetType() const override { return GeoPolygon; }
    int GetDimension() const override { return 2; }
    bool IsEmpty() const override { return mParts.PointCount() == 0; }
    double GetArea() const override;
    double GetLength() const override;
    TLRect GetBound() override { return mParts.Bound(); }
    TLRefPtr<TLGeometry> Clone() override;
    bool GetRawPoints(double** points, int& count) override;
    bool UpdateRawPoints(double* points) override;
    virtual bool AddRawPoints(double* xy, int count);
    virtual bool SetRawPointsZValue(double* z, int count);
    virtual bool GetRawPointsZValue(double** z, int& count);
    virtual bool get_HasZ(bool* hasZ);
    virtual bool put_HasZ(bool hasZ);
    virtual bool Put_Z(double z);

    int BeginPath();
    int BeginSegment(int segmentType);
    int AddXY(double x, double y);
    int EndEntity();
    int Forward();
    int GetRingCount() { return mParts.PartCount(); }
    TLRefPtr<TLGeoRing> GetRing(int index);
    TLRefPtr<TLGeoRing> CreateRing(double* xy, int count);
    int GetSegmentInfo(int* info) { return mParts.SegmentInfo(info); }

    const TLPartList& Parts() const { return mParts; }
    TLPartList& Parts() { return mParts; }

private:
    TLPartList mParts;
    bool mHasZ = false;
};

}  // namespace TMObjects
