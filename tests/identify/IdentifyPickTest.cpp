#include "IdentifySession.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

namespace {

const QString kNothing = "No elements are selected on this layer";

class IdentifyPick : public IdentifySession {
protected:
    void SetUp() override {
        IdentifySession::SetUp();
        wells = addTable("wells", TLLayer::PointLayer, {"NAME:string"});
        wells->set_display_field("NAME");
        w1 = addPoint(wells, 100, 100, {"NAME=W1"});
        w2 = addPoint(wells, 120, 100, {"NAME=W2"});
    }
    TLFeatureLayer* wells = nullptr;
    int w1 = 0;
    int w2 = 0;
};

TEST_F(IdentifyPick, ClickPicksWithinTheSelectionToleranceAndShowsTheFeature) {
    EXPECT_EQ(buddy->Cursor(), 13);
    clickAt(104, 100);
    EXPECT_EQ(comboRows(), QStringList{"wells"});
    EXPECT_EQ(treeRows(), (QStringList{"wells:NAME", "  W1"}));
    EXPECT_EQ(tableRows(), QStringList{"NAME|NAME|W1"});
    EXPECT_EQ(placeholder(), "This layer has 1 features selected!");
    EXPECT_EQ(textOf("mLineEditLocation"), "104.000000,100.000000");
    EXPECT_EQ(prompt(), "");
    EXPECT_TRUE(messages().empty());

    clickAt(110, 100);  // 10 units from either well
    EXPECT_TRUE(comboRows().isEmpty());
    EXPECT_TRUE(treeRows().isEmpty());
    EXPECT_TRUE(tableRows().isEmpty());
    EXPECT_EQ(placeholder(), kNothing);
    expectNothingChanged({wells}, 2);
}

TEST_F(IdentifyPick, DragPicksTheRectangleButAFlatDragIsAClickAtTheRelease) {
    dragFromTo(90, 90, 130, 110);
    EXPECT_EQ(treeRows(), (QStringList{"wells:NAME", "  W1", "  W2"}));
    EXPECT_EQ(placeholder(), "This layer has 2 features selected!");

    // As a rectangle this would take W1; as a click at 114 it takes nothing.
    dragFromTo(100, 100, 114, 100);
    EXPECT_TRUE(treeRows().isEmpty());
    EXPECT_EQ(placeholder(), kNothing);
}

TEST_F(IdentifyPick, AReleaseOfAnotherButtonKeepsTheGestureForTheNextLeftRelease) {
    dispatcher->MouseDown(TLLeftButton, 90, 600 - 90);
    EXPECT_FALSE(dispatcher->MouseUp(TLRightButton, 300, 300));
    EXPECT_EQ(shown("mComboBoxLayers"), nullptr);
    EXPECT_TRUE(dispatcher->MouseUp(TLLeftButton, 130, 600 - 110));
    EXPECT_EQ(treeRows(), (QStringList{"wells:NAME", "  W1", "  W2"}));
    // The gesture is over: a release without a press picks nothing new.
    EXPECT_FALSE(dispatcher->MouseUp(TLLeftButton, 104, 500));
    EXPECT_EQ(treeRows(), (QStringList{"wells:NAME", "  W1", "  W2"}));
}

TEST_F(IdentifyPick, TheFirstEligibleLayerEndsTheSearchInModeZero) {
    // First, and nothing of it under the cursor.
    auto* roads = addTable("roads", TLLayer::LineLayer, {"NAME:string"}, nullptr, 0);
    clickAt(100, 100);
    EXPECT_TRUE(comboRows().isEmpty());
    EXPECT_EQ(placeholder(), kNothing);

    roads->SetSelectable(false);  // no longer eligible
    clickAt(100, 100);
    EXPECT_EQ(comboRows(), QStringList{"wells"});
}

TEST_F(IdentifyPick, ModeOneAsksTheCurrentLayerOrElseTheFirstEligible) {
    TLSelectionEnvironment::Instance()->SetMode(TLSelectionEnvironment::SelectAdd);
    auto* sites = addTable("sites", TLLayer::PointLayer, {"NAME:string"});
    sites->set_display_field("NAME");
    addPoint(sites, 101, 100, {"NAME=S1"});
    map->SetCurrentLayer(sites);
    clickAt(100, 100);
    EXPECT_EQ(comboRows(), QStringList{"sites"});
    EXPECT_EQ(treeRows(), (QStringList{"sites:NAME", "  S1"}));

    map->SetCurrentLayer(nullptr);
    clickAt(100, 100);
    EXPECT_EQ(comboRows(), QStringList{"wells"});
}

TEST_F(IdentifyPick, LaterLayersAreListedAndAskedWhenChosen) {
    TLSelectionEnvironment::Instance()->SetMode(TLSelectionEnvironment::SelectSubtract);
    addTable("empty", TLLayer::PointLayer, {"NAME:string"}, nullptr, 0);
    auto* sites = addTable("sites", TLLayer::PointLayer, {"NAME:string"});
    sites->set_display_field("NAME");
    const int s1 = addPoint(sites, 101, 100, {"NAME=S1"});
    clickAt(100, 100);
    EXPECT_EQ(comboRows(), (QStringList{"wells", "sites"}));
    EXPECT_EQ(treeRows(), (QStringList{"wells:NAME", "  W1"}));
    chooseLayer(1);
    EXPECT_EQ(treeRows(), (QStringList{"sites:NAME", "  S1"}));
    EXPECT_EQ(tableRows(), QStringList{"NAME|NAME|S1"});
    chooseLayer(0);
    EXPECT_EQ(treeRows(), (QStringList{"wells:NAME", "  W1"}));

    // Gone before it was chosen: asked then, it finds nothing.
    clickAt(100, 100);
    sites->GetDatasource()->Delete(s1);
    chooseLayer(1);
    EXPECT_TRUE(treeRows().isEmpty());
    EXPECT_TRUE(tableRows().isEmpty());
    EXPECT_EQ(placeholder(), kNothing);
}

TEST_F(IdentifyPick, AStandingSpatialFilterStaysInForce) {
    TLRefPtr<TLGeoPolygon> area(new TLGeoPolygon);
    area->BeginPath();
    area->BeginSegment(1);
    for (const auto& p : Ring{{0, 0}, {110, 0}, {110, 200}, {0, 200}, {0, 0}})
        area->AddXY(p.first, p.second);
    area->EndEntity();
    TLQueryFilter filter;
    filter.SetFilterGeometry(area);
    wells->set_query_filter(filter);

    dragFromTo(90, 90, 130, 110);
    EXPECT_EQ(treeRows(), (QStringList{"wells:NAME", "  W1"}));
    clickAt(120, 100);  // W2 lies outside the filter: nothing, not the whole layer
    EXPECT_TRUE(treeRows().isEmpty());
}

TEST_F(IdentifyPick, TheUsersSelectionIsLeftAsItWas) {
    wells->AddSelect(w2);
    const int counted = TLTool::selectFeatureNum;
    clickAt(100, 100);
    EXPECT_EQ(treeRows(), (QStringList{"wells:NAME", "  W1"}));
    EXPECT_EQ(wells->GetSelectedIds(), std::vector<int>{w2});
    EXPECT_EQ(TLTool::selectFeatureNum, counted + 1);

    buddy->SetKeyboardModifiers(0x2000000);  // Shift adds to the selection while picking
    clickAt(100, 100);
    EXPECT_EQ(treeRows(), (QStringList{"wells:NAME", "  W1", "  W2"}));
    EXPECT_EQ(wells->GetSelectedIds(), std::vector<int>{w2});
    buddy->SetKeyboardModifiers(0);
    expectNothingChanged({wells}, 2);
}

TEST_F(IdentifyPick, ALayerInAnotherSystemIsPickedThroughItsProjection) {
    map->SetSpatialReference(TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:3857"));
    auto* geo = addTable("geo", TLLayer::PointLayer, {"NAME:string"}, "EPSG:4326", 0);
    geo->set_display_field("NAME");
    addPoint(geo, 0.001, 0.001, {"NAME=G1"});  // about (111.3, 110.6) in metres
    clickAt(111, 111);
    EXPECT_EQ(treeRows(), (QStringList{"geo:NAME", "  G1"}));
    EXPECT_EQ(textOf("mLabelUnits"), "Meters");
    EXPECT_EQ(textOf("mLineEditLocation"), "111.000000,111.000000");
    addPoint(geo, 0.0011, 0.0011, {"NAME=G2"});  // about (122.5, 121.7)
    dragFromTo(100, 100, 130, 130);
    EXPECT_EQ(treeRows(), (QStringList{"geo:NAME", "  G1", "  G2"}));
    // The location of a clicked feature is read in the layer's own system.
    clickFeatureRow(1);
    EXPECT_EQ(textOf("mLineEditLocation"), "0.001100,0.001100");
    EXPECT_EQ(tableRows(), QStringList{"NAME|NAME|G2"});
}

}  // namespace

}  // namespace TMObjects
