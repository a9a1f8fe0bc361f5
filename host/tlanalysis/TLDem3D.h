#pragma once

#include <vector>

#include "tlbase/TLPoint.h"

namespace TMObjects {

// The terrain of a height grid as a surface of triangles, for its true area over a polygon.
//
// The grid's nodes are the centres of its cells, and around them the grid's bound: its outer
// cells' heights are carried out to the border, so that the surface covers the whole bound. Each
// square of four neighbouring nodes is cut into two triangles along the diagonal from its
// lower-left to its upper-right node. A cell whose height is `NoHeight` (or NaN) drops every
// triangle that touches it: there is no surface there. The area over a polygon is the sum over
// the triangles of their part inside the polygon, each part's plane area times its triangle's
// ratio of true to plane area. The parts are exact: triangles wholly inside count whole, and only
// the squares the polygon's boundary crosses are cut, by GEOS. On a plane z = ax + by the result
// is the plane area times sqrt(1 + a² + b²) to the rounding of the sums.
class TLDem3D {
public:
    // The height that marks a cell without one.
    static constexpr double NoHeight = -9999999.0;

    TLDem3D();
    ~TLDem3D();

    // The bound of the points; all four 0 for none.
    static void getPolygonBox(const std::vector<TLPoint>& polygon, double& minX, double& minY,
                              double& maxX, double& maxY);
    // Takes a copy of the `rows` by `columns` heights, row by row with the first row at the
    // bottom, covering the bound (`left`, `right`, `bottom`, `top`). `minZ` and `maxZ` are the
    // lowest and highest valid heights as the caller found them; they are kept, not trusted:
    // a cell is valid unless it holds `NoHeight` or NaN. False, keeping no grid, for an empty
    // grid or bound.
    bool GridDataTo3D(const double* grid, int rows, int columns, double left, double right,
                      double bottom, double top, double minZ, double maxZ);
    // The surface area over the polygon (a ring; closed or not; its orientation does not count).
    // 0 without a grid or for a ring of fewer than three points or one GEOS refuses.
    double ProjectedArea(const std::vector<TLPoint>& polygon) const;

    int GetRowCount() const { return mRows; }
    int GetColumnCount() const { return mColumns; }
    double GetMinZ() const { return mMinZ; }
    double GetMaxZ() const { return mMaxZ; }

private:
    struct Grid;
    Grid* mGrid = nullptr;
    int mRows = 0;
    int mColumns = 0;
    double mMinZ = 0.0;
    double mMaxZ = 0.0;

    TLDem3D(const TLDem3D&) = delete;
    TLDem3D& operator=(const TLDem3D&) = delete;
};

}  // namespace TMObjects
