#include <QStandardItemModel>
#include <QTableView>

#include "VertexEditSession.h"
#include "edit/TLToolEditLine.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLRubberBand.h"

namespace TMObjects {
namespace {

using Column = std::vector<std::string>;

class EditLine : public VertexEditSession {
protected:
    void SetUp() override {
        VertexEditSession::SetUp();
        roads = addLayer("roads", TLLayer::LineLayer);
        road =
            addLineParts(roads, {{{100, 100}, {200, 100}, {300, 200}}, {{400, 100}, {500, 100}}});
        pick("TLToolEditLine");
    }

    TLEditor* editor() { return map->editor(); }
    // The vertex preview on the view; empty when none is drawn.
    Path bandPoints() const {
        const auto& bands = view->RubberBands();
        return bands.empty() ? Path() : pointsOf(bands.back());
    }

    TLFeatureLayer* roads = nullptr;
    int road = -1;
};

TEST_F(EditLine, AClickOnASegmentOpensTheTableOfThatFeature) {
    click(150, 102);
    EXPECT_EQ(textOf("EditPointDockWidget"), "Edit Line");
    EXPECT_EQ(shown("EditPointDockWidget")->parentWidget(), mainWindow.get());
    EXPECT_EQ(roads->GetSelectedIds(), std::vector<int>{road});
    EXPECT_EQ(column("mTableViewPath", 0), (Column{"path 0", "path 1"}));
    EXPECT_EQ(column("mTableViewPoint", 0), (Column{"point 0", "point 1", "point 2"}));
    EXPECT_EQ(column("mTableViewPoint", 1), (Column{"100.000000", "200.000000", "300.000000"}));
    EXPECT_EQ(column("mTableViewPoint", 2), (Column{"100.000000", "100.000000", "200.000000"}));
    EXPECT_EQ(column("mTableViewPoint", 3), (Column{"", "", ""}));
    EXPECT_TRUE(table("mTableViewPoint")->isColumnHidden(3));
    QStandardItemModel* points = model("mTableViewPoint");
    EXPECT_EQ(points->headerData(0, Qt::Horizontal).toString(), "Point No.");
    EXPECT_EQ(model("mTableViewPath")->headerData(0, Qt::Horizontal).toString(), "Path");

    clickCell("mTableViewPath", 1, 0);
    EXPECT_EQ(column("mTableViewPoint", 0), (Column{"point 0", "point 1"}));
    EXPECT_EQ(column("mTableViewPoint", 1), (Column{"400.000000", "500.000000"}));
}

TEST_F(EditLine, CellEditsMoveTheBandAndOkWritesThemAsOneStep) {
    click(150, 100);
    typeCell(1, 1, "210");
    EXPECT_EQ(bandPoints(), (Path{{100, 100}, {210, 100}, {300, 200}, {400, 100}, {500, 100}}));
    typeCell(1, 2, "90.5");
    EXPECT_EQ(bandPoints(), (Path{{100, 100}, {210, 90.5}, {300, 200}, {400, 100}, {500, 100}}));
    // Nothing reaches the layer before Ok.
    expectPaths(partsOf(roads, road),
                {{{100, 100}, {200, 100}, {300, 200}}, {{400, 100}, {500, 100}}});
    EXPECT_EQ(editor()->UndoCount(), 0);

    clickCell("mTableViewPath", 1, 0);
    typeCell(0, 1, "not a number");
    clickButton("mBtnOk");
    EXPECT_EQ(shown("EditPointDockWidget"), nullptr);
    EXPECT_TRUE(view->RubberBands().empty());
    expectPaths(partsOf(roads, road),
                {{{100, 100}, {210, 90.5}, {300, 200}}, {{0, 100}, {500, 100}}});
    EXPECT_EQ(editor()->UndoCount(), 1);
    EXPECT_EQ(editor()->UndoLabel().toStdString(), "edit point");
    ASSERT_TRUE(editor()->Undo());
    expectPaths(partsOf(roads, road),
                {{{100, 100}, {200, 100}, {300, 200}}, {{400, 100}, {500, 100}}});
}

TEST_F(EditLine, CancelWritesNothingAndLeavesTheBandUntilTheNextPick) {
    click(300, 200);
    typeCell(2, 1, "320");
    clickButton("mBtnCancel");
    EXPECT_EQ(shown("EditPointDockWidget"), nullptr);
    EXPECT_EQ(bandPoints().size(), 5u);
    EXPECT_EQ(editor()->UndoCount(), 0);
    click(450, 100);
    EXPECT_TRUE(view->RubberBands().empty());
    EXPECT_EQ(column("mTableViewPoint", 1), (Column{"100.000000", "200.000000", "300.000000"}));
}

TEST_F(EditLine, AnOpenRingIsRefusedWithAWarningAndTheWindowStillCloses) {
    TLFeatureLayer* parcels = addLayer("parcels", TLLayer::PolygonLayer);
    const int parcel = addPolygon(parcels, {{{500, 300}, {600, 300}, {600, 400}, {500, 400}}});
    click(550, 350);
    EXPECT_EQ(parcels->GetSelectedIds(), std::vector<int>{parcel});
    EXPECT_TRUE(roads->GetSelectedIds().empty());
    EXPECT_EQ(column("mTableViewPoint", 0).size(), 5u);
    typeCell(0, 1, "480");
    answerer.Queue("OK");
    clickButton("mBtnOk");
    ASSERT_EQ(answerer.Records().size(), 1u);
    EXPECT_EQ(answerer.Records()[0].kind, "message box");
    EXPECT_EQ(answerer.Records()[0].title, "Error");
    EXPECT_EQ(answerer.Records()[0].text, "The first and the last point  must be same!");
    EXPECT_EQ(shown("EditPointDockWidget"), nullptr);
    expectRings(partsOf(parcels, parcel),
                {{{500, 300}, {600, 300}, {600, 400}, {500, 400}, {500, 300}}});
    EXPECT_EQ(editor()->UndoCount(), 0);

    click(550, 350);
    typeCell(0, 1, "480");
    typeCell(4, 1, "480");
    clickButton("mBtnOk");
    EXPECT_EQ(answerer.Records().size(), 1u);
    expectRings(partsOf(parcels, parcel),
                {{{480, 300}, {600, 300}, {600, 400}, {500, 400}, {480, 300}}});
    EXPECT_EQ(editor()->UndoLabel().toStdString(), "edit point");
}

TEST_F(EditLine, AMissOrALockedLayerOpensEmptyTables) {
    click(700, 500);
    ASSERT_NE(shown("EditPointDockWidget"), nullptr);
    EXPECT_TRUE(column("mTableViewPath", 0).empty());
    EXPECT_TRUE(column("mTableViewPoint", 0).empty());
    roads->SetEditable(false);
    click(150, 100);
    EXPECT_TRUE(column("mTableViewPoint", 0).empty());
    EXPECT_TRUE(roads->GetSelectedIds().empty());
    clickButton("mBtnOk");
    EXPECT_EQ(editor()->UndoCount(), 0);
}

TEST_F(EditLine, APointFeatureHasOneRowAndNoPaths) {
    TLFeatureLayer* wells = addLayer("wells", TLLayer::PointLayer);
    const int well = addPoint(wells, 700, 50);
    click(702, 48);
    EXPECT_TRUE(column("mTableViewPath", 0).empty());
    EXPECT_EQ(column("mTableViewPoint", 0), Column{"point 0"});
    typeCell(0, 2, "75");
    EXPECT_EQ(bandPoints(), (Path{{700, 75}}));
    clickButton("mBtnOk");
    EXPECT_EQ(pointOf(wells, well), std::make_pair(700.0, 75.0));
}

TEST_F(EditLine, OnlyThePointNumberCellFlashesTheVertex) {
    click(150, 100);
    clickCell("mTableViewPoint", 2, 1);
    EXPECT_TRUE(twinkles.points.empty());
    clickCell("mTableViewPoint", 2, 0);
    ASSERT_EQ(twinkles.points.size(), 1u);
    EXPECT_EQ(twinkles.points[0], XY(300, 200));
    EXPECT_EQ(twinkles.times, 3);
    // The view is centred on the vertex.
    EXPECT_EQ(view->GetVisibleRect().Center().x, 300);
    EXPECT_EQ(view->GetVisibleRect().Center().y, 200);
}

TEST_F(EditLine, ZValuesAreShownEditedAndPartOfTheRingCheck) {
    TLFeatureLayer* contours = addLayer("contours", TLLayer::LineLayer);
    TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline);
    line->AddXY(100, 400);
    line->AddXY(200, 400);
    double heights[] = {12.5, 14.0};
    line->SetRawPointsZValue(heights, 2);
    TLFeature feature;
    feature.SetGeometry(line);
    const int contour = contours->GetDatasource()->Insert(feature);

