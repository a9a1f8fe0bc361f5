#include <benchmark/benchmark.h>

#include <QApplication>
#include <map>
#include <memory>
#include <random>

#include "TLMapCanvas.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"

using namespace TMObjects;

namespace {

constexpr double kSide = 100000.0;  // 100 km
constexpr int kFeatures = 100000;
constexpr int kWidth = 1600;
constexpr int kHeight = 1000;

TLRefPtr<TLGeometry> point(double x, double y) {
    return TLRefPtr<TLGeometry>(new TLGeoPoint(x, y));
}

// A short walk of five vertices, about 150 m across.
TLRefPtr<TLGeometry> line(double x, double y, std::mt19937& rng) {
    std::uniform_real_distribution<double> step(-60.0, 60.0);
    TLRefPtr<TLGeoPolyline> l(new TLGeoPolyline());
    l->BeginPath();
    for (int v = 0; v < 5; ++v, x += step(rng), y += step(rng)) l->AddXY(x, y);
    l->EndEntity();
    return l;
}

// A square lot of 80 m.
TLRefPtr<TLGeometry> lot(double x, double y) {
    TLRefPtr<TLGeoPolygon> p(new TLGeoPolygon());
    p->BeginPath();
    p->BeginSegment(1);
    for (const auto& [dx, dy] : {std::pair{0, 0}, {80, 0}, {80, 80}, {0, 80}, {0, 0}})
        p->AddXY(x + dx, y + dy);
    p->EndEntity();
    return p;
}

// A canvas of 1600 x 1000 pixels showing the whole square, with one layer of the given kind.
struct Scene {
    explicit Scene(TLLayer::LayerType type) : map(new TLMap), view(map) {
        TLFeatureLayer* layer =
            TLFeatureLayer::CreateMemoryLayer("bench", type, TLFields(), nullptr);
        std::mt19937 rng(11);
        std::uniform_real_distribution<double> place(0.0, kSide);
        for (int i = 0; i < kFeatures; ++i) {
            const double x = place(rng), y = place(rng);
            TLFeature feature;
            feature.SetGeometry(type == TLLayer::PointLayer  ? point(x, y)
                                : type == TLLayer::LineLayer ? line(x, y, rng)
                                                             : lot(x, y));
            layer->GetDatasource()->Insert(feature);
        }
        map->InsertLayer(-1, layer, true);
        canvas.resize(kWidth, kHeight);
        canvas.SetView(&view);
        view.SetVisibleBounds(TLRect(0, kSide, 0, kSide));
        canvas.RenderPending();  // builds the index once, outside the timing
    }
    ~Scene() { canvas.SetView(nullptr); }

    TLRefPtr<TLMap> map;
    TLMapView view;
    TLMapCanvas canvas;
};

Scene& SceneOf(TLLayer::LayerType type) {
    static std::map<int, std::unique_ptr<Scene>> scenes;
    auto& scene = scenes[int(type)];
    if (!scene) scene = std::make_unique<Scene>(type);
    return *scene;
}

void FullRedraw(benchmark::State& state, TLLayer::LayerType type) {
    Scene& scene = SceneOf(type);
    for (auto _ : state) {
        scene.canvas.RefreshAll();
        scene.canvas.RenderPending();
    }
    state.counters["features"] = scene.canvas.LastRender().features;
}

void BM_FullRedrawPoints(benchmark::State& state) {
    FullRedraw(state, TLLayer::PointLayer);
}
void BM_FullRedrawLines(benchmark::State& state) {
    FullRedraw(state, TLLayer::LineLayer);
}
void BM_FullRedrawPolygons(benchmark::State& state) {
    FullRedraw(state, TLLayer::PolygonLayer);
}

// What a commit of one point asks for: the point's own rectangle.
void BM_CommitRedrawPoints(benchmark::State& state) {
    Scene& scene = SceneOf(TLLayer::PointLayer);
    const TLRect rect(50000, 50000, 50000, 50000);
    for (auto _ : state) {
        scene.view.RefreshMap(false, rect);
        scene.canvas.RenderPending();
    }
    state.counters["features"] = scene.canvas.LastRender().features;
}

// A pointer move of a digitizing tool: the band changes and the canvas repaints over its cached
// picture of 100,000 lines.
void BM_BandRepaintLines(benchmark::State& state) {
    Scene& scene = SceneOf(TLLayer::LineLayer);
    TLRubberBand band(&scene.view, TLRubberBand::LineBand);
    band.SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
    for (int i = 0; i < 50; ++i) band.AddPoint(TLPoint(i * 2000.0, (i % 2) * 5000.0 + 40000), -1);
    QImage target(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    scene.canvas.render(&target);  // a first paint may lay the widget out; not timed
    for (auto _ : state) {
        band.Update();
        scene.canvas.render(&target);
    }
}

}  // namespace

BENCHMARK(BM_FullRedrawPoints)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FullRedrawLines)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FullRedrawPolygons)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CommitRedrawPoints)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_BandRepaintLines)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
