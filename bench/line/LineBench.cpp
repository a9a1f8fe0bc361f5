#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <random>
#include <vector>

#include "digitize/TLCmdDigitizeLine.h"
#include "digitize/TLSelectAssistTool.h"
#include "hostkit/TLHostBuddy.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLSnapTool.h"

using namespace TMObjects;

namespace {

constexpr double kSide = 100000.0;  // 100 km
constexpr int kLines = 10000;
constexpr int kVertices = 100;
constexpr int kWidth = 800, kHeight = 600;
constexpr double kResolution = 10.0;  // metres a pixel
constexpr int kPositions = 4096;

// The line command drawing over a line layer of one million vertices: 10,000 random walks of 100
// vertices with steps of up to 100 m in x and y, spread over 100 km x 100 km. The view shows
// 8 km x 6 km in the middle at 10 m a pixel, snapping is on with 10 pixels.
struct Scene {
    TLRefPtr<TLMap> map{new TLMap};
    std::unique_ptr<TLMapView> view;
    std::unique_ptr<TLHostBuddy> buddy;
    TLRefPtr<TLCmdDigitizeLine> tool{new TLCmdDigitizeLine};
    std::vector<TLPoint> devicePositions;

    Scene() {
        view = std::make_unique<TLMapView>(map);
        view->SetDeviceSize(kWidth, kHeight);
        const double cx = kSide / 2, cy = kSide / 2;
        const double hw = kWidth * kResolution / 2, hh = kHeight * kResolution / 2;
        view->SetVisibleBounds(TLRect(cx - hw, cx + hw, cy - hh, cy + hh));
        buddy = std::make_unique<TLHostBuddy>(view.get());

        TLFeatureLayer* network = addLayer("network");
        std::vector<TLPoint> visibleVertices = load(network);
        TLFeatureLayer* sketch = addLayer("sketch");
        sketch->SetEditable(true);
        map->editor()->set_edit_layer(sketch);
        network->GetDatasource()->Index();  // packed before any timing

        TLSnapEnvironment::Instance()->setEnabled(true);
        TLSnapEnvironment::Instance()->setTolerance(10);
        tool->Init(buddy.get());
        tool->activate();
        // Three vertices drawn, so that every move also works out the square guide.
        for (TLPoint p : {TLPoint(100, 500), TLPoint(400, 450), TLPoint(420, 200)})
            tool->OnMouseDown(TLLeftButton, int(p.x), int(p.y));

        positions(visibleVertices);
    }

    TLFeatureLayer* addLayer(const char* name) {
        TLFeatureLayer* layer =
            TLFeatureLayer::CreateMemoryLayer(name, TLLayer::LineLayer, TLFields(), nullptr);
        map->InsertLayer(-1, layer, true);
        return layer;
    }

    // Loads the walks and gives back the vertices that fall inside the view.
    std::vector<TLPoint> load(TLFeatureLayer* layer) {
        std::mt19937 rng(7);
        std::uniform_real_distribution<double> start(0.0, kSide), step(-100.0, 100.0);
        const TLRect visible = view->GetVisibleRect();
        std::vector<TLPoint> inView;
        for (int i = 0; i < kLines; ++i) {
            TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline());
            line->BeginPath();
            double x = start(rng), y = start(rng);
            for (int v = 0; v < kVertices; ++v) {
                line->AddXY(x, y);
                if (visible.PtInRect(TLPoint(x, y))) inView.emplace_back(x, y);
                x = std::clamp(x + step(rng), 0.0, kSide);
                y = std::clamp(y + step(rng), 0.0, kSide);
            }
            line->EndEntity();
            TLFeature feature;
            feature.SetGeometry(line);
            layer->GetDatasource()->Load(feature);
        }
        return inView;
    }

    // Half of the pointer positions anywhere in the view, half within a few pixels of a vertex,
    // where snapping and picking find something.
    void positions(const std::vector<TLPoint>& vertices) {
        std::mt19937 rng(11);
        std::uniform_real_distribution<double> x(0, kWidth), y(0, kHeight), jitter(-4, 4);
        std::uniform_int_distribution<std::size_t> vertex(0, vertices.size() - 1);
        TLDisplayTransform* transform = view->GetDisplayTransform();
        for (int i = 0; i < kPositions; ++i) {
            if (i % 2 == 0 || vertices.empty()) {
                devicePositions.emplace_back(x(rng), y(rng));
            } else {
                const TLPoint d = transform->ToDevice(vertices[vertex(rng)]);
                devicePositions.emplace_back(d.x + jitter(rng), d.y + jitter(rng));
            }
        }
    }
};

Scene& TheScene() {
    static Scene* scene = new Scene;
    return *scene;
}

// Times each call on its own and reports the median and the 99th percentile in microseconds.
// `call` answers whether it found something (a snap, a segment); the share is reported too, to
// show that the positions exercise the search and not only its misses.
template <class Call>
void timeEach(benchmark::State& state, Call call) {
    const std::vector<TLPoint>& positions = TheScene().devicePositions;
    std::vector<double> micros;
    micros.reserve(1 << 20);
    std::size_t i = 0, found = 0;
    for (auto _ : state) {
        const TLPoint& p = positions[i++ % positions.size()];
        const auto begin = std::chrono::steady_clock::now();
        const bool hit = call(p);
        const auto end = std::chrono::steady_clock::now();
        micros.push_back(std::chrono::duration<double, std::micro>(end - begin).count());
        found += hit ? 1 : 0;
    }
    std::sort(micros.begin(), micros.end());
    state.counters["p50_us"] = micros[micros.size() / 2];
    state.counters["p99_us"] = micros[micros.size() * 99 / 100];
    state.counters["max_us"] = micros.back();
    state.counters["found"] = double(found) / double(micros.size());
}

void BM_LineMouseMove(benchmark::State& state) {
    TLCmdDigitizeLine* tool = TheScene().tool.get();
    TLMapView* view = TheScene().view.get();
    timeEach(state, [&](const TLPoint& p) {
        benchmark::DoNotOptimize(tool->OnMouseMove(TLNoButton, int(p.x), int(p.y)));
        return view->HasSnapMarker();
    });
}
BENCHMARK(BM_LineMouseMove)->Unit(benchmark::kMicrosecond);

void BM_PickSegment(benchmark::State& state) {
    Scene& scene = TheScene();
    TLDisplayTransform* transform = scene.view->GetDisplayTransform();
    TLSelectAssistTool assist;
    timeEach(state, [&](const TLPoint& device) {
        const TLPoint p = transform->ToMap(device);
        double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
        assist.PickSegment(scene.buddy.get(), &p.x, &p.y, &x1, &y1, &x2, &y2);
        return x1 != 0 || y1 != 0 || x2 != 0 || y2 != 0;
    });
}
BENCHMARK(BM_PickSegment)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
