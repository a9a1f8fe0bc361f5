#pragma once

#include <vector>

#include "data/CvectorPointArray.h"

namespace TMObjects {

// The geometry of an entity of the data library: its kind, its vertices, the paths (or rings)
// they form, and its bounding box.
//
// Entities are built like the host's geometries: entity_BeginPath opens a path,
// entity_BeginSegment marks the kind of the segments that follow (1, straight, is the only
// kind), point_Add appends to the current path (opening one when there is none), and
// entity_EndEntity drops empty paths and computes the box. A vertex inserted with point_InsertAt
// joins the path of the vertex before it, so that "insert after vertex a" stays in a's path even
// when a ends it; a vertex removed takes nothing else with it, and a path left empty is dropped
// by the next entity_EndEntity.
class CvectorEntityBase {
public:
    // The kinds of entity, the numbers being those of the package layers that hold them.
    enum EntityType { EntityUnknown = 0, EntityPoint = 1, EntityLine = 3, EntityPolygon = 4 };

    CvectorEntityBase() = default;
    CvectorEntityBase(const CvectorEntityBase&) = default;
    CvectorEntityBase& operator=(const CvectorEntityBase&) = default;
    virtual ~CvectorEntityBase() = default;

    int entity_GetType() const { return mType; }
    void entity_SetType(int type) { mType = type; }

    // Vertices, by index over all paths.
    int point_GetSize() const { return mPoints.getSize(); }
    bool point_GetXY(int index, double* x, double* y) const { return mPoints.GetXY(index, x, y); }
    bool point_GetXYZ(int index, double* x, double* y, double* z) const;
    bool point_SetXY(int index, double x, double y) { return mPoints.SetXY(index, x, y); }
    bool point_SetZ(int index, double z) { return mPoints.SetZ(index, z); }
    // Appends (0, 0) to the current path and returns its index.
    int point_Add();
    int point_Add(double x, double y, double z = 0.0);
    bool point_InsertAt(int index, double x, double y, double z = 0.0);
    bool point_RemoveAt(int index);
    void point_RemoveAll();
    // The first and last vertex of the path that holds `index`; 1 when that path is closed (its
    // last vertex equals its first and it has three or more), 0 when open, -1 for an index out of
    // range (first and last are then -1).
    int point_GetPathClose01(int index, int& first, int& last) const;
    CvectorPointArray& points() { return mPoints; }
    const CvectorPointArray& points() const { return mPoints; }

    // Paths.
    int entity_BeginPath();
    int entity_BeginSegment(int segmentType);
    int entity_EndEntity();
    int path_GetSize() const { return int(mPathStarts.size()); }
    // The raw index of the path's first vertex and its vertex count; false out of range.
    bool path_GetRange(int path, int& first, int& count) const;
    // The path that holds a vertex; -1 out of range.
    int path_Of(int index) const;

    // The box of the vertices, as computed by the last entity_CalcBox or entity_EndEntity.
    void entity_CalcBox();
    bool entity_GetBox(double* minX, double* minY, double* maxX, double* maxY) const;
    // The area enclosed by the rings (plane, `mode` 0): holes, told by containment, are taken
    // off. 0 for lines and points.
    double entity_CalcAcreage(int mode) const;
    // True when there is at least one path and every path is closed.
    bool entity_TestClose() const;
    // Puts the rings of a polygon in order: outer rings counter-clockwise, holes clockwise. Lines
    // and points keep their vertex order. The box is computed again.
    void entity_ForeWard();
    // Copies kind, vertices and paths of another entity (nothing of what CvectorEntityData adds).
    void entity_CopyData(const CvectorEntityBase* other);
    bool entity_HasZ() const { return mHasZ; }
    void entity_SetHasZ(bool hasZ) { mHasZ = hasZ; }

private:
    void shiftStarts(int index, int delta);

    int mType = EntityUnknown;
    CvectorPointArray mPoints;
    std::vector<int> mPathStarts;
    bool mHasZ = false;
    bool mHasBox = false;
    double mBox[4] = {0.0, 0.0, 0.0, 0.0};
};

}  // namespace TMObjects
