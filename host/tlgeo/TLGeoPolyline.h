#pragma once

#include <memory>

#include "tlgeo/TLGeoPath.h"
#include "tlgeo/TLGeometry.h"
#include "tlgeo/TLPartList.h"

namespace TMObjects {

// A line of one or more paths. Built in the order BeginPath, BeginSegment, AddXY for each vertex,
// EndEntity; BeginPath opens a new path, and AddXY or AddPoints without one opens it.
class TLGeoPolyline : public TLGeometry {
public:
    TLGeoPolyline();
    // Copies are deep: a copy never shares its points with the original or its path views.
    TLGeoPolyline(const TLGeoPolyline& other);
    TLGeoPolyline& operator=(const TLGeoPolyline& other);

    GeoType GetType() const override { return GeoPolyline; }
    int GetDimension() const override { return 1; }
    bool IsEmpty() const override { return mParts->PointCount() == 0; }
    double GetLength() const override;
    TLRect GetBound() override { return mParts->Bound(); }
    TLRefPtr<TLGeometry> Clone() override;
    bool GetRawPoints(double** points, int& count) override;
    bool UpdateRawPoints(double* points) override;
    // Appends `count` points to the current path, as AddPoints; false for no points.
    virtual bool AddRawPoints(double* xy, int count);
    // One Z a point, `count` being the point count; turns Z on.
    virtual bool SetRawPointsZValue(double* z, int count);
    // The geometry's own Z array, parallel to the raw points; false without Z.
    virtual bool GetRawPointsZValue(double** z, int& count);
    virtual bool get_HasZ(bool* hasZ);
    // Turning Z on gives every point Z = 0; turning it off drops the values.
    virtual bool put_HasZ(bool hasZ);
    // Sets every Z and turns Z on.
    virtual bool Put_Z(double z);

    bool open(TLFileFunc& file) override;
    bool save(TLFileFunc& file) const override;

    // Opens a new path and returns its index.
    int BeginPath();
    // Marks nothing: the index of the current path, or -1 when there is none.
    int BeginSegment();
    // Appends to the current path; returns the raw index of the new vertex.
    int AddXY(double x, double y);
    // Drops empty paths; returns the number of paths.
    int EndEntity();
    void AddPoints(double* xy, int count);
    void ClearPoints();
    int GetPathCount() { return mParts->PartCount(); }
    // A live view of the path (see TLGeoPath); null for an index out of range.
    TLRefPtr<TLGeoPath> GetPath(int index);
    // Appends a path made of the given points and returns its view.
    TLRefPtr<TLGeoPath> CreatePath(double* xy, int count);
    int GetSegmentInfo(int* info) { return mParts->SegmentInfo(info); }

    const TLPartList& Parts() const { return *mParts; }
    TLPartList& Parts() { return *mParts; }

private:
    std::shared_ptr<TLPartList> mParts;
};

}  // namespace TMObjects
