#include "CommandSession.h"

#include <cmath>

#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"

namespace TMObjects {

namespace {

int deviceX(double x) {
    return int(std::lround(x));
}
int deviceY(double y) {
    return int(std::lround(600 - y));
}

Paths pathsOf(const TLPartList& parts) {
    Paths paths;
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

}  // namespace

void CommandSession::move(double x, double y) {
    dispatcher->MouseMove(TLNoButton, deviceX(x), deviceY(y));
}

void CommandSession::press(double x, double y, TLMouseButton button) {
    dispatcher->MouseDown(button, deviceX(x), deviceY(y));
    dispatcher->MouseUp(button, deviceX(x), deviceY(y));
}

void CommandSession::click(double x, double y, TLMouseButton button) {
    move(x, y);
    press(x, y, button);
}

void CommandSession::clickAll(const Path& points) {
    for (const XY& p : points) click(p.first, p.second);
}

bool CommandSession::doubleClick(double x, double y) {
    return dispatcher->DoubleClick(TLLeftButton, deviceX(x), deviceY(y));
}

int CommandSession::addLine(TLFeatureLayer* layer, const Path& vertices) {
    TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline);
    for (const XY& p : vertices) line->AddXY(p.first, p.second);
    line->EndEntity();
    TLFeature feature;
    feature.SetGeometry(line);
    return layer->GetDatasource()->Insert(feature);
}

Paths CommandSession::partsOf(TLFeatureLayer* layer, int id) const {
    TLRefPtr<TLFeature> feature = layer->GetFeature(id);
    TLGeometry* geometry = feature ? feature->GetGeometry().get() : nullptr;
    if (auto* line = dynamic_cast<TLGeoPolyline*>(geometry)) return pathsOf(line->Parts());
    if (auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry)) return pathsOf(polygon->Parts());
    return Paths();
}

Paths CommandSession::onlyFeatureParts(TLFeatureLayer* layer) const {
    const std::vector<int> ids = layer->GetDatasource()->GetIds();
    EXPECT_EQ(ids.size(), 1u) << "features in the layer";
    return ids.size() == 1 ? partsOf(layer, ids.front()) : Paths();
}

Path CommandSession::pointsOf(const TLRubberBand* band) {
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
    ASSERT_EQ(actual.size(), expected.size()) << "part count";
    for (std::size_t i = 0; i < actual.size(); ++i) {
        SCOPED_TRACE("part " + std::to_string(i));
        expectPath(actual[i], expected[i]);
    }
}

}  // namespace TMObjects
