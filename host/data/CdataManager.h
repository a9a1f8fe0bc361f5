#pragma once

#include "data/CvectorPackageArray.h"

namespace TMObjects {

// The data library's workspace: packages of layers and entities, the current package, entity
// and point, four limits, and the operations that work on packages.
//
// The limits are distances in the coordinates of the data (a tool converts them from pixels
// with ToMapTolerance before use, so the defaults read as pixels there):
// - dPointLimit (default 1): two points closer than this are one point. Split points closer
//   than it along a line merge, a split point this close to an end of an open path does not
//   split, and a cutting line that ends this close to a line, without reaching it, still cuts it
//   at the foot of its end.
// - dLineLimit (default 1): the shortest piece a split may leave. A split point that would leave
//   a piece shorter than this is dropped, so the short stretch stays on its neighbour and
//   nothing of the line is lost.
// - dAreaLimit (default 1): the smallest area of a polygon piece that the polygon operations
//   keep as a piece of its own.
// - dBoolLimit (default 0.1): the snapping distance of the boolean operations between polygons.
// Negative or non-finite values count as 0.
class CdataManager {
public:
    CdataManager();
    CdataManager(const CdataManager&) = delete;
    CdataManager& operator=(const CdataManager&) = delete;

    double get_dBoolLimit() const { return mBoolLimit; }
    double get_dPointLimit() const { return mPointLimit; }
    double get_dAreaLimit() const { return mAreaLimit; }
    double get_dLineLimit() const { return mLineLimit; }
    void set_dBoolLimit(double limit);
    void set_dPointLimit(double limit);
    void set_dAreaLimit(double limit);
    void set_dLineLimit(double limit);

    // Packages, numbered from 0.
    CvectorPackageArray& GetPackages() { return mPackages; }
    // Appends an empty package and returns its number.
    int package_Add();
    CvectorPackageData* package_GetAt(int number) const { return mPackages.getAt(number); }
    bool package_GetAt(int number, CvectorPackageData*& package) const;
    void package_GetSize(int& size) const { size = mPackages.getSize(); }
    int package_GetSize() const { return mPackages.getSize(); }
    // The number of the last package; -1 when there is none.
    int package_GetUpperBound() const { return mPackages.getSize() - 1; }

    // The current package, entity and point, as a tool leaves them for the next operation; -1
    // when none was set.
    void setCurrPackageNo(int number) { mCurrPackage = number; }
    int getCurrPackageNo() const { return mCurrPackage; }
    void setCurrEntityNo(int number) { mCurrEntity = number; }
    int getCurrEntityNo() const { return mCurrEntity; }
    void setCurrPointNo(int number) { mCurrPoint = number; }
    int getCurrPointNo() const { return mCurrPoint; }

    // Reading an entity of a package by numbers; false (count 0) for numbers out of range.
    bool point_GetSize(int package, int entity, int& count) const;
    bool point_GetXY(int package, int entity, int index, double& x, double& y) const;
    // The field definitions of layer `layer` of the package, and those of the layer an entity
    // is linked to: the same pointer when the entity belongs to that layer. Null when missing.
    CRvFields* layer_FieldGetLayerPt(int package, int layer) const;
    CRvFields* entity_GetAttribLayerPT(int package, int entity) const;

    // Splits the lines of layer `targetLayer` of package `package` wherever the lines and
    // polygon outlines of layer `cutterLayer` meet them, and appends one package that holds the
    // pieces. Returns the new package's number, or -1 when none was appended. `mode` 1 is the
    // only mode: every target is cut by every cutter.
    //
    // - Each path of a target is split on its own; a path that no cutter divides becomes one
    //   piece as it is. Pieces follow the target's order: entity by entity, path by path, and
    //   along each path in its vertex order.
    // - A crossing splits at the crossing point; a stretch where a cutter runs along the target
    //   splits at both ends of the stretch; a cutter through a vertex splits at that vertex.
    // - Split points follow the limits above (dPointLimit, dLineLimit).
    // - A closed path is a ring: its start vertex is no end. With two or more split points it
    //   opens into as many pieces, the piece over its start running on through the start. A
    //   single split point does not divide a ring, and it stays whole.
    // - When no path of any target is divided (the cutter misses, or only touches an end), no
    //   package is appended: a caller that drops a clicked piece would otherwise drop the whole
    //   line.
    // - Each piece is an entity of a line layer that copies the target layer (kind, name, fields),
    //   with the attributes, handle and layer link of its target, and its target's 1-based index
    //   among the target layer's entities as its only source.
    int lineLayerSniplineLayer(int package, int targetLayer, int cutterLayer, int mode);

