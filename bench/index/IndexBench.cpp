#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <utility>
#include <vector>

#include "tlgeo/TLGeoPolyline.h"
#include "tlsde/TLSpatialIndex.h"

using namespace TMObjects;

namespace {

constexpr double kSide = 100000.0;  // 100 km
constexpr int kLines = 10000;
constexpr int kVertices = 100;
constexpr double kTolerance = 100.0;

// 10,000 random walks of 100 vertices with steps of up to 100 m in x and y: one million vertices
// spread over the square, about a line every 150 m.
const std::vector<TLRefPtr<TLGeometry>>& Lines() {
    static const std::vector<TLRefPtr<TLGeometry>> lines = [] {
        std::mt19937 rng(7);
        std::uniform_real_distribution<double> start(0.0, kSide), step(-100.0, 100.0);
        std::vector<TLRefPtr<TLGeometry>> out;
        out.reserve(kLines);
        for (int i = 0; i < kLines; ++i) {
            TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline());
            line->BeginPath();
            double x = start(rng), y = start(rng);
            for (int v = 0; v < kVertices; ++v) {
                line->AddXY(x, y);
                x = std::clamp(x + step(rng), 0.0, kSide);
                y = std::clamp(y + step(rng), 0.0, kSide);
            }
            line->EndEntity();
            out.emplace_back(line.get());
        }
        return out;
    }();
    return lines;
}

std::vector<std::pair<int, TLGeometry*>> Entries() {
    std::vector<std::pair<int, TLGeometry*>> entries;
    const auto& lines = Lines();
    for (std::size_t i = 0; i < lines.size(); ++i) entries.emplace_back(int(i), lines[i].get());
    return entries;
}

const TLSpatialIndex& BuiltIndex() {
    static TLSpatialIndex* index = [] {
        auto* built = new TLSpatialIndex();
        built->Rebuild(Entries());
        return built;
    }();
    return *index;
}

// What a snap does: the nearest vertex within the tolerance, else the nearest segment.
bool SnapQuery(const TLSpatialIndex& index, const TLPoint& p) {
    TLSegmentRef hit{};
    TLPoint at;
    return index.NearestVertex(p, kTolerance, hit, at) ||
           index.NearestSegment(p, kTolerance, hit, at);
}

void BM_IndexBuild(benchmark::State& state) {
    const auto entries = Entries();
    for (auto _ : state) {
        TLSpatialIndex index;
        index.Rebuild(entries);
        benchmark::DoNotOptimize(index.Size());
    }
    state.counters["vertices"] = double(kLines) * kVertices;
}
BENCHMARK(BM_IndexBuild)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_NearestVertexOrSegment(benchmark::State& state) {
    const TLSpatialIndex& index = BuiltIndex();
    std::mt19937 rng(11);
    std::uniform_real_distribution<double> coordinate(0.0, kSide);
    std::vector<TLPoint> points(1 << 16);
    for (TLPoint& p : points) p = TLPoint(coordinate(rng), coordinate(rng));
    std::size_t i = 0, hits = 0;
    for (auto _ : state) {
        hits += SnapQuery(index, points[i++ & (points.size() - 1)]);
    }
    state.counters["hit_ratio"] = double(hits) / double(state.iterations());
}
BENCHMARK(BM_NearestVertexOrSegment)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

// The spread of single queries: each one timed on its own, reported as median and 99th
// percentile in microseconds.
void BM_QueryLatencyPercentiles(benchmark::State& state) {
    const TLSpatialIndex& index = BuiltIndex();
    std::mt19937 rng(13);
    std::uniform_real_distribution<double> coordinate(0.0, kSide);
    std::vector<double> micros;
    for (auto _ : state) {
        const TLPoint p(coordinate(rng), coordinate(rng));
        const auto t0 = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(SnapQuery(index, p));
        const auto t1 = std::chrono::steady_clock::now();
        micros.push_back(std::chrono::duration<double, std::micro>(t1 - t0).count());
    }
    std::sort(micros.begin(), micros.end());
    auto at = [&](double q) { return micros[std::size_t(q * double(micros.size() - 1))]; };
    state.counters["median_us"] = at(0.5);
    state.counters["p99_us"] = at(0.99);
}
BENCHMARK(BM_QueryLatencyPercentiles)->Unit(benchmark::kMicrosecond)->Iterations(200000);

}  // namespace

BENCHMARK_MAIN();
