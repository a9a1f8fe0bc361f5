#include "CommandSession.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"

namespace TMObjects {
namespace {

// The blue preview of the part offset tool while the pointer moves, in each mode.
class PartOffsetBand : public CommandSession {
protected:
    void SetUp() override {
        CommandSession::SetUp();
        tracks = addLayer("tracks", TLLayer::LineLayer);
        plots = addLayer("plots", TLLayer::PolygonLayer);
        wells = addLayer("wells", TLLayer::PointLayer);
        track = addTrack();
        plot = addPlot();
        TLFeature point;
        point.SetGeometry(TLRefPtr<TLGeometry>(new TLGeoPoint(700, 500)));
        well = wells->GetDatasource()->Insert(point);
        pick("TLToolPartOffset");
    }

    int addTrack() {
        TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline);
        line->BeginPath();
        for (double x : {100, 200, 300}) line->AddXY(x, 100);
        line->BeginPath();
        for (double x : {400, 500, 600}) line->AddXY(x, 100);
        line->EndEntity();
        TLFeature feature;
        feature.SetGeometry(line);
        return tracks->GetDatasource()->Insert(feature);
    }

    int addPlot() {
        TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon);
        polygon->BeginPath();
        for (const XY& p : Path{{100, 300}, {300, 300}, {300, 500}, {100, 500}})
            polygon->AddXY(p.first, p.second);
        polygon->EndEntity();
        TLFeature feature;
        feature.SetGeometry(polygon);
        return plots->GetDatasource()->Insert(feature);
    }

    const TLRubberBand* band() const {
        const auto& bands = view->RubberBands();
        return bands.empty() ? nullptr : bands.back();
    }
    Paths bandParts() const {
        Paths parts;
        if (!band()) return parts;
        for (const auto& part : band()->Parts()) {
            Path path;
            for (const TLPoint& p : part) path.emplace_back(p.x, p.y);
            parts.push_back(path);
        }
        return parts;
    }

    TLFeatureLayer* tracks = nullptr;
    TLFeatureLayer* plots = nullptr;
    TLFeatureLayer* wells = nullptr;
    int track = -1, plot = -1, well = -1;
};

TEST_F(PartOffsetBand, NoBandBeforeAPick) {
    move(150, 150);
    EXPECT_EQ(band(), nullptr);
    type("1");
    move(150, 150);
    EXPECT_EQ(band(), nullptr);
}

TEST_F(PartOffsetBand, AVertexShowsItsNeighboursThroughTheCursor) {
    type("1");
    click(200, 100);
    move(210, 130);
    ASSERT_NE(band(), nullptr);
    EXPECT_EQ(band()->GetType(), TLRubberBand::LineBand);
    EXPECT_EQ(band()->Pen().color, TLColor(0, 0, 255));
    EXPECT_DOUBLE_EQ(band()->Pen().width, 1.0);
    expectPaths(bandParts(), Paths{{{100, 100}, {210, 130}, {300, 100}}});

    // A path's first vertex has only the next one; its last only the one before.
    type("e");
    EXPECT_EQ(band(), nullptr);
    type("1");
    click(400, 100);
    move(390, 90);
    expectPaths(bandParts(), Paths{{{390, 90}, {500, 100}}});
    type("e");
    type("1");
    click(300, 100);
    move(310, 90);
    expectPaths(bandParts(), Paths{{{200, 100}, {310, 90}}});
}

TEST_F(PartOffsetBand, APointShowsOnlyTheCursor) {
    type("1");
    click(700, 500);
    move(710, 520);
    ASSERT_NE(band(), nullptr);
    EXPECT_EQ(band()->GetType(), TLRubberBand::PointBand);
    expectPaths(bandParts(), Paths{{{710, 520}}});
    type("e");
    type("3");
    click(700, 500);
    move(690, 480);
    EXPECT_EQ(band()->GetType(), TLRubberBand::PointBand);
    expectPaths(bandParts(), Paths{{{690, 480}}});
}

TEST_F(PartOffsetBand, AStretchShowsEachPathItTouchesApart) {
    type("2");
    click(200, 100);
    move(250, 150);
    EXPECT_EQ(band(), nullptr);  // nothing to show before the second pick
    click(500, 100);
    move(500, 130);
    ASSERT_NE(band(), nullptr);
    EXPECT_EQ(band()->GetType(), TLRubberBand::LineBand);
    expectPaths(bandParts(), Paths{{{200, 130}, {300, 130}}, {{400, 130}, {500, 130}}});
}

TEST_F(PartOffsetBand, AStretchFromARingsStartShowsTheShorterWayRound) {
    type("2");
    click(100, 300);
    click(100, 500);
    move(90, 510);
    // Vertex 3 to the closing vertex is one step; vertex 0 to vertex 3 would be three.
    expectPaths(bandParts(), Paths{{{90, 510}, {90, 310}}});
}

TEST_F(PartOffsetBand, TheWholeFeatureFollowsTheCursorPartByPart) {
    type("3");
    click(150, 100);  // a segment picks the feature
    move(160, 120);
    expectPaths(bandParts(),
                Paths{{{110, 120}, {210, 120}, {310, 120}}, {{410, 120}, {510, 120}, {610, 120}}});
    type("e");
    type("3");
    click(300, 400);
    move(310, 390);
    expectPaths(bandParts(), Paths{{{110, 290}, {310, 290}, {310, 490}, {110, 490}, {110, 290}}});
    // The commit drops the band.
    click(310, 390);
    EXPECT_EQ(band(), nullptr);
}

}  // namespace
}  // namespace TMObjects
