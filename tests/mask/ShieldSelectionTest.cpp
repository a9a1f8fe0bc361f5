// The selection shield tool: masking at once with the one selected polygon, the notices when
// the selection does not name one, and the clicks that select, cycle and mask.
#include <proj.h>

#include "ShieldSession.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlsparef/TLCoordinateSystem.h"

namespace TMObjects {
namespace {

const int kShift = 0x2000000;
const char* const kNotOne = "The number of selected features is not 1";
const char* const kCrossLayer = "Selection cross layer";

using Calls = std::vector<std::string>;
using Ids = std::vector<int>;

// Map (EPSG:3857) to layer (EPSG:4326) as PROJ gives it, x = longitude.
XY mercatorToLonLat(const XY& p) {
    PJ_CONTEXT* ctx = proj_context_create();
    PJ* raw = proj_create_crs_to_crs(ctx, "EPSG:3857", "EPSG:4326", nullptr);
    PJ* pj = proj_normalize_for_visualization(ctx, raw);
    PJ_COORD c = proj_trans(pj, PJ_FWD, proj_coord(p.first, p.second, 0, 0));
    proj_destroy(pj);
    proj_destroy(raw);
    proj_context_destroy(ctx);
    return {c.xy.x, c.xy.y};
}

class ShieldSelectionTest : public ShieldSession {
protected:
    // A polygon feature of one ring, written straight to the layer; returns its id.
    int addPolygon(TLFeatureLayer* layer, const Ring& ring) {
        TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon);
        polygon->BeginPath();
        for (const XY& p : ring) polygon->AddXY(p.first, p.second);
        polygon->EndEntity();
        TLFeature feature;
        feature.SetGeometry(polygon);
        return layer->GetDatasource()->Insert(feature);
    }
    int addSquare(TLFeatureLayer* layer, double x0, double y0, double x1, double y1) {
        return addPolygon(layer, {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}, {x0, y0}});
    }
    std::vector<std::string> notices() const {
        std::vector<std::string> out;
        for (const auto& t : buddy->Texts(TLHostEvent::Notice)) out.push_back(t.toStdString());
        return out;
    }
    void useMercatorMap() {
        map->SetSpatialReference(TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:3857"));
    }
    // A square of the map, (100,100)-(300,300), stored in degrees on a layer of EPSG:4326.
    int addSquareInDegrees(TLFeatureLayer* layer) {
        Ring ring;
        for (const XY& p : Ring{{100, 100}, {300, 100}, {300, 300}, {100, 300}, {100, 100}})
            ring.push_back(mercatorToLonLat(p));
        return addPolygon(layer, ring);
    }
    void expectClipIsTheMercatorSquare() {
        const Rings rings = clipRings();
        ASSERT_EQ(rings.size(), 1u);
        const Ring expected = {{100, 100}, {300, 100}, {300, 300}, {100, 300}, {100, 100}};
        ASSERT_EQ(rings[0].size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_NEAR(rings[0][i].first, expected[i].first, 1e-6) << "vertex " << i;
            EXPECT_NEAR(rings[0][i].second, expected[i].second, 1e-6) << "vertex " << i;
        }
    }
};

TEST_F(ShieldSelectionTest, OneSelectedPolygonMasksAtOnceAndAClickedOneLikewiseInTheMapsSystem) {
    useMercatorMap();
    TLFeatureLayer* roads = addLayer("roads", TLLayer::LineLayer);
    roads->AddSelect(addLine(roads, {{0, 0}, {50, 50}}));  // lines do not count
    TLFeatureLayer* lots = addLayer("lots", TLLayer::PolygonLayer, "EPSG:4326");
    const int id = addSquareInDegrees(lots);
    const Paths stored = partsOf(lots, id);
    lots->AddSelect(id);

    pick("TLToolShieldSelection");
    expectClipIsTheMercatorSquare();
    EXPECT_EQ(recorder->calls, Calls({"update view", "clip", "update view"}));
    EXPECT_TRUE(notices().empty());
    expectSilentAndNothingWritten();
    expectPaths(partsOf(lots, id), stored);  // the layer keeps its own coordinates
    EXPECT_TRUE(poolTool("TLToolShieldSelection")->IsCmd());

    // A click finds the polygon through its own system and masks in the map's just the same.
    view->setClipPolygon(nullptr);
    lots->ClearSelect(false);
    click(295, 295);
    EXPECT_EQ(lots->GetSelectedIds(), Ids({id}));
    EXPECT_EQ(view->clipPolygon(), nullptr);
    click(200, 200);
    expectClipIsTheMercatorSquare();
}

TEST_F(ShieldSelectionTest, ASelectionThatNamesNoSinglePolygonIsRefusedWithANotice) {
    TLFeatureLayer* lots = addLayer("lots", TLLayer::PolygonLayer);
    TLFeatureLayer* parks = addLayer("parks", TLLayer::PolygonLayer);
    const int a = addSquare(lots, 100, 100, 200, 200);
    const int b = addSquare(lots, 300, 100, 400, 200);
    const int c = addSquare(parks, 500, 100, 600, 200);

    pick("TLToolShieldSelection");  // nothing selected
    lots->AddSelect(a);
    lots->AddSelect(b);
    pick("TLToolShieldSelection");
    parks->AddSelect(c);
    pick("TLToolShieldSelection");
    lots->ClearSelect(false);
    lots->AddSelect(a);
    pick("TLToolShieldSelection");  // one on each layer still crosses layers
    EXPECT_EQ(notices(), Texts({kNotOne, kNotOne, kCrossLayer, kCrossLayer}));
    EXPECT_EQ(view->clipPolygon(), nullptr);
    expectSilentAndNothingWritten();

    // The tool stays on and waits for a click on the polygon to mask with.
    click(150, 150);
    expectRings(clipRings(), {{{100, 100}, {200, 100}, {200, 200}, {100, 200}, {100, 100}}});
}

TEST_F(ShieldSelectionTest, ClickSelectsShiftClickCyclesAndAClickOnTheSelectionMasks) {
    TLFeatureLayer* lots = addLayer("lots", TLLayer::PolygonLayer);
    const int first = addSquare(lots, 100, 100, 400, 400);
    const int second = addSquare(lots, 200, 200, 500, 500);
    addSquare(lots, 600, 100, 700, 200);
    pick("TLToolShieldSelection");
    EXPECT_EQ(notices(), Texts({kNotOne}));
    forget();

    click(300, 300);
    EXPECT_EQ(lots->GetSelectedIds(), Ids({first}));
    EXPECT_EQ(recorder->calls, Calls({"refresh 2"}));
    buddy->SetKeyboardModifiers(kShift);
    click(300, 300);
    EXPECT_EQ(lots->GetSelectedIds(), Ids({second}));
    click(300, 300);
    EXPECT_EQ(lots->GetSelectedIds(), Ids({first}));
    EXPECT_EQ(view->clipPolygon(), nullptr);

    // Shift on a polygon alone under the pointer has nothing to cycle to.
    click(150, 150);
    expectRings(clipRings(), {{{100, 100}, {400, 100}, {400, 400}, {100, 400}, {100, 100}}});

    buddy->SetKeyboardModifiers(0);
    click(450, 450);  // the second, not selected, is selected first
    EXPECT_EQ(lots->GetSelectedIds(), Ids({second}));
    recorder->calls.clear();
    click(300, 300);
    expectRings(clipRings(), {{{200, 200}, {500, 200}, {500, 500}, {200, 500}, {200, 200}}});
    EXPECT_EQ(recorder->calls, Calls({"clip", "update view"}));
    EXPECT_TRUE(notices().empty());
    expectSilentAndNothingWritten();
}

TEST_F(ShieldSelectionTest, PicksFromTheTopLayerDownAndIgnoresEmptySpotsAndOtherButtons) {
    // The layer added last lies on top.
    TLFeatureLayer* lower = addLayer("lower", TLLayer::PolygonLayer);
    TLFeatureLayer* upper = addLayer("upper", TLLayer::PolygonLayer);
    const int top = addSquare(upper, 100, 100, 300, 300);
    const int under = addSquare(lower, 100, 100, 500, 500);
    pick("TLToolShieldSelection");
    forget();

    click(700, 550);
    click(200, 200, TLRightButton);
    EXPECT_TRUE(recorder->calls.empty());
    EXPECT_TRUE(upper->GetSelectedIds().empty());

    click(200, 200);
    EXPECT_EQ(upper->GetSelectedIds(), Ids({top}));
    EXPECT_TRUE(lower->GetSelectedIds().empty());
    click(400, 400);
    EXPECT_EQ(lower->GetSelectedIds(), Ids({under}));
    EXPECT_EQ(upper->GetSelectedIds(), Ids({top}));
    click(400, 400);
    expectRings(clipRings(), {{{100, 100}, {500, 100}, {500, 500}, {100, 500}, {100, 100}}});
}

}  // namespace
}  // namespace TMObjects
