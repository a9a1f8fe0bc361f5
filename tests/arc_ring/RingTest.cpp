#include <cmath>

#include "ShapeSession.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLSnapTool.h"

namespace TMObjects {
namespace {

const char* const kInner = "Please specify the inner ring radius:";
const char* const kOuter = "Specify outer ring radius:";
const char* const kCentre = "Please specify the center of the circle:";
const char* const kLengthError = "Length input error,please re-enter!";
const char* const kDrawn = "Command:Drawing Ring";

const double kPi = 3.14159265358979323846;

XY onCircle(const XY& c, double r, int degrees) {
    const double a = degrees * kPi / 180.0;
    return {c.first + r * std::cos(a), c.second + r * std::sin(a)};
}

// Counter-clockwise from east, 0 to 360 degrees, and the east end once more.
Ring outerRing(const XY& c, double r) {
    Ring ring;
    for (int a = 0; a <= 360; ++a) ring.push_back(onCircle(c, r, a));
    ring.push_back(ring.front());
    return ring;
}

// The hole runs clockwise: the same points from the east end back through 360, 359, ... 1.
Ring innerRing(const XY& c, double r) {
    Ring ring{onCircle(c, r, 0)};
    for (int a = 360; a >= 0; --a) ring.push_back(onCircle(c, r, a));
    return ring;
}

double annulusArea(double inner, double outer) {
    // The area of the 360-gons, as the samples are straight between whole degrees.
    const double sector = 0.5 * std::sin(kPi / 180.0) * 360.0;
    return sector * (outer * outer - inner * inner);
}

class RingCommand : public ShapeSession {
protected:
    void SetUp() override {
        ShapeSession::SetUp();
        start("TLCmdDigitizeRing");
    }
    Rings committedRings() const { return onlyFeatureParts(parcels); }
    TLRefPtr<TLGeometry> committedGeometry() const {
        const std::vector<int> ids = parcels->GetDatasource()->GetIds();
        return ids.empty() ? TLRefPtr<TLGeometry>()
                           : parcels->GetFeature(ids.back())->GetGeometry();
    }
    TLRubberBand* secondBand() const { return view->RubberBands().at(1); }
};

TEST_F(RingCommand, TypedRadiiAndCentreMakeOnePolygonWithAHole) {
    type("abc");
    type("-1");
    type("20");
    type("0");
    type("50");
    type("x");
    EXPECT_EQ(featureCount(), 0);
    EXPECT_TRUE(type("400,300"));

    const Rings rings = committedRings();
    ASSERT_EQ(rings.size(), 2u);
    ASSERT_EQ(rings[0].size(), 362u);
    ASSERT_EQ(rings[1].size(), 362u);
    expectRing(rings[0], outerRing({400, 300}, 50));
    expectRing(rings[1], innerRing({400, 300}, 20));
    const TLRefPtr<TLGeometry> geometry = committedGeometry();
    EXPECT_TRUE(geometry->IsValid());
    EXPECT_NEAR(geometry->GetArea(), annulusArea(20, 50), 1e-6);

    EXPECT_EQ(prompts(), (Texts{kInner, kInner, kOuter, kOuter, kCentre, kCentre, kInner}));
    EXPECT_EQ(messages(), (Texts{kLengthError, kLengthError, kLengthError,
                                 "Center coordinate input error,please re-enter!", kDrawn}));
    EXPECT_EQ(undoSteps(), 1);
    EXPECT_EQ(map->editor()->LastCommittedLabel().toStdString(), "add feature");
    ASSERT_TRUE(map->editor()->Undo());
    EXPECT_EQ(featureCount(), 0);
}

TEST_F(RingCommand, AnOuterRadiusBelowTheInnerStartsOverAndAnEqualOneIsTaken) {
    type("20");
    type("10");
    EXPECT_EQ(messages(), Texts{"The outer radius input is illegal!"});
    EXPECT_EQ(prompts(), (Texts{kOuter, kInner}));
    // Back at the inner radius: this is read as one.
    type("10");
    type("10");
    EXPECT_EQ(prompt(), kCentre);
    type("100,100");
    const Rings rings = committedRings();
    ASSERT_EQ(rings.size(), 2u);
    EXPECT_NEAR(committedGeometry()->GetArea(), 0.0, 1e-9);
    EXPECT_FALSE(committedGeometry()->IsValid());
}

TEST_F(RingCommand, AClickedCentreFollowsThePointerUntilThePress) {
    EXPECT_EQ(buddy->RegisteredName().toStdString(), "DigitizeRing");
    EXPECT_EQ(band()->GetType(), TLRubberBand::LineBand);
    EXPECT_EQ(secondBand()->GetType(), TLRubberBand::LineBand);
    // Radii can only be typed: a press asks for the inner one.
    click(100, 100);
    EXPECT_EQ(prompts(), Texts{kInner});
    type("10");
    type("30");
    buddy->ClearEvents();

    // The outer circle about the pointer, the inner one drawn the other way round.
    EXPECT_FALSE(dispatcher->MouseMove(TLNoButton, 200, 600 - 250));
    const Path outer = pointsOf(band());
    const Path inner = pointsOf(secondBand());
    ASSERT_EQ(outer.size(), 362u);
    ASSERT_EQ(inner.size(), 362u);
    expectPath({outer[0], outer[90], outer[361]}, {{230, 250}, {200, 280}, {230, 250}});
    expectPath({inner[0], inner[90], inner[361]}, {{210, 250}, {200, 240}, {210, 250}});

    click(300, 200);
    const Rings rings = committedRings();
    ASSERT_EQ(rings.size(), 2u);
    expectRing(rings[0], outerRing({300, 200}, 30));
    expectRing(rings[1], innerRing({300, 200}, 10));
    EXPECT_TRUE(band()->Parts().empty());
    EXPECT_TRUE(secondBand()->Parts().empty());
    EXPECT_EQ(prompts(), Texts{kInner});
    EXPECT_EQ(messages(), Texts{kDrawn});

    // Back at the start, the pointer draws nothing.
    move(250, 250);
    EXPECT_TRUE(band()->Parts().empty());
}

TEST_F(RingCommand, ATinyInnerRadiusIsTakenButBuildsNothing) {
    type("0.0000001");
    type("5");
    buddy->ClearEvents();
    EXPECT_FALSE(type("100,100"));
    EXPECT_TRUE(buddy->Events().empty());
    EXPECT_EQ(featureCount(), 0);
    EXPECT_FALSE(map->editor()->IsOperationOpen());
    // Still waiting for a centre.
    type("x");
    EXPECT_EQ(prompt(), kCentre);
}

TEST_F(RingCommand, TheDoubleClickOnlyResetsTheCommandWindow) {
    type("10");
    buddy->ClearEvents();
    EXPECT_TRUE(dispatcher->DoubleClick(TLLeftButton, 100, 100));
    EXPECT_EQ(messages(), Texts{kDrawn});
    EXPECT_EQ(prompt(), kInner);
    // The ring is still at its outer radius.
    type("20");
    EXPECT_EQ(prompt(), kCentre);
}

TEST_F(RingCommand, RefusesOtherLayersWithItsOwnWordings) {
    TLFeatureLayer* roads = addLayer("roads", TLLayer::LineLayer);
    edit(roads);
    dispatcher->Deactivate();
    buddy->ClearEvents();
    pick("TLCmdDigitizeRing");
    const char* const withoutA =
        "The current layer is not polygon layer. Please select the polygon layer editor!";
    EXPECT_EQ(prompts(), Texts{"Command:"});
    EXPECT_EQ(messages(), Texts{withoutA});
    ASSERT_EQ(view->RubberBands().size(), 2u);

    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_EQ(messages(), Texts{withoutA});
    EXPECT_EQ(prompts(), Texts{"Layer error"});
    // Typing goes on on an open line layer: only a locked one is refused, in the usual wording.
    buddy->ClearEvents();
    EXPECT_TRUE(type("10"));
    EXPECT_EQ(prompts(), Texts{"Specify outer ring radius:"});
    roads->SetEditable(false);
    buddy->ClearEvents();
    EXPECT_FALSE(type("20"));
    EXPECT_EQ(messages(),
              Texts{"The current layer is not a polygon layer. Please select the polygon layer "
                    "editor!"});
    EXPECT_EQ(prompts(), Texts{"Layer error"});
    EXPECT_EQ(roads->GetDatasource()->GetFeatureCount(), 0);

    // A locked polygon layer: presses say nothing.
    edit(parcels);
    parcels->SetEditable(false);
    // The ring takes the edit layer anew when the pointer moves.
    dispatcher->MouseMove(TLNoButton, 100, 100);
    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_TRUE(buddy->Events().empty());
    EXPECT_EQ(undoSteps(), 0);
}

TEST_F(RingCommand, AClickTakesThePointTheLastMoveSnappedTo) {
    TLFeatureLayer* roads = addLayer("roads", TLLayer::LineLayer);
    addLine(roads, {{300, 200}, {500, 200}});
    type("10");
    type("30");
    TLSnapEnvironment::Instance()->setEnabled(true);
    click(304, 203);
    TLSnapEnvironment::Instance()->setEnabled(false);
    expectRing(committedRings().at(0), outerRing({300, 200}, 30));
}

}  // namespace
}  // namespace TMObjects
