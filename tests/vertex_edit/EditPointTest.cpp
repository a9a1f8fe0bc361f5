#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <cmath>

#include "VertexEditSession.h"
#include "edit/TLToolEditPoint.h"
#include "tlmap/TLEditor.h"

namespace TMObjects {
namespace {

class EditPoint : public VertexEditSession {
protected:
    void SetUp() override {
        VertexEditSession::SetUp();
        roads = addLayer("roads", TLLayer::LineLayer);
        road = addLine(roads, {{100, 100}, {200, 100}, {300, 200}});
        pick("TLToolEditPoint");
        tool = dynamic_cast<TLToolEditPoint*>(poolTool("TLToolEditPoint"));
        ASSERT_NE(tool, nullptr);
    }

    TLEditor* editor() { return map->editor(); }

    TLFeatureLayer* roads = nullptr;
    int road = -1;
    TLToolEditPoint* tool = nullptr;
};

TEST_F(EditPoint, AClickNearAVertexShowsItsCoordinatesAndSelectsTheFeature) {
    EXPECT_EQ(shown("xEdit"), nullptr);
    click(203, 97);
    EXPECT_EQ(textOf("TMEditPointDlg"), "Edit point");
    EXPECT_EQ(textOf("xEdit"), "200.000000");
    EXPECT_EQ(textOf("yEdit"), "100.000000");
    EXPECT_EQ(roads->GetSelectedIds(), std::vector<int>{road});
    EXPECT_EQ(tool->pickedVertexIndex(), 1);
    EXPECT_EQ(tool->pickedFeatureId(), road);
    EXPECT_EQ(shown("TMEditPointDlg")->parentWidget(), mainWindow.get());
    EXPECT_TRUE(shown("TMEditPointDlg")->windowFlags() & Qt::WindowStaysOnTopHint);
}

TEST_F(EditPoint, OnlyThePickedFeatureStaysSelected) {
    // A second line crossing near the first one's vertex: both are candidates of the click.
    const int crossing = addLine(roads, {{190, 50}, {210, 150}});
    click(201, 101);
    EXPECT_EQ(roads->GetSelectedIds(), std::vector<int>{road});
    EXPECT_EQ(tool->pickedVertexIndex(), 1);
    click(210, 149);
    EXPECT_EQ(roads->GetSelectedIds(), std::vector<int>{crossing});
    EXPECT_EQ(textOf("yEdit"), "150.000000");
}

TEST_F(EditPoint, AMissZeroesAVisibleDialogAndLeavesAHiddenOneHidden) {
    click(600, 500);
    EXPECT_EQ(shown("xEdit"), nullptr);
    click(300, 198);
    EXPECT_EQ(textOf("xEdit"), "300.000000");
    // The middle of a segment is no vertex.
    click(150, 100);
    EXPECT_EQ(textOf("xEdit"), "0.000000");
    EXPECT_EQ(textOf("yEdit"), "0.000000");
    EXPECT_TRUE(roads->GetSelectedIds().empty());
    EXPECT_EQ(tool->pickedLayer(), nullptr);
    EXPECT_EQ(tool->pickedVertexIndex(), -1);
}

TEST_F(EditPoint, TheDialogsOkMovesNothing) {
    click(100, 100);
    auto* x = qobject_cast<QLineEdit*>(shown("xEdit"));
    ASSERT_NE(x, nullptr);
    x->setText("555");
    auto* box = qobject_cast<QDialogButtonBox*>(shown("buttonBox"));
    ASSERT_NE(box, nullptr);
    box->button(QDialogButtonBox::Ok)->click();
    EXPECT_EQ(shown("xEdit"), nullptr);
    expectPaths(partsOf(roads, road), {{{100, 100}, {200, 100}, {300, 200}}});
    EXPECT_EQ(editor()->UndoCount(), 0);
}

TEST_F(EditPoint, MovingTheVertexIsOneUndoableStep) {
    click(198, 102);
    tool->changeToNewCoord(250, 50);
    expectPaths(partsOf(roads, road), {{{100, 100}, {250, 50}, {300, 200}}});
    EXPECT_EQ(editor()->UndoCount(), 1);
    EXPECT_EQ(editor()->UndoLabel().toStdString(), "edit point");
    ASSERT_TRUE(editor()->Undo());
    expectPaths(partsOf(roads, road), {{{100, 100}, {200, 100}, {300, 200}}});
    ASSERT_TRUE(editor()->Redo());
    expectPaths(partsOf(roads, road), {{{100, 100}, {250, 50}, {300, 200}}});
}

TEST_F(EditPoint, MovingTheFirstVertexOfARingLeavesItsClosingVertex) {
    TLFeatureLayer* parcels = addLayer("parcels", TLLayer::PolygonLayer);
    const int parcel = addPolygon(parcels, {{{500, 300}, {600, 300}, {600, 400}, {500, 400}}});
    click(501, 301);
    EXPECT_EQ(tool->pickedLayer(), parcels);
    EXPECT_EQ(tool->pickedVertexIndex(), 0);
    tool->changeToNewCoord(480, 280);
    expectRings(partsOf(parcels, parcel),
                {{{480, 280}, {600, 300}, {600, 400}, {500, 400}, {500, 300}}});
    EXPECT_EQ(editor()->UndoLabel().toStdString(), "edit point");
}

TEST_F(EditPoint, APointFeatureMovesAsAWhole) {
    TLFeatureLayer* wells = addLayer("wells", TLLayer::PointLayer);
    const int well = addPoint(wells, 700, 50);
    click(698, 52);
    EXPECT_EQ(textOf("xEdit"), "700.000000");
    tool->changeToNewCoord(710.25, 60.5);
    EXPECT_EQ(pointOf(wells, well), std::make_pair(710.25, 60.5));
}

TEST_F(EditPoint, NothingIsWrittenWithoutAPickOrToALockedLayerOrWithNoNumber) {
    tool->changeToNewCoord(1, 1);
    click(100, 100);
    tool->changeToNewCoord(std::nan(""), 1);
    roads->SetEditable(false);
    tool->changeToNewCoord(1, 1);
    expectPaths(partsOf(roads, road), {{{100, 100}, {200, 100}, {300, 200}}});
    EXPECT_EQ(editor()->UndoCount(), 0);
}

TEST_F(EditPoint, ALayerTakenOutOfTheMapIsLeftAlone) {
    click(100, 100);
    TLRefPtr<TLLayer> kept(roads);
    map->RemoveLayer(roads);
    tool->changeToNewCoord(1, 1);
    EXPECT_EQ(editor()->UndoCount(), 0);
}

TEST_F(EditPoint, LeavingTheToolClosesTheDialog) {
    click(100, 100);
    ASSERT_NE(shown("xEdit"), nullptr);
    dispatcher->Deactivate();
    EXPECT_EQ(shown("xEdit"), nullptr);
}

}  // namespace
}  // namespace TMObjects
