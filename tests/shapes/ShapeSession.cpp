#include "ShapeSession.h"

#include <cmath>

#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLEditor.h"

namespace TMObjects {

namespace {

int deviceX(double x) {
    return int(std::lround(x));
}
int deviceY(double y) {
    return int(std::lround(600 - y));
}

}  // namespace

void ShapeSession::SetUp() {
    SessionFixture::SetUp();
    parcels = addLayer("parcels", TLLayer::PolygonLayer);
    edit(parcels);
}

void ShapeSession::start(const char* className) {
    pick(className);
    buddy->ClearEvents();
}

void ShapeSession::move(double x, double y) {
    dispatcher->MouseMove(TLNoButton, deviceX(x), deviceY(y));
}

void ShapeSession::press(double x, double y, TLMouseButton button) {
    dispatcher->MouseDown(button, deviceX(x), deviceY(y));
    dispatcher->MouseUp(button, deviceX(x), deviceY(y));
}

void ShapeSession::click(double x, double y) {
    move(x, y);
    press(x, y);
}

Ring ShapeSession::ringOf(TLFeatureLayer* layer, int id) const {
    Ring ring;
    TLRefPtr<TLFeature> feature = layer->GetFeature(id);
    auto* polygon = feature ? dynamic_cast<TLGeoPolygon*>(feature->GetGeometry().get()) : nullptr;
    if (!polygon) {
        ADD_FAILURE() << "feature " << id << " is no polygon";
        return ring;
    }
    const TLPartList& parts = polygon->Parts();
    EXPECT_EQ(parts.PartCount(), 1) << "rings";
    for (int i = 0; i < parts.PartSize(0); ++i) {
        const TLPoint p = parts.Point(parts.PartStart(0) + i);
        ring.emplace_back(p.x, p.y);
    }
    return ring;
}

Ring ShapeSession::committed() const {
    const std::vector<int> ids = parcels->GetDatasource()->GetIds();
    EXPECT_EQ(ids.size(), 1u) << "features";
    return ids.size() == 1 ? ringOf(parcels, ids.front()) : Ring();
}

int ShapeSession::undoSteps() const {
    return map->editor()->UndoCount();
}

Ring ShapeSession::bandPoints() const {
    Ring points;
    for (const auto& part : band()->Parts())
        for (const TLPoint& p : part) points.emplace_back(p.x, p.y);
    return points;
}

void expectRing(const Ring& actual, const Ring& expected) {
    ASSERT_EQ(actual.size(), expected.size()) << "vertex count";
    for (std::size_t i = 0; i < actual.size(); ++i) {
        EXPECT_NEAR(actual[i].first, expected[i].first, 1e-9) << "x of vertex " << i;
        EXPECT_NEAR(actual[i].second, expected[i].second, 1e-9) << "y of vertex " << i;
    }
}

}  // namespace TMObjects