    // Operations on polygons and lines of packages; each appends its result as a new package
    // and returns that package's number, or -1 (nothing appended) for a missing package or an
    // unknown operation.
    //
    // twoBoolOperate: the polygons of the first package cut by the second package. Sources are
    // numbered across both packages: the first package's entities 1..n, the second's n+1 on.
    // The result package always comes, empty when nothing results, with one polygon layer (a copy
    // of the first piece's layer); each piece is one polygon (holes kept) that takes the handle
    // and attributes of its first source of the first package. Noding is exact: no vertex moves,
    // no piece is dropped for its size (dBoolLimit and dAreaLimit do not apply). `mode` and
    // `flags` are not read.
    // - 13: the overlay of both packages' polygons. Every area covered by a polygon of the first
    //   package becomes pieces, each listing every polygon (of either package) that covers it, in
    //   ascending order; areas of one list that share an edge are one piece, areas that only meet
    //   at a point are two. Pieces come in the order of their lists (compared as sequences), the
    //   larger first within a list. A polygon that nothing overlaps and no outline crosses comes
    //   back whole, its vertices as they were.
    // - 14: each polygon of the first package cut by the lines of the second (paths of lines,
    //   outlines of polygons): its outline is noded with them and the faces inside it are the
    //   pieces, largest first, each with that polygon as its only source. A line that does not
    //   run across (a dangling end, a line ending inside) cuts nothing.
    int twoBoolOperate(int firstPackage, int secondPackage, int operation, int mode, int flags);
    // A topology operation on the current package. 2: the polygons of the package, each snapped
    // to the others' vertices within `pointLimit`, are merged where they share an edge (polygons
    // meeting at a point only stay apart); the result package holds one polygon entity per merged
    // polygon, listing the 1-based numbers of the polygons it is made of and taking the handle and
    // attributes of the first. Other operations: -1.
    int currDataTopoOperate(int operation, double tolerance, double pointLimit, int mode, int flags,
                            int option);
    // Merges, in place, the polygon entities of a package whose binding flag equals `flag` and
    // that share an edge: the first entity of each group takes the merged shape, the others are
    // removed. Returns the number of entities removed, or -1 for a missing package.
    int package_BindingEntity(int package, int flag);
    // Non-zero when (x, y) lies on the entity's lines or outline: within dPointLimit of a
    // segment, and at least within the rounding of the coordinates (1e-9 of their size).
    int point_InLine(const CvectorEntityData* object, double x, double y) const;
    // The vertex of an entity nearest to (x, y), the first of equally near ones: returns its
    // index, with that vertex in (fx, fy) and its distance; -1 for an empty or missing entity.
    int entity_GetMinDistance(int package, int entity, double x, double y, double& fx, double& fy,
                              double& distance) const;
    // Edge matching: makes the outlines of the entities of layer `collectedLayer` meet the
    // boundary entity `entity` (of layer `boundaryLayer`) inside the rectangle of corners (x1, y1)
    // and (x2, y2), edges included, in place. Returns the number of vertices moved.
    // - Every vertex of a caught entity inside the rectangle moves onto the boundary: to the
    //   nearest boundary vertex no farther than dPointLimit (the first of equally near ones),
    //   else to its foot on the nearest boundary edge. Vertices outside stay where they are.
    // - Between two neighbouring vertices that landed on the same path of the boundary, the
    //   boundary's own vertices that lie between the two landing spots are put in, in order:
    //   along an open path straight, round a ring the shorter way. So wherever a caught outline
    //   meets the boundary in the rectangle, the two outlines are the same line, vertex for
    //   vertex: no sliver and no gap is left between the caught polygons and the boundary.
    // - Two neighbours that land on one spot become one vertex; a ring whose first vertex lands
    //   stays closed, since its closing vertex lands on the same spot.
    // Nothing else is changed: the boundary itself, entities of other layers, attributes. `kind`
    // and the current point do not change the result (the corners may come in any order).
    int handMovementMeetEdge(int package, int boundaryLayer, int collectedLayer, int entity,
                             int kind, double x1, double y1, double x2, double y2);

private:
    CvectorPackageArray mPackages;
    int mCurrPackage = -1;
    int mCurrEntity = -1;
    int mCurrPoint = -1;
    double mBoolLimit = 0.1;
    double mPointLimit = 1.0;
    double mAreaLimit = 1.0;
    double mLineLimit = 1.0;
};

}  // namespace TMObjects
