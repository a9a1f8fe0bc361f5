// Opens a layer of a GeoPackage as the shell does, indexes it and answers snap queries through
// the searches the snap tool calls, timing each step:
//   bench_snap FILE.gpkg [--layer NAME] --queries FILE [--tol-m M] [--dump FILE]
//              [--first-picture] [--redraws N]
// The queries file holds one point "x y" a line in the layer's coordinates. Every step prints one
// JSON line. --dump writes every answer as "kind index x y distance" with six decimals, kind being
// "vertex" or "segment" and index the query's line number from 0; a query with no answer within
// the tolerance writes no line. qgis_snap.py dumps QGIS's locator answers the same way, so the two
// files compare with diff.
// With --first-picture the whole layer is drawn on a 1600 x 1000 canvas straight after the open,
// before anything else asks for the index: open to first picture as a user sees it.

#include <QApplication>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "TLMapCanvas.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlsde/TLFeatureTable.h"
#include "tlsde/TLSpatialIndex.h"
#include "tmgis/TLGdalCall.h"
#include "tmgis/TMWorkspace.h"

using namespace TMObjects;

namespace {

using Clock = std::chrono::steady_clock;

double seconds(Clock::time_point from) {
    return std::chrono::duration<double>(Clock::now() - from).count();
}

struct Options {
    std::string file, layer, queries, dump;
    double tolerance = 100.0;
    bool firstPicture = false;
    int redraws = 3;
};

bool parse(int argc, char** argv, Options& o) {
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        const bool hasValue = i + 1 < argc;
        if (a == "--layer" && hasValue)
            o.layer = argv[++i];
        else if (a == "--queries" && hasValue)
            o.queries = argv[++i];
        else if (a == "--dump" && hasValue)
            o.dump = argv[++i];
        else if (a == "--tol-m" && hasValue)
            o.tolerance = std::atof(argv[++i]);
        else if (a == "--redraws" && hasValue)
            o.redraws = std::max(0, std::atoi(argv[++i]));
        else if (a == "--first-picture")
            o.firstPicture = true;
        else if (o.file.empty() && a.rfind("--", 0) != 0)
            o.file = a;
        else
            return false;
    }
    return !o.file.empty() && !o.queries.empty() && o.tolerance >= 0;
}

// Resident and peak resident memory of this process in MiB.
void memory(double& resident, double& peak) {
    resident = peak = 0;
    std::ifstream status("/proc/self/status");
    std::string key;
    while (status >> key) {
        double kib = 0;
        if (key == "VmRSS:" && status >> kib) resident = kib / 1024.0;
        if (key == "VmHWM:" && status >> kib) peak = kib / 1024.0;
    }
}

std::vector<TLPoint> readQueries(const std::string& path) {
    std::vector<TLPoint> points;
    std::ifstream in(path);
    double x, y;
    while (in >> x >> y) points.emplace_back(x, y);
    return points;
}

long long vertexCount(TLFeatureTable& table) {
    long long count = 0;
    for (int id : table.GetIds()) {
        TLRefPtr<TLGeometry> g = table.PeekFeature(id)->GetGeometry();
        double* xy = nullptr;
        int n = 0;
        if (g && g->GetRawPoints(&xy, n)) count += n;
    }
    return count;
}

struct Latency {
    std::vector<double> micros;
    int found = 0;
    double total = 0;
    void print(const char* step) const {
        std::vector<double> sorted = micros;
        std::sort(sorted.begin(), sorted.end());
        auto at = [&](double q) {
            return sorted.empty() ? 0.0 : sorted[std::size_t(q * double(sorted.size() - 1))];
        };
        std::printf(
            "{\"step\":\"%s\",\"queries\":%zu,\"found\":%d,\"median_us\":%.3f,\"p99_us\":%.3f,"
            "\"total_s\":%.4f}\n",
            step, micros.size(), found, at(0.5), at(0.99), total);
    }
};

// Every query through one search; answers go to the dump as they come.
template <class Search>
Latency run(const std::vector<TLPoint>& points, const char* kind, std::FILE* dump, Search search) {
    Latency latency;
    latency.micros.reserve(points.size());
    const auto all = Clock::now();
    for (std::size_t i = 0; i < points.size(); ++i) {
        TLSegmentRef ref{};
        TLPoint hit;
        const auto t0 = Clock::now();
        const bool found = search(points[i], ref, hit);
        latency.micros.push_back(
            std::chrono::duration<double, std::micro>(Clock::now() - t0).count());
        if (!found) continue;
        ++latency.found;
        if (dump)
            std::fprintf(dump, "%s %zu %.6f %.6f %.6f\n", kind, i, hit.x, hit.y,
                         std::sqrt(points[i].SqrDist(hit)));
    }
    latency.total = seconds(all);
    return latency;
}

