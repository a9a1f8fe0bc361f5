#pragma once

#include <vector>

#include "tlbase/TLPoint.h"
#include "tlbase/TLRect.h"

namespace TMObjects {

// The coordinates of a multi-part geometry: one interleaved (x, y) array through all parts, the
// raw index where each part starts, and optional Z values. Polylines, polygons and multipoints
// share it; a geometry keeps its list behind a shared pointer so that the path and ring views it
// hands out (TLGeoPath, TLGeoRing) write into the same coordinates.
//
// Z values, when present, run parallel to the points: Z() then holds exactly PointCount() values.
class TLPartList {
public:
    int PartCount() const { return int(mStarts.size()); }
    int PointCount() const { return int(mXY.size() / 2); }
    int PartStart(int part) const { return mStarts[std::size_t(part)]; }
    int PartSize(int part) const;
    // The part that holds a raw index, or -1.
    int PartOf(int rawIndex) const;
    TLPoint Point(int rawIndex) const { return TLPoint(mXY[2 * rawIndex], mXY[2 * rawIndex + 1]); }

    void BeginPart() { mStarts.push_back(PointCount()); }
    // Appends to the last part, opening one when there is none.
    void Add(double x, double y);
    // Appends `count` points to the last part, opening one when there is none.
    void AddPoints(const double* xy, int count);
    // Opens a new part with the given points (an empty part when count <= 0).
    void AddPart(const double* xy, int count);
    // Opens a new part of `count` points at (0, 0), Z = 0 with Z on, and returns where its
    // (x, y) pairs start, for a reader to fill in place; null for count <= 0 (no part opened).
    double* AppendPart(int count);
    // Room for that many points and parts in all, so that a reader that knows the size of what
    // it reads fills the list without a reallocation.
    void Reserve(int points, int parts);
    void Clear();
    // Drops parts without points. Degenerate parts (a ring of two points) are kept: whether such
    // a shape is acceptable is the caller's decision.
    void DropEmptyParts();
    // Appends the first point to every part whose last point differs from it.
    void CloseRings();
    // Whether the part's last point equals its first; false for an empty part.
    bool IsPartClosed(int part) const;

    double* Raw() { return mXY.empty() ? nullptr : mXY.data(); }
    const double* Raw() const { return mXY.empty() ? nullptr : mXY.data(); }

    bool HasZ() const { return mHasZ; }
    // Turning Z on gives every point Z = 0; turning it off drops the values.
    void SetHasZ(bool hasZ);
    // Sets every Z value and turns Z on.
    void FillZ(double z);
    std::vector<double>& Z() { return mZ; }
    const std::vector<double>& Z() const { return mZ; }

    // The raw-array services that polylines, polygons and multipoints share. HandOut gives the
    // own (x, y) array (false and null when there are no points); CopyIn copies an array of the
    // same size back; SetZValues takes one Z a point and turns Z on; HandOutZ gives the own Z
    // array (false without Z).
    bool HandOut(double** points, int& count);
    bool CopyIn(const double* points);
    bool SetZValues(const double* z, int count);
    bool HandOutZ(double** z, int& count);

    TLRect Bound() const;
    // With a null pointer: the number of parts. Otherwise fills 4 ints a part: part index,
    // point count, raw index of the first vertex, raw index of the last vertex (first - 1 for an
    // empty part), and returns the number of parts.
    int SegmentInfo(int* info) const;
    void ReversePart(int part);

    // The vertex nearest to `p` no farther than `tolerance`: its part and raw index. Ties go to
    // the lower raw index. False (and -1, -1) when none is near enough.
    bool NearestVertex(const TLPoint& p, double tolerance, int& part, int& rawIndex) const;
    // The segment nearest to `p` no farther than `tolerance`: its part and the raw index of its
    // start vertex. A part of one point counts as a segment of zero length. With `closeRings`
    // an unclosed part also has the segment from its last point back to its first.
    bool NearestSegment(const TLPoint& p, double tolerance, bool closeRings, int& part,
                        int& rawIndex) const;

private:
    void appendZ(int count);

    std::vector<double> mXY;
    std::vector<int> mStarts;
    std::vector<double> mZ;
    bool mHasZ = false;
};

}  // namespace TMObjects
