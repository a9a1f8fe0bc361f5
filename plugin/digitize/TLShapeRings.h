#pragma once

#include <vector>

#include "tlbase/TLPoint.h"

namespace TMObjects {

// The vertices of the constructed polygon shapes, in map coordinates and in the order their
// band shows them. Lists that end with a repeat of their first vertex are drawn closed; the
// others are closed by the band when it becomes a polygon.
class TLShapeRings {
public:
    using Ring = std::vector<TLPoint>;

    // The axis-parallel square of half side `halfSide` about `centre`, from its upper left corner
    // clockwise, closed.
    static Ring SquareAboutCentre(const TLPoint& centre, double halfSide);
    // The square on the edge from `a` to `b`, left of that direction, closed.
    static Ring SquareOnEdge(const TLPoint& a, const TLPoint& b);

    // The axis-parallel rectangle with the diagonal from `a` to `b`, closed.
    static Ring RectangleByCorners(const TLPoint& a, const TLPoint& b);
    // The rectangle on the edge from `a` to `b` whose opposite edge lies `offset` to the left of
    // that direction; a negative offset puts it on the right. Closed.
    static Ring RectangleOnEdge(const TLPoint& a, const TLPoint& b, double offset);
    // The rectangle on the edge from `a` to `b` whose opposite edge passes through `c`, on
    // whichever side `c` lies. Closed; flat when `c` lies on the line through `a` and `b`.
    static Ring RectangleThrough(const TLPoint& a, const TLPoint& b, const TLPoint& c);
    // The axis-parallel rectangle of `length` along x and `width` along y that stands above
    // `middle`, the middle of its lower edge, whatever the signs: only the corner it starts from
    // depends on the sign of `width`. Closed.
    static Ring RectangleOfLengthAndWidth(const TLPoint& middle, double length, double width);

    // The polygon of `edges` vertices on the circle of `radius` about `centre` as typed: the
    // first vertex at the angle of one edge, 2 pi / edges, the next ones by whole degrees
    // (360 / edges in integer division), and the first again. For an edge count that does not
    // divide 360 the closing edge is the longer one.
    static Ring PolygonAboutCentre(const TLPoint& centre, double radius, int edges);
    // The regular polygon about `centre` with `vertex` as its first vertex, turned
    // counter-clockwise by equal angles, and `vertex` again.
    static Ring PolygonThroughVertex(const TLPoint& centre, const TLPoint& vertex, int edges);
    // The regular polygon on the edge from `a` to `b`: `a`, `b`, then each next vertex by turning
    // the one before last about the last by the interior angle, until there are `edges`.
    static Ring PolygonOnEdge(const TLPoint& a, const TLPoint& b, int edges);

    // The rectangle with the diagonal from `a` to `c` whose first edge runs from `a` along the
    // line to `edgePoint`: a, its two other corners with c between them, and a again.
    static Ring FreehandRectangle(const TLPoint& a, const TLPoint& edgePoint, const TLPoint& c);
};

}  // namespace TMObjects
