#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "tlanalysis/TLDem3D.h"
#include "tlgeo/TLGeosContext.h"

using namespace TMObjects;

namespace {

constexpr int kSide = 1140;  // cells across and down
constexpr double kCell = 10.0;
constexpr double kRadius = 566.0;  // cells

// Rolling terrain: hills of 40 m over waves of a kilometre.
const std::vector<double>& Heights() {
    static const std::vector<double> heights = [] {
        std::vector<double> h(std::size_t(kSide) * kSide);
        for (int r = 0; r < kSide; ++r)
            for (int c = 0; c < kSide; ++c)
                h[std::size_t(r) * kSide + c] =
                    300 + 40 * std::sin(c * kCell / 1000.0) * std::cos(r * kCell / 1300.0);
        return h;
    }();
    return heights;
}

// A 32-gon of 566 cells radius in the grid's middle: it covers a million cells.
std::vector<TLPoint> Polygon() {
    std::vector<TLPoint> ring;
    const double centre = kSide * kCell / 2, radius = kRadius * kCell;
    for (int i = 0; i <= 32; ++i) {
        const double a = 2 * M_PI * (i % 32) / 32;
        ring.emplace_back(centre + radius * std::cos(a), centre + radius * std::sin(a));
    }
    return ring;
}

void BM_SurfaceArea(benchmark::State& state) {
    TLDem3D dem;
    dem.GridDataTo3D(Heights().data(), kSide, kSide, 0, kSide * kCell, 0, kSide * kCell, 260, 340);
    const std::vector<TLPoint> ring = Polygon();
    double area = 0;
    for (auto _ : state) benchmark::DoNotOptimize(area = dem.ProjectedArea(ring));
    // The cells under the polygon: its plane area (16 triangles of the 32-gon's fan, twice) over
    // the cell's.
    state.counters["cells"] = 16 * kRadius * kRadius * std::sin(2 * M_PI / 32);
    state.counters["area_km2"] = area / 1e6;
}
BENCHMARK(BM_SurfaceArea)->Unit(benchmark::kMillisecond);

// The grid handed over as the tool hands it: one copy of a million heights.
void BM_GridDataTo3D(benchmark::State& state) {
    for (auto _ : state) {
        TLDem3D dem;
        benchmark::DoNotOptimize(dem.GridDataTo3D(Heights().data(), kSide, kSide, 0, kSide * kCell,
                                                  0, kSide * kCell, 260, 340));
    }
}
BENCHMARK(BM_GridDataTo3D)->Unit(benchmark::kMillisecond);

// The plane area of the same polygon, by GEOS as the measuring tools take it.
void BM_PlaneArea(benchmark::State& state) {
    GEOSContextHandle_t h = TLGeosContext::Handle();
    const std::vector<TLPoint> ring = Polygon();
    double area = 0;
    for (auto _ : state) {
        GEOSCoordSequence* sequence = GEOSCoordSeq_create_r(h, unsigned(ring.size()), 2);
        for (unsigned i = 0; i < ring.size(); ++i)
            GEOSCoordSeq_setXY_r(h, sequence, i, ring[i].x, ring[i].y);
        GEOSGeometry* polygon =
            GEOSGeom_createPolygon_r(h, GEOSGeom_createLinearRing_r(h, sequence), nullptr, 0);
        GEOSArea_r(h, polygon, &area);
        GEOSGeom_destroy_r(h, polygon);
        benchmark::DoNotOptimize(area);
    }
    state.counters["area_km2"] = area / 1e6;
}
BENCHMARK(BM_PlaneArea)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
