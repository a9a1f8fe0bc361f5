#include "tlanalysis/TLDem3D.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "tlanalysis/TLExactSum.h"
#include "tlgeo/TLGeosContext.h"

namespace TMObjects {

namespace {

using GeometryPtr = TLGeosContext::GeometryPtr;

struct Node {
    double x, y, z;
};

bool valid(double z) {
    return !std::isnan(z) && z != TLDem3D::NoHeight;
}

// True and plane area of a triangle; the ratio of the two is that of every part of it.
void triangleAreas(const Node& a, const Node& b, const Node& c, double& area3, double& area2) {
    const double ux = b.x - a.x, uy = b.y - a.y, uz = b.z - a.z;
    const double vx = c.x - a.x, vy = c.y - a.y, vz = c.z - a.z;
    const double cx = uy * vz - uz * vy, cy = uz * vx - ux * vz, cz = ux * vy - uy * vx;
    area3 = 0.5 * std::sqrt(cx * cx + cy * cy + cz * cz);
    area2 = 0.5 * std::fabs(cz);
}

GeometryPtr ringPolygon(const std::vector<TLPoint>& points) {
    GEOSContextHandle_t h = TLGeosContext::Handle();
    std::vector<TLPoint> ring;
    for (const TLPoint& p : points)
        if (ring.empty() || p != ring.back()) ring.push_back(p);
    if (ring.size() > 1 && ring.front() == ring.back()) ring.pop_back();
    if (ring.size() < 3) return nullptr;
    ring.push_back(ring.front());
    GEOSCoordSequence* sequence = GEOSCoordSeq_create_r(h, unsigned(ring.size()), 2);
    for (unsigned i = 0; i < ring.size(); ++i)
        GEOSCoordSeq_setXY_r(h, sequence, i, ring[i].x, ring[i].y);
    GEOSGeometry* shell = GEOSGeom_createLinearRing_r(h, sequence);
    if (!shell) return nullptr;
    GeometryPtr polygon(GEOSGeom_createPolygon_r(h, shell, nullptr, 0));
    if (!polygon) return nullptr;
    // A ring that crosses itself is taken as the area it encloses, as GEOS repairs it.
    if (GEOSisValid_r(h, polygon.get()) != 1) polygon.reset(GEOSMakeValid_r(h, polygon.get()));
    return polygon;
}

GeometryPtr trianglePolygon(const Node& a, const Node& b, const Node& c) {
    GEOSContextHandle_t h = TLGeosContext::Handle();
    GEOSCoordSequence* sequence = GEOSCoordSeq_create_r(h, 4, 2);
    const Node* corners[4] = {&a, &b, &c, &a};
    for (unsigned i = 0; i < 4; ++i)
        GEOSCoordSeq_setXY_r(h, sequence, i, corners[i]->x, corners[i]->y);
    return GeometryPtr(
        GEOSGeom_createPolygon_r(h, GEOSGeom_createLinearRing_r(h, sequence), nullptr, 0));
}

double areaOf(const GEOSGeometry* geometry) {
    double area = 0.0;
    if (geometry) GEOSArea_r(TLGeosContext::Handle(), geometry, &area);
    return area;
}

}  // namespace

// The nodes of the surface: the cell centres, with the grid's border added on every side.
struct TLDem3D::Grid {
    std::vector<double> xs, ys;  // node positions, ascending
    std::vector<double> cells;   // rows x columns, first row at the bottom
    int rows = 0, columns = 0;
    double left = 0, bottom = 0, cellWidth = 0, cellHeight = 0;