    click(150, 400);
    EXPECT_FALSE(table("mTableViewPoint")->isColumnHidden(3));
    EXPECT_EQ(column("mTableViewPoint", 3), (Column{"12.500000", "14.000000"}));
    typeCell(1, 3, "15.25");
    clickButton("mBtnOk");
    TLRefPtr<TLFeature> stored = contours->GetFeature(contour);
    auto* written = dynamic_cast<TLGeoPolyline*>(stored->GetGeometry().get());
    ASSERT_NE(written, nullptr);
    double* z = nullptr;
    int count = 0;
    ASSERT_TRUE(written->GetRawPointsZValue(&z, count));
    ASSERT_EQ(count, 2);
    EXPECT_EQ(z[0], 12.5);
    EXPECT_EQ(z[1], 15.25);

    // A ring whose ends differ only in height is open too.
    TLFeatureLayer* roofs = addLayer("roofs", TLLayer::PolygonLayer);
    TLRefPtr<TLGeoPolygon> ring(new TLGeoPolygon);
    for (XY p : {XY{500, 300}, XY{600, 300}, XY{600, 400}}) ring->AddXY(p.first, p.second);
    ring->EndEntity();
    ring->put_HasZ(true);
    TLFeature roof;
    roof.SetGeometry(ring);
    roofs->GetDatasource()->Insert(roof);
    click(580, 320);
    EXPECT_EQ(column("mTableViewPoint", 3),
              (Column{"0.000000", "0.000000", "0.000000", "0.000000"}));
    typeCell(3, 3, "2");
    answerer.Queue("OK");
    clickButton("mBtnOk");
    ASSERT_EQ(answerer.Records().size(), 1u);
    EXPECT_EQ(answerer.Records()[0].text, "The first and the last point  must be same!");
    EXPECT_EQ(map->editor()->UndoCount(), 1);
}

TEST_F(EditLine, CentringOnAVertexGoesToTheFeaturesCentroid) {
    auto* tool = dynamic_cast<TLToolEditLine*>(poolTool("TLToolEditLine"));
    ASSERT_NE(tool, nullptr);
    tool->centerPoint(100, 100);
    EXPECT_EQ(view->GetVisibleRect().Center(), TLPoint(400, 300));
    click(150, 100);
    tool->centerPoint(400, 305);
    EXPECT_EQ(view->GetVisibleRect().Center(), TLPoint(400, 300));
    tool->centerPoint(420, 300);
    EXPECT_EQ(view->GetVisibleRect().Center(), TLPoint(420, 300));
    EXPECT_EQ(view->GetVisibleRect().Width(), 800);
    tool->centerPoint(100, 100);
    const TLPoint centroid = roads->GetFeature(road)->GetGeometry()->Centroid();
    EXPECT_NEAR(view->GetVisibleRect().Center().x, centroid.x, 1e-9);
    EXPECT_NEAR(view->GetVisibleRect().Center().y, centroid.y, 1e-9);
    // The mark is let go at once.
    EXPECT_TRUE(view->RubberBands().empty());
}

}  // namespace
}  // namespace TMObjects
