#include <algorithm>
#include <cmath>

#include "data/CEntityGeos.h"
#include "data/CcurrencyFunc.h"
#include "data/CvectorPackageData.h"

namespace TMObjects {

namespace {

struct Segment {
    double ax, ay, bx, by;
};

std::vector<Segment> segmentsOf(const CvectorEntityBase* entity) {
    std::vector<Segment> out;
    for (int k = 0; k < entity->path_GetSize(); ++k) {
        int first = 0, count = 0;
        entity->path_GetRange(k, first, count);
        for (int i = first; i + 1 < first + count; ++i) {
            Segment s{};
            entity->point_GetXY(i, &s.ax, &s.ay);
            entity->point_GetXY(i + 1, &s.bx, &s.by);
            out.push_back(s);
        }
    }
    return out;
}

double sizeOf(const std::vector<Segment>& segments) {
    double size = 1.0;
    for (const Segment& s : segments)
        size = std::max({size, std::fabs(s.ax), std::fabs(s.ay), std::fabs(s.bx), std::fabs(s.by)});
    return size;
}

bool inside(const GEOSGeometry* polygon, double x, double y) {
    GEOSContextHandle_t h = TLGeosContext::Handle();
    CEntityGeos::GeometryPtr point(GEOSGeom_createPointFromXY_r(h, x, y));
    return point && GEOSIntersects_r(h, polygon, point.get()) == 1;
}

}  // namespace

int CvectorPackageData::compSurfaceChunk(const CvectorEntityData* line,
                                         const CvectorEntityData* chunk, int mode) {
    if (!line || !chunk || mode != 0) return 0;
    CEntityGeos::GeometryPtr polygon = CEntityGeos::PolygonOf(chunk);
    if (!polygon) return 0;
    const std::vector<Segment> lineSegments = segmentsOf(line);
    const std::vector<Segment> outline = segmentsOf(chunk);
    const double hair = 1e-9 * std::max(sizeOf(lineSegments), sizeOf(outline));
    for (const Segment& s : lineSegments) {
        const double length = std::hypot(s.bx - s.ax, s.by - s.ay);
        if (length <= hair) continue;
        for (const Segment& o : outline) {
            double x = 0, y = 0;
            if (CcurrencyFunc::edge_edge(s.ax, s.ay, s.bx, s.by, o.ax, o.ay, o.bx, o.by, &x, &y,
                                         hair) != -1234)
                continue;
            // The middle of the shared stretch, probed a little to the line's left.
            const double ux = (s.bx - s.ax) / length, uy = (s.by - s.ay) / length;
            const double tc = (o.ax - s.ax) * ux + (o.ay - s.ay) * uy;
            const double td = (o.bx - s.ax) * ux + (o.by - s.ay) * uy;
            const double lo = std::max(0.0, std::min(tc, td)),
                         hi = std::min(length, std::max(tc, td));
            const double mid = (lo + hi) / 2;
            const double step = std::max((hi - lo) * 1e-6, hair * 10);
            const double mx = s.ax + ux * mid, my = s.ay + uy * mid;
            return inside(polygon.get(), mx - uy * step, my + ux * step) ? 1 : -1;
        }
    }
    return 0;
}

}  // namespace TMObjects
