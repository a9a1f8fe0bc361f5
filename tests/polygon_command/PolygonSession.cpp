#include "PolygonSession.h"

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

}  // namespace

void PolygonSession::SetUp() {
    SessionFixture::SetUp();
    parcels = addLayer("parcels", TLLayer::PolygonLayer);
    edit(parcels);
    pick("TLCmdDigitizePolygon");
}

void PolygonSession::move(double x, double y) {
    dispatcher->MouseMove(TLNoButton, deviceX(x), deviceY(y));
}

void PolygonSession::click(double x, double y, TLMouseButton button) {
    move(x, y);
    dispatcher->MouseDown(button, deviceX(x), deviceY(y));
    dispatcher->MouseUp(button, deviceX(x), deviceY(y));
}

void PolygonSession::clickAll(const Ring& points) {
    for (const XY& p : points) click(p.first, p.second);
}

bool PolygonSession::doubleClick(double x, double y) {
    return dispatcher->DoubleClick(TLLeftButton, deviceX(x), deviceY(y));
}

void PolygonSession::addLine(TLFeatureLayer* layer, const Ring& vertices) {
    TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline);
    for (const XY& p : vertices) line->AddXY(p.first, p.second);
    line->EndEntity();
    TLFeature feature;
    feature.SetGeometry(line);
    layer->GetDatasource()->Insert(feature);
}

TLRefPtr<TLGeometry> PolygonSession::committedGeometry() const {
    const std::vector<int> ids = parcels->GetDatasource()->GetIds();
    EXPECT_EQ(ids.size(), 1u) << "features in parcels";
    if (ids.size() != 1) return {};
    TLRefPtr<TLFeature> feature = parcels->GetFeature(ids.front());
    return feature ? feature->GetGeometry() : TLRefPtr<TLGeometry>();
}

Rings PolygonSession::committed() const {
    Rings rings;
    TLRefPtr<TLGeometry> geometry = committedGeometry();
    auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry.get());
    if (!polygon) return rings;
    const TLPartList& parts = polygon->Parts();
    for (int part = 0; part < parts.PartCount(); ++part) {
        Ring ring;
        for (int i = 0; i < parts.PartSize(part); ++i) {
            const TLPoint p = parts.Point(parts.PartStart(part) + i);
            ring.emplace_back(p.x, p.y);
        }
        rings.push_back(ring);
    }
    return rings;
}

Ring PolygonSession::pointsOf(const TLRubberBand* band) {
    Ring points;
    for (const auto& part : band->Parts())
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

void expectRings(const Rings& actual, const Rings& expected) {
    ASSERT_EQ(actual.size(), expected.size()) << "ring count";
    for (std::size_t i = 0; i < actual.size(); ++i) {
        SCOPED_TRACE("ring " + std::to_string(i));
        expectRing(actual[i], expected[i]);
    }
}

}  // namespace TMObjects
