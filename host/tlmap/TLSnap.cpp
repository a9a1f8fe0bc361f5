#include "tlmap/TLSnap.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"

namespace TMObjects {

namespace {

// Calls f(xy, count, ring) for each path of the geometry, xy being interleaved coordinates.
// Rings may or may not repeat their first point; callers close them when they do not.
template <class F>
void forEachPath(TLGeometry* geometry, F&& f) {
    if (!geometry || geometry->IsEmpty()) return;
    const TLPartList* parts = nullptr;
    bool rings = false;
    if (auto* line = dynamic_cast<TLGeoPolyline*>(geometry)) {
        parts = &line->Parts();
    } else if (auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry)) {
        parts = &polygon->Parts();
        rings = true;
    }
    if (parts) {
        const double* raw = parts->Raw();
        if (!raw) return;
        for (int i = 0; i < parts->PartCount(); ++i)
            f(raw + 2 * parts->PartStart(i), parts->PartSize(i), rings);
        return;
    }
    if (auto* box = dynamic_cast<TLGeoEnvelope*>(geometry)) {
        double x0, y0, x1, y1;
        box->QueryCoords(&x0, &y0, &x1, &y1);
        const double corners[8] = {x0, y0, x1, y0, x1, y1, x0, y1};
        f(corners, 4, true);
        return;
    }
    double* xy = nullptr;
    int count = 0;
    if (geometry->GetRawPoints(&xy, count) && xy && count > 0) f(xy, count, false);
}

// Calls f(a, b) for each edge of the geometry.
template <class F>
void forEachSegment(TLGeometry* geometry, F&& f) {
    forEachPath(geometry, [&](const double* xy, int count, bool ring) {
        for (int i = 0; i + 1 < count; ++i)
            f(TLPoint(xy[2 * i], xy[2 * i + 1]), TLPoint(xy[2 * i + 2], xy[2 * i + 3]));
        if (ring && count > 2) {
            const TLPoint first(xy[0], xy[1]), last(xy[2 * count - 2], xy[2 * count - 1]);
            if (first != last) f(last, first);
        }
    });
}

// Whether the segment a-b meets the box (Liang-Barsky clipping).
bool segmentMeetsBox(const TLPoint& a, const TLPoint& b, double xmin, double xmax, double ymin,
                     double ymax) {
    double t0 = 0.0, t1 = 1.0;
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {a.x - xmin, xmax - a.x, a.y - ymin, ymax - a.y};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0) {
            if (q[i] < 0) return false;
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
        if (t0 > t1) return false;
    }
    return true;
}

}  // namespace

TLPoint TLSnap::SegmentFoot(const TLPoint& a, const TLPoint& b, const TLPoint& p) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length2 = dx * dx + dy * dy;
    if (length2 <= 0) return a;
    const double t = std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length2, 0.0, 1.0);
    return TLPoint(a.x + t * dx, a.y + t * dy);
}

bool TLSnap::NearestVertex(TLGeometry* geometry, const TLPoint& p, double tolerance, TLPoint& hit,
                           double& distance) {
    bool found = false;
    double best = tolerance * tolerance;
    forEachPath(geometry, [&](const double* xy, int count, bool) {
        for (int i = 0; i < count; ++i) {
            const double d2 = p.SqrDist(xy[2 * i], xy[2 * i + 1]);
            if (d2 <= best && (!found || d2 < best)) {
                best = d2;
                hit = TLPoint(xy[2 * i], xy[2 * i + 1]);
                found = true;
            }
        }
    });
    if (found) distance = std::sqrt(best);
    return found;
}

bool TLSnap::NearestSegmentPoint(TLGeometry* geometry, const TLPoint& p, double tolerance,
                                 TLPoint& hit, double& distance) {
    bool found = false;
    double best = tolerance * tolerance;
    forEachSegment(geometry, [&](const TLPoint& a, const TLPoint& b) {
        const TLPoint foot = SegmentFoot(a, b, p);
        const double d2 = p.SqrDist(foot);
        if (d2 <= best && (!found || d2 < best)) {
            best = d2;
            hit = foot;
            found = true;
        }
    });
    if (found) distance = std::sqrt(best);
    return found;
}

TLSnappingType TLSnap::snap(TLPoint p, TLGeometry* geometry, double tolerance, double& x,
                            double& y) {
    if (!geometry || !(tolerance >= 0)) return TLSnapNone;
    TLPoint hit;
    double distance = 0;
    TLSnappingType type = TLSnapNone;
    if (NearestVertex(geometry, p, tolerance, hit, distance))
        type = TLSnapVertex;
    else if (NearestSegmentPoint(geometry, p, tolerance, hit, distance))
        type = TLSnapSegment;
    if (type != TLSnapNone) {
        x = hit.x;
        y = hit.y;
    }
    return type;
}

bool TLSnap::getAllureEdge(const TLPoint& centre, TLGeometry* geometry, const double& halfWidth,
                           const double& halfHeight, double& x1, double& y1, double& x2,
                           double& y2) {
    const double hw = std::fabs(halfWidth), hh = std::fabs(halfHeight);
    if (!geometry || !std::isfinite(hw) || !std::isfinite(hh)) return false;
    const double xmin = centre.x - hw, xmax = centre.x + hw;
    const double ymin = centre.y - hh, ymax = centre.y + hh;
    bool found = false;
    double best = std::numeric_limits<double>::infinity();
    TLPoint bestA, bestB;
    forEachSegment(geometry, [&](const TLPoint& a, const TLPoint& b) {
        if (!segmentMeetsBox(a, b, xmin, xmax, ymin, ymax)) return;
        const double d2 = centre.SqrDist(SegmentFoot(a, b, centre));
        if (d2 < best) {
            best = d2;
            bestA = a;
            bestB = b;
            found = true;
        }
    });
    if (!found) return false;
    x1 = bestA.x;
    y1 = bestA.y;
    x2 = bestB.x;
    y2 = bestB.y;
    return true;
}

}  // namespace TMObjects
