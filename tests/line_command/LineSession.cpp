#include "LineSession.h"

#include <cmath>

#include "tlgeo/TLGeoPolyline.h"

namespace TMObjects {

namespace {

int deviceX(double x) {
    return int(std::lround(x));
}
int deviceY(double y) {
    return int(std::lround(600 - y));
}

}  // namespace

void LineSession::SetUp() {
    SessionFixture::SetUp();
    roads = addLayer("roads", TLLayer::LineLayer);
    edit(roads);
    pick("TLCmdDigitizeLine");
}

void LineSession::move(double x, double y) {
    dispatcher->MouseMove(TLNoButton, deviceX(x), deviceY(y));
}

void LineSession::click(double x, double y, TLMouseButton button) {
    move(x, y);
    dispatcher->MouseDown(button, deviceX(x), deviceY(y));
    dispatcher->MouseUp(button, deviceX(x), deviceY(y));
}

void LineSession::clickAll(const Path& path) {
    for (const XY& p : path) click(p.first, p.second);
}

int LineSession::addLine(TLFeatureLayer* layer, const Path& vertices) {
    TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline);
    for (const XY& p : vertices) line->AddXY(p.first, p.second);
    line->EndEntity();
    TLFeature feature;
    feature.SetGeometry(line);
    return layer->GetDatasource()->Insert(feature);
}

Paths LineSession::pathsOf(TLFeatureLayer* layer, int id) const {
    Paths paths;
    TLRefPtr<TLFeature> feature = layer->GetFeature(id);
    auto* line = feature ? dynamic_cast<TLGeoPolyline*>(feature->GetGeometry().get()) : nullptr;
    if (!line) return paths;
    const TLPartList& parts = line->Parts();
    for (int part = 0; part < parts.PartCount(); ++part) {
        Path path;
        for (int i = 0; i < parts.PartSize(part); ++i) {
            const TLPoint p = parts.Point(parts.PartStart(part) + i);
            path.emplace_back(p.x, p.y);
        }
        paths.push_back(path);
    }
    return paths;
}

Paths LineSession::committed() const {
    const std::vector<int> ids = roads->GetDatasource()->GetIds();
    EXPECT_EQ(ids.size(), 1u);
    return ids.size() == 1 ? pathsOf(roads, ids.front()) : Paths();
}

Path LineSession::pointsOf(const TLRubberBand* band) {
    Path points;
    for (const auto& part : band->Parts())
        for (const TLPoint& p : part) points.emplace_back(p.x, p.y);
    return points;
}

void expectPath(const Path& actual, const Path& expected) {
    ASSERT_EQ(actual.size(), expected.size()) << "vertex count";
    for (std::size_t i = 0; i < actual.size(); ++i) {
        EXPECT_NEAR(actual[i].first, expected[i].first, 1e-9) << "x of vertex " << i;
        EXPECT_NEAR(actual[i].second, expected[i].second, 1e-9) << "y of vertex " << i;
    }
}

void expectPaths(const Paths& actual, const Paths& expected) {
    ASSERT_EQ(actual.size(), expected.size()) << "path count";
    for (std::size_t i = 0; i < actual.size(); ++i) {
        SCOPED_TRACE("path " + std::to_string(i));
        expectPath(actual[i], expected[i]);
    }
}

}  // namespace TMObjects