    double height(int i, int j) const {
        const int c = std::clamp(i - 1, 0, columns - 1);
        const int r = std::clamp(j - 1, 0, rows - 1);
        return cells[std::size_t(r) * columns + c];
    }
    Node node(int i, int j) const { return {xs[i], ys[j], height(i, j)}; }
    int squaresAcross() const { return int(xs.size()) - 1; }
    int squaresUp() const { return int(ys.size()) - 1; }
    // The square that holds x (or y), clamped to the grid.
    int squareColumn(double x) const {
        return std::clamp(int(std::floor((x - left) / cellWidth + 0.5)), 0, squaresAcross() - 1);
    }
    int squareRow(double y) const {
        return std::clamp(int(std::floor((y - bottom) / cellHeight + 0.5)), 0, squaresUp() - 1);
    }
};

TLDem3D::TLDem3D() = default;

TLDem3D::~TLDem3D() {
    delete mGrid;
}

void TLDem3D::getPolygonBox(const std::vector<TLPoint>& polygon, double& minX, double& minY,
                            double& maxX, double& maxY) {
    minX = minY = maxX = maxY = 0.0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const TLPoint& p = polygon[i];
        minX = i ? std::min(minX, p.x) : p.x;
        minY = i ? std::min(minY, p.y) : p.y;
        maxX = i ? std::max(maxX, p.x) : p.x;
        maxY = i ? std::max(maxY, p.y) : p.y;
    }
}

bool TLDem3D::GridDataTo3D(const double* grid, int rows, int columns, double left, double right,
                           double bottom, double top, double minZ, double maxZ) {
    delete mGrid;
    mGrid = nullptr;
    mRows = mColumns = 0;
    if (!grid || rows <= 0 || columns <= 0 || !(right > left) || !(top > bottom)) return false;
    auto* g = new Grid;
    g->rows = rows;
    g->columns = columns;
    g->left = left;
    g->bottom = bottom;
    g->cellWidth = (right - left) / columns;
    g->cellHeight = (top - bottom) / rows;
    g->cells.assign(grid, grid + std::size_t(rows) * columns);
    g->xs.push_back(left);
    for (int c = 0; c < columns; ++c) g->xs.push_back(left + (c + 0.5) * g->cellWidth);
    g->xs.push_back(right);
    g->ys.push_back(bottom);
    for (int r = 0; r < rows; ++r) g->ys.push_back(bottom + (r + 0.5) * g->cellHeight);
    g->ys.push_back(top);
    mGrid = g;
    mRows = rows;
    mColumns = columns;
    mMinZ = minZ;
    mMaxZ = maxZ;
    return true;
}

