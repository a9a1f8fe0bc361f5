#pragma once

#include <memory>

#include "tlgeo/TLGeoPath.h"
#include "tlgeo/TLGeometry.h"
#include "tlgeo/TLPartList.h"

namespace TMObjects {

// A polygon of one or more rings. Built in the order BeginPath, BeginSegment(1), AddXY for each
// vertex, EndEntity (which closes every ring), then Forward, which turns each outer ring
// counter-clockwise and each hole clockwise. A polygon with several outer rings is a multipolygon.
// Holes are told by containment, not by direction or order: a ring inside an odd number of
// other rings is a hole of the nearest one around it.
class TLGeoPolygon : public TLGeometry {
public:
    TLGeoPolygon();
    // Copies are deep: a copy never shares its points with the original or its ring views.
    TLGeoPolygon(const TLGeoPolygon& other);
    TLGeoPolygon& operator=(const TLGeoPolygon& other);

    GeoType GetType() const override { return GeoPolygon; }
    int GetDimension() const override { return 2; }
    bool IsEmpty() const override { return mParts->PointCount() == 0; }
    double GetArea() const override;
    double GetLength() const override;
    TLRect GetBound() override { return mParts->Bound(); }
    TLRefPtr<TLGeometry> Clone() override;
    bool GetRawPoints(double** points, int& count) override;
    bool UpdateRawPoints(double* points) override;
    // Appends `count` points to the current ring; false for no points.
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

    // Opens a new ring and returns its index.
    int BeginPath();
    // Marks nothing: the index of the current ring, or -1 when there is none.
    int BeginSegment(int segmentType);
    // Appends to the current ring; returns the raw index of the new vertex.
    int AddXY(double x, double y);
    // Drops empty rings and closes the others (repeating the first point where the last
    // differs); returns the number of rings. Rings too small to enclose anything are kept.
    int EndEntity();
    // Returns the number of rings whose direction it turned.
    int Forward();
    int GetRingCount() { return mParts->PartCount(); }
    // A live view of the ring (see TLGeoPath); null for an index out of range.
    TLRefPtr<TLGeoRing> GetRing(int index);
    // Appends a ring made of the given points, as given, and returns its view.
    TLRefPtr<TLGeoRing> CreateRing(double* xy, int count);
    int GetSegmentInfo(int* info) { return mParts->SegmentInfo(info); }

    const TLPartList& Parts() const { return *mParts; }
    TLPartList& Parts() { return *mParts; }

private:
    std::shared_ptr<TLPartList> mParts;
};

}  // namespace TMObjects
