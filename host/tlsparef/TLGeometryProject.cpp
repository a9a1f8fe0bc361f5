#include "tlsparef/TLGeometryProject.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlsparef/TLProjObject.h"

namespace TMObjects {

struct TLGeometryProject::Impl {
    TLProjObject operation;
};

namespace {

// Points added on each edge of a rectangle before it is projected: a straight edge may map to
// a curve whose extreme lies between the corners. 21 is what PROJ recommends.
constexpr int kDensifyPoints = 21;

bool transform(PJ* operation, double& x, double& y) {
    proj_errno_reset(operation);
    const PJ_COORD out = proj_trans(operation, PJ_FWD, proj_coord(x, y, 0.0, HUGE_VAL));
    if (!std::isfinite(out.xy.x) || !std::isfinite(out.xy.y)) return false;
    x = out.xy.x;
    y = out.xy.y;
    return true;
}

// The rectangle's outline, counter-clockwise from (xmin, ymin), kDensifyPoints inside each edge.
std::vector<double> densifiedOutline(double xmin, double ymin, double xmax, double ymax) {
    const double corners[5][2] = {
        {xmin, ymin}, {xmax, ymin}, {xmax, ymax}, {xmin, ymax}, {xmin, ymin}};
    std::vector<double> xy;
    const int steps = kDensifyPoints + 1;
    for (int edge = 0; edge < 4; ++edge) {
        for (int i = 0; i < steps; ++i) {
            const double t = double(i) / steps;
            xy.push_back(corners[edge][0] + t * (corners[edge + 1][0] - corners[edge][0]));
            xy.push_back(corners[edge][1] + t * (corners[edge + 1][1] - corners[edge][1]));
        }
    }
    return xy;
}

// The bounds of the projected, densified outline; false when any outline point fails.
bool outlineBounds(PJ* operation, double xmin, double ymin, double xmax, double ymax, double lo[2],
                   double hi[2]) {
    std::vector<double> outline = densifiedOutline(xmin, ymin, xmax, ymax);
    lo[0] = lo[1] = HUGE_VAL;
    hi[0] = hi[1] = -HUGE_VAL;
    for (std::size_t i = 0; i < outline.size(); i += 2) {
        if (!transform(operation, outline[i], outline[i + 1])) return false;
        for (int axis = 0; axis < 2; ++axis) {
            lo[axis] = std::min(lo[axis], outline[i + axis]);
            hi[axis] = std::max(hi[axis], outline[i + axis]);
        }
    }
    return true;
}

}  // namespace

TLGeometryProject::TLGeometryProject() : mImpl(std::make_unique<Impl>()) {}

TLGeometryProject::~TLGeometryProject() = default;

bool TLGeometryProject::SetPrj(TLCoordinateSystem* from, TLCoordinateSystem* to,
                               TLParaConvertBase* params) {
    mImpl->operation.Reset();
    if (!from || !to || !from->IsValid() || !to->IsValid()) return false;
    PJ_CONTEXT* ctx = TLProjContext::Current()->Get();
    const TLProjObject operation(
        proj_create_crs_to_crs_from_pj(ctx, static_cast<PJ*>(from->ProjObject()),
                                       static_cast<PJ*>(to->ProjObject()), nullptr, nullptr));
    if (!operation) return false;
    // Geometries keep x as easting or longitude whatever order the authority defines.
    mImpl->operation = TLProjObject(proj_normalize_for_visualization(ctx, operation.Get()));
    return bool(mImpl->operation);
}

bool TLGeometryProject::ProjXY(double& x, double& y) {
    if (!mImpl->operation) return false;
    return transform(mImpl->operation.Get(), x, y);
}

bool TLGeometryProject::ProjPoint(TLPoint& point) {
    return ProjXY(point.x, point.y);
}

bool TLGeometryProject::ProjTmPoint(TLGeoPoint* point) {
    return ProjTmGeometry(point);
}

bool TLGeometryProject::ProjTmPolyline(TLGeoPolyline* line) {
    return ProjTmGeometry(line);
}

bool TLGeometryProject::ProjTmGeometry(TLGeometry* geometry, TLGeometry::GeoType type) {
    // A caller that names another kind than the geometry has would have it read wrongly.
    if (!geometry || geometry->GetType() != type) return false;
    return ProjTmGeometry(geometry);
}

bool TLGeometryProject::ProjTmGeometry(TLGeometry* geometry) {
    if (!mImpl->operation || !geometry) return false;
    if (geometry->GetType() == TLGeometry::GeoEnvelope) return projectEnvelope(geometry);
    return projectRaw(geometry);
}

bool TLGeometryProject::projectRaw(TLGeometry* geometry) {
    double* raw = nullptr;
    int count = 0;
    if (!geometry->GetRawPoints(&raw, count) || !raw || count <= 0) return geometry->IsEmpty();
    // Projected into a copy first, so that a vertex that fails leaves the geometry as it was.
    std::vector<double> xy(raw, raw + 2 * count);
    PJ* operation = mImpl->operation.Get();
    for (int i = 0; i < count; ++i) {
        if (!transform(operation, xy[2 * i], xy[2 * i + 1])) return false;
    }
    return geometry->UpdateRawPoints(xy.data());
}

bool TLGeometryProject::projectEnvelope(TLGeometry* geometry) {
    auto* envelope = static_cast<TLGeoEnvelope*>(geometry);
    if (envelope->IsEmpty()) return true;
    double xmin = 0, ymin = 0, xmax = 0, ymax = 0;
    envelope->QueryCoords(&xmin, &ymin, &xmax, &ymax);
    if (!ProjBounds(xmin, ymin, xmax, ymax)) return false;
    envelope->PutCoord(xmin, ymin, xmax, ymax);
    return true;
}

bool TLGeometryProject::ProjBounds(double& xmin, double& ymin, double& xmax, double& ymax) {
    if (!mImpl->operation) return false;
    PJ* operation = mImpl->operation.Get();
    // proj_trans_bounds skips outline points that fail and would hand back a smaller rectangle;
    // a rectangle partly outside the target system is refused instead.
    double lo[2], hi[2];
    if (!outlineBounds(operation, xmin, ymin, xmax, ymax, lo, hi)) return false;
    // PROJ also finds a pole inside the rectangle, which no outline point shows.
    double out[4] = {0, 0, 0, 0};
    proj_errno_reset(operation);
    const bool bounded =
        proj_trans_bounds(TLProjContext::Current()->Get(), operation, PJ_FWD, xmin, ymin, xmax,
                          ymax, &out[0], &out[1], &out[2], &out[3], kDensifyPoints) != 0 &&
        std::all_of(out, out + 4, [](double v) { return std::isfinite(v); });
    // A geographic result that crosses the antimeridian comes back with xmin > xmax; a plain
    // rectangle cannot say that, and the outline's bounds at least cover it.
    if (bounded && out[0] <= out[2] && out[1] <= out[3]) {
        xmin = out[0], ymin = out[1], xmax = out[2], ymax = out[3];
    } else {
        xmin = lo[0], ymin = lo[1], xmax = hi[0], ymax = hi[1];
    }
    return true;
}

}  // namespace TMObjects
