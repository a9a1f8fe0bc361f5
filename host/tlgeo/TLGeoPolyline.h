#pragma once

#include "tlgeo/TLGeoPath.h"
#include "tlgeo/TLGeometry.h"
#include "tlgeo/TLPartList.h"

namespace TMObjects {

// A line of one or more paths. Built in the order BeginPath, BeginSegment, AddXY for each vertex,
// EndEntity; BeginPath opens a new path.
class TLGeoPolyline : public TLGeometry {
public:
    TLGeoPolyline() = default;

    GeoType GetType() const override { return GeoPolyline; }
    int GetDimension() const override { return 1; }
    bool IsEmpty() const override { return mParts.PointCount() == 0; }
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
    int BeginSegment();
    int AddXY(double x, double y);
    int EndEntity();
    void AddPoints(double* xy, int count);
    void ClearPoints();
    int GetPathCount() { return mParts.PartCount(); }
    TLRefPtr<TLGeoPath> GetPath(int index);
    // Appends a path made of the given points and returns it.
    TLRefPtr<TLGeoPath> CreatePath(double* xy, int count);
    int GetSegmentInfo(int* info) { return mParts.SegmentInfo(info); }

    const TLPartList& Parts() const { return mParts; }
    TLPartList& Parts() { return mParts; }

private:
    TLPartList mParts;
    bool mHasZ = false;
};

}  // namespace TMObjects