TLRefPtr<TLFeatureLayer> findLayer(const TMWorkspace& workspace, const std::string& name) {
    for (const TLRefPtr<TLLayer>& layer : workspace.GetLayers()) {
        auto* feature = dynamic_cast<TLFeatureLayer*>(layer.get());
        if (feature && (name.empty() || layer->GetLayerName() == TLString(name)))
            return TLRefPtr<TLFeatureLayer>(feature);
    }
    return TLRefPtr<TLFeatureLayer>();
}

// A 1600 x 1000 canvas showing the whole layer.
struct Picture {
    explicit Picture(TLFeatureLayer* layer) : map(new TLMap), view(map) {
        map->InsertLayer(-1, layer, true);
        canvas.resize(1600, 1000);
        canvas.SetView(&view);
        view.SetVisibleBounds(layer->GetDatasource()->GetExtent());
    }
    ~Picture() { canvas.SetView(nullptr); }
    double draw() {
        const auto t0 = Clock::now();
        canvas.RefreshAll();
        canvas.RenderPending();
        return seconds(t0);
    }
    TLRefPtr<TLMap> map;
    TLMapView view;
    TLMapCanvas canvas;
};

}  // namespace

int main(int argc, char** argv) {
    Options o;
    if (!parse(argc, argv, o)) {
        std::fprintf(stderr,
                     "usage: bench_snap FILE.gpkg [--layer NAME] --queries FILE [--tol-m M] "
                     "[--dump FILE] [--first-picture] [--redraws N]\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const std::vector<TLPoint> points = readQueries(o.queries);
    if (points.empty()) {
        std::fprintf(stderr, "bench_snap: no query points in %s\n", o.queries.c_str());
        return 1;
    }
    // The data libraries are loaded and their formats registered before the base is taken and
    // the clock starts, as they are once the shell is up (and as QGIS has them after initQgis):
    // the figures are the layer's own.
    { TLGdalCall ready; }
    double base = 0, peak = 0, resident = 0;
    memory(base, peak);

    const auto start = Clock::now();
    TLString error;
    std::unique_ptr<TMWorkspace> workspace = TMWorkspace::Open(TLString(o.file), false, error);
    TLRefPtr<TLFeatureLayer> layer = workspace ? findLayer(*workspace, o.layer) : nullptr;
    if (!layer) {
        std::fprintf(stderr, "bench_snap: %s\n",
                     workspace ? "no such feature layer" : error.toStdString().c_str());
        return 1;
    }
    TLFeatureTable& table = *layer->GetDatasource();
    const double open = seconds(start);
    memory(resident, peak);
    std::printf("{\"step\":\"open\",\"s\":%.4f,\"layer_mb\":%.1f}\n", open, resident - base);

    std::unique_ptr<Picture> picture;
    if (o.firstPicture) {
        picture = std::make_unique<Picture>(layer.get());
        picture->draw();
        std::printf("{\"step\":\"open to first picture\",\"s\":%.4f,\"features_drawn\":%d}\n",
                    seconds(start), picture->canvas.LastRender().features);
    }

    const auto indexStart = Clock::now();
    const TLSpatialIndex& index = table.Index();
    TLSegmentRef ref{};
    TLPoint hit;
    index.NearestSegment(points.front(), o.tolerance, ref, hit);  // whatever is built on demand
    std::printf("{\"step\":\"index\",\"s\":%.4f}\n", seconds(indexStart));
    std::printf("{\"step\":\"open+index\",\"s\":%.4f}\n", seconds(start));
    memory(resident, peak);
    std::printf(
        "{\"step\":\"memory\",\"base_mb\":%.1f,\"layer_and_index_mb\":%.1f,\"peak_added_mb\":%.1f}"
        "\n",
        base, resident - base, peak - base);
    std::printf("{\"step\":\"layer\",\"features\":%d,\"vertices\":%lld}\n", table.GetFeatureCount(),
                vertexCount(table));

    std::FILE* dump = o.dump.empty() ? nullptr : std::fopen(o.dump.c_str(), "w");
    const double tol = o.tolerance;
    run(points, "vertex", dump, [&](const TLPoint& p, TLSegmentRef& r, TLPoint& at) {
        return index.NearestVertex(p, tol, r, at);
    }).print("nearest vertex");
    run(points, "segment", dump, [&](const TLPoint& p, TLSegmentRef& r, TLPoint& at) {
        return index.NearestSegment(p, tol, r, at);
    }).print("nearest segment");
    if (dump) std::fclose(dump);

    if (o.redraws > 0) {
        if (!picture) picture = std::make_unique<Picture>(layer.get());
        std::vector<double> ms;
        for (int i = 0; i < o.redraws; ++i) ms.push_back(picture->draw() * 1000.0);
        std::sort(ms.begin(), ms.end());
        std::printf(
            "{\"step\":\"full redraw 1600x1000\",\"median_ms\":%.2f,\"features_drawn\":%d}\n",
            ms[ms.size() / 2], picture->canvas.LastRender().features);
    }
    return 0;
}
