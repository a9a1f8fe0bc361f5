#include "digitize/TLShapeRings.h"

#include <cmath>

#include "tlmap/TLDrawCommonTool.h"

namespace TMObjects {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kQuarterTurn = 1.5707963267948966;

TLPoint along(const TLPoint& from, double direction, double distance) {
    return TLPoint(from.x + distance * std::cos(direction),
                   from.y + distance * std::sin(direction));
}

}  // namespace

TLShapeRings::Ring TLShapeRings::SquareAboutCentre(const TLPoint& c, double h) {
    return {TLPoint(c.x - h, c.y + h), TLPoint(c.x + h, c.y + h), TLPoint(c.x + h, c.y - h),
            TLPoint(c.x - h, c.y - h), TLPoint(c.x - h, c.y + h)};
}

TLShapeRings::Ring TLShapeRings::SquareOnEdge(const TLPoint& a, const TLPoint& b) {
    return RectangleOnEdge(a, b, TLDrawCommonTool::Distance(a, b));
}

TLShapeRings::Ring TLShapeRings::RectangleByCorners(const TLPoint& a, const TLPoint& b) {
    return {a, TLPoint(b.x, a.y), b, TLPoint(a.x, b.y), a};
}

TLShapeRings::Ring TLShapeRings::RectangleOnEdge(const TLPoint& a, const TLPoint& b,
                                                 double offset) {
    // FangWei plus a quarter turn points to the left of the edge's direction.
    const double normal = TLDrawCommonTool::FangWei(a.x, a.y, b.x, b.y) + kQuarterTurn;
    return {a, b, along(b, normal, offset), along(a, normal, offset), a};
}

TLShapeRings::Ring TLShapeRings::RectangleThrough(const TLPoint& a, const TLPoint& b,
                                                  const TLPoint& c) {
    // The distance is positive right of the edge, where the left normal has to go backwards.
    return RectangleOnEdge(a, b,
                           -TLDrawCommonTool::PointDistanceLine(a.x, a.y, b.x, b.y, c.x, c.y));
}

TLShapeRings::Ring TLShapeRings::RectangleOfLengthAndWidth(const TLPoint& m, double length,
                                                           double width) {
    const double h = std::fabs(length) / 2;
    const double x = m.x, y = m.y;
    // Both branches cover the band from y to y + |width|; a negative width starts on the lower
    // edge, any other on the upper one.
    if (width < 0) {
        return {TLPoint(x - h, y), TLPoint(x + h, y), TLPoint(x + h, y - width),
                TLPoint(x - h, y - width), TLPoint(x - h, y)};
    }
    return {TLPoint(x - h, y + width), TLPoint(x + h, y + width), TLPoint(x + h, y),
            TLPoint(x - h, y), TLPoint(x - h, y + width)};
}

TLShapeRings::Ring TLShapeRings::PolygonAboutCentre(const TLPoint& centre, double radius,
                                                    int edges) {
    const double first = 2 * kPi / edges;
    // Whole degrees between the vertices, as the typed construction has always stepped: 7 edges
    // step by 51 degrees and leave 54 for the closing one.
    const int degreeStep = 360 / edges;
    Ring ring;
    for (int i = 0; i < edges; ++i)
        ring.push_back(along(centre, double(degreeStep * i) * kPi / 180.0 + first, radius));
    ring.push_back(along(centre, first, radius));
    return ring;
}

TLShapeRings::Ring TLShapeRings::PolygonThroughVertex(const TLPoint& centre, const TLPoint& vertex,
                                                      int edges) {
    const double turn = 2 * kPi / edges;
    Ring ring{vertex};
    for (int i = 1; i < edges; ++i) {
        TLPoint next;
        TLDrawCommonTool::ComputePoint(turn, centre, ring.back().x, ring.back().y, next);
        ring.push_back(next);
    }
    ring.push_back(vertex);
    return ring;
}

TLShapeRings::Ring TLShapeRings::PolygonOnEdge(const TLPoint& a, const TLPoint& b, int edges) {
    const double interior = (edges - 2) * kPi / edges;
    Ring ring{a, b};
    for (std::size_t k = 0; ring.size() < std::size_t(edges); ++k) {
        TLPoint next;
        TLDrawCommonTool::ComputePoint(interior, ring[k + 1], ring[k].x, ring[k].y, next);
        ring.push_back(next);
    }
    return ring;
}

TLShapeRings::Ring TLShapeRings::FreehandRectangle(const TLPoint& a, const TLPoint& edgePoint,
                                                   const TLPoint& c) {
    TLPoint cornerB, cornerD;
    TLDrawCommonTool::GetIntersectPoint(a, edgePoint, c, cornerB, cornerD);
    return {a, cornerB, c, cornerD, a};
}

}  // namespace TMObjects
