#include "edit/TLExtensionGeometry.h"

#include <cmath>

#include "tlgeo/TLGeoPolyline.h"

namespace TMObjects {

void crossSegment(const TLPoint& p1, const TLPoint& p2, const TLPoint& q1, const TLPoint& q2,
                  TLPoint& out, int& found) {
    const double dx1 = p2.x - p1.x, dy1 = p2.y - p1.y;
    const double dx2 = q2.x - q1.x, dy2 = q2.y - q1.y;
    if (dx1 == 0) {
        if (dx2 == 0) {
            found = 0;
            return;
        }
        out.x = p1.x;
        out.y = dy2 == 0 ? q1.y : (p1.x - q1.x) * (dy2 / dx2) + q1.y;
        found = (out.y - p2.y) * (out.y - p1.y) <= 0 ? 1 : 0;
        return;
    }
    if (dx2 == 0) {
        out.x = q1.x;
        out.y = dy1 == 0 ? p1.y : (q1.x - p1.x) * (dy1 / dx1) + p1.y;
        found = (out.y - q2.y) * (out.y - q1.y) >= 0 ? 1 : 0;
        return;
    }
    const double k1 = dy1 / dx1, k2 = dy2 / dx2;
    if (k1 == k2) {
        found = 0;
        return;
    }
    if (dy1 == 0) {
        out.x = ((p1.y - q1.y) + q1.x * k2) / k2;
        out.y = p1.y;
    }
    if (dy2 == 0) {
        out.x = (k1 * p1.x + (q1.y - p1.y)) / k1;
        out.y = q1.y;
    }
    if (dy1 * dy2 != 0) {
        out.x = ((k2 * q1.x + (p1.y - q1.y)) - k1 * p1.x) / (k2 - k1);
        out.y = (out.x - p1.x) * k1 + p1.y;
    }
    if ((out.y - p2.y) * (out.y - p1.y) <= 0 && (out.x - p1.x) * (out.x - p2.x) <= 0) found = 1;
}

void pointBeyond(const TLPoint& a, const TLPoint& b, double distance, TLPoint& out) {
    if (a.x == b.x) {
        const double s = (b.y - a.y) / std::fabs(b.y - a.y);
        out.x = b.x;
        out.y = s * distance + b.y;
    } else if (a.y == b.y) {
        const double s = (b.x - a.x) / std::fabs(b.x - a.x);
        out.x = s * distance + b.x;
        out.y = b.y;
    } else {
        const double dx = b.x - a.x, dy = b.y - a.y;
        const double k = dy / dx;
        const double r = std::sqrt(k * k + 1);
        out.x = (dx / std::fabs(dx)) * distance / r + b.x;
        out.y = (dy / std::fabs(dy)) * distance * std::fabs(k) / r + b.y;
    }
}

TLRefPtr<TLGeoPolyline> extendedLine(TLGeoPolyline* line, const TLPoint& point, bool atStart) {
    TLRefPtr<TLGeoPolyline> out(new TLGeoPolyline);
    const int last = line->GetPathCount() - 1;
    for (int p = 0; p <= last; ++p) {
        out->BeginPath();
        out->BeginSegment();
        if (p == 0 && atStart) out->AddXY(point.x, point.y);
        double* xy = nullptr;
        int count = 0;
        TLRefPtr<TLGeoPath> path = line->GetPath(p);
        if (path && path->GetRawPoints(&xy, count)) out->AddPoints(xy, count);
        if (p == last && !atStart) out->AddXY(point.x, point.y);
    }
    out->EndEntity();
    return out;
}

}  // namespace TMObjects