double TLDem3D::ProjectedArea(const std::vector<TLPoint>& polygon) const {
    if (!mGrid) return 0.0;
    const Grid& g = *mGrid;
    GeometryPtr shape = ringPolygon(polygon);
    if (!shape) return 0.0;
    GEOSContextHandle_t h = TLGeosContext::Handle();
    const int across = g.squaresAcross(), up = g.squaresUp();

    // Squares the boundary may cross: every square within one of a point sampled along the
    // ring at a quarter of the smallest square's side. A crossed square always has such a
    // neighbour, so the marks are a superset of the crossed squares.
    std::vector<char> crossed(std::size_t(across) * up, 0);
    const double step = 0.25 * std::min(g.cellWidth, g.cellHeight) * 0.5;
    std::vector<TLPoint> ring = polygon;
    if (!ring.empty() && ring.front() != ring.back()) ring.push_back(ring.front());
    const double gl = g.xs.front(), gr = g.xs.back(), gb = g.ys.front(), gt = g.ys.back();
    auto mark = [&](double x, double y) {
        const int i = g.squareColumn(x), j = g.squareRow(y);
        for (int jj = std::max(0, j - 1); jj <= std::min(up - 1, j + 1); ++jj)
            for (int ii = std::max(0, i - 1); ii <= std::min(across - 1, i + 1); ++ii)
                crossed[std::size_t(jj) * across + ii] = 1;
    };
    for (std::size_t k = 0; k + 1 < ring.size(); ++k) {
        // The part of the edge over the grid (Liang-Barsky); the rest crosses no square.
        double x0 = ring[k].x, y0 = ring[k].y, dx = ring[k + 1].x - x0, dy = ring[k + 1].y - y0;
        double t0 = 0.0, t1 = 1.0;
        const double p[4] = {-dx, dx, -dy, dy}, q[4] = {x0 - gl, gr - x0, y0 - gb, gt - y0};
        bool visible = true;
        for (int e = 0; e < 4 && visible; ++e) {
            if (p[e] == 0.0) {
                visible = q[e] >= 0.0;
            } else {
                const double t = q[e] / p[e];
                if (p[e] < 0.0)
                    t0 = std::max(t0, t);
                else
                    t1 = std::min(t1, t);
                visible = t0 <= t1;
            }
        }
        if (!visible) continue;
        const double length = std::hypot(dx, dy) * (t1 - t0);
        const long long samples = std::max<long long>(1, (long long)std::ceil(length / step));
        for (long long s = 0; s <= samples; ++s) {
            const double t = t0 + (t1 - t0) * double(s) / double(samples);
            mark(x0 + t * dx, y0 + t * dy);
        }
    }

    // The ring's edges by the rows of squares whose middle line they cross, for the inside test
    // of the squares no edge crosses.
    std::vector<std::vector<std::size_t>> edgesOfRow(up);
    for (std::size_t k = 0; k + 1 < ring.size(); ++k) {
        const double lo = std::min(ring[k].y, ring[k + 1].y),
                     hi = std::max(ring[k].y, ring[k + 1].y);
        if (hi < gb || lo > gt) continue;
        for (int j = g.squareRow(lo); j <= g.squareRow(hi); ++j) edgesOfRow[j].push_back(k);
    }

    TLExactSum total;
    const GEOSPreparedGeometry* prepared = GEOSPrepare_r(h, shape.get());
    std::vector<double> crossings;
    for (int j = 0; j < up; ++j) {
        const double yc = 0.5 * (g.ys[j] + g.ys[j + 1]);
        crossings.clear();
        for (std::size_t k : edgesOfRow[j]) {
            const TLPoint& a = ring[k];
            const TLPoint& b = ring[k + 1];
            if ((a.y > yc) != (b.y > yc))
                crossings.push_back(a.x + (yc - a.y) * (b.x - a.x) / (b.y - a.y));
        }
        std::sort(crossings.begin(), crossings.end());
        std::size_t passed = 0;
        for (int i = 0; i < across; ++i) {
            const double xc = 0.5 * (g.xs[i] + g.xs[i + 1]);
            while (passed < crossings.size() && crossings[passed] < xc) ++passed;
            const Node n00 = g.node(i, j), n10 = g.node(i + 1, j), n01 = g.node(i, j + 1),
                       n11 = g.node(i + 1, j + 1);
            const Node* triangles[2][3] = {{&n00, &n10, &n11}, {&n00, &n11, &n01}};
            const bool boundary = crossed[std::size_t(j) * across + i];
            if (!boundary && passed % 2 == 0) continue;  // wholly outside
            GeometryPtr piece;
            if (boundary) {
                piece.reset(
                    GEOSClipByRect_r(h, shape.get(), g.xs[i], g.ys[j], g.xs[i + 1], g.ys[j + 1]));
                if (!piece || GEOSisEmpty_r(h, piece.get())) continue;
            }
            for (const auto& t : triangles) {
                if (!valid(t[0]->z) || !valid(t[1]->z) || !valid(t[2]->z)) continue;
                double area3 = 0.0, area2 = 0.0;
                triangleAreas(*t[0], *t[1], *t[2], area3, area2);
                if (area2 <= 0.0) continue;
                if (!boundary) {
                    total.Add(area3);
                    continue;
                }
                GeometryPtr triangle = trianglePolygon(*t[0], *t[1], *t[2]);
                if (GEOSPreparedContains_r(h, prepared, triangle.get()) == 1) {
                    total.Add(area3);
                    continue;
                }
                GeometryPtr inside(GEOSIntersection_r(h, triangle.get(), piece.get()));
                total.Add(areaOf(inside.get()) * (area3 / area2));
            }
        }
    }
    GEOSPreparedGeom_destroy_r(h, prepared);
    return total.Value();
}

}  // namespace TMObjects
