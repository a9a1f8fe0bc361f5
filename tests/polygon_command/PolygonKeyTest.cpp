#include "PolygonSession.h"
#include "PolygonTexts.h"
#include "tlmap/TLEditor.h"

namespace TMObjects {
namespace {

using namespace polygon_texts;

class PolygonKeys : public PolygonSession {};

TEST_F(PolygonKeys, TypedPointsGetTheClickMenusAndAnEmptyLineFinishesNothing) {
    buddy->ClearEvents();
    EXPECT_FALSE(type(""));
    EXPECT_TRUE(type("north"));
    // The first point outside the view: the view centres on it at the same scale.
    EXPECT_TRUE(type("5000,4000"));
    EXPECT_EQ(view->GetVisibleRect(), TLRect(4600, 5400, 3700, 4300));
    type("5200,4000");
    type("5200,4200");
    type("nonsense");
    EXPECT_EQ(prompts(), (Texts{kFirst, kFirst, kCount1, kCount2, kCount3, kCount3}));
    EXPECT_EQ(messages(), (Texts{kBadText, kBadText, kBadText}));
    EXPECT_EQ(featureCount(), 0);

    type("e");
    EXPECT_EQ(prompt(), kFirst);
    expectRings(committed(), {{{5000, 4000}, {5200, 4000}, {5200, 4200}, {5000, 4000}}});
}

TEST_F(PolygonKeys, TypedPointsAfterARightClickDrawAHole) {
    buddy->SetPolygonPartMode(0);
    clickAll({{100, 100}, {500, 100}, {500, 500}, {100, 500}});
    click(100, 100, TLRightButton);
    type("200,200");
    EXPECT_EQ(prompt(), kCount1);
    type("300,200");
    type("250,300");
    type("C");
    expectRings(committed(), {{{100, 100}, {500, 100}, {500, 500}, {100, 500}, {100, 100}},
                              {{200, 200}, {300, 200}, {250, 300}, {200, 200}}});
    EXPECT_TRUE(committedGeometry()->IsValid());
}

TEST_F(PolygonKeys, U_TakesBackAVertexAndTheMenuFallsBackWithIt) {
    clickAll({{100, 100}, {300, 100}, {300, 300}});
    buddy->ClearEvents();
    const int repaints = mainBand()->UpdateCount();
    type("U");
    EXPECT_EQ(mainBand()->UpdateCount(), repaints + 1) << "the band shows it at once";
    expectRing(pointsOf(mainBand()), {{100, 100}, {300, 100}});
    type("u");
    click(300, 200);
    click(200, 300);
    EXPECT_EQ(prompts(), (Texts{kCount2, kCount1, kCount2, kCount3}));
    type("E");
    expectRings(committed(), {{{100, 100}, {300, 200}, {200, 300}, {100, 100}}});

    // On the last vertex the shape is gone and the tool waits for a first point.
    click(10, 10);
    type("U");
    EXPECT_EQ(prompt(), kFirst);
    EXPECT_TRUE(pointsOf(mainBand()).empty());
    click(20, 20);
    EXPECT_EQ(prompt(), kCount1);
}

TEST_F(PolygonKeys, E_ClosesTheRingAndSaysSoTwice) {
    clickAll({{100, 100}, {300, 100}, {200, 300}});
    move(600, 500);
    buddy->ClearEvents();
    EXPECT_TRUE(type("E"));
    EXPECT_EQ(messages(), (Texts{kCommand, kDrawPolygon}));
    EXPECT_EQ(prompts(), Texts{kFirst});
    // The pointer is no vertex.
    expectRings(committed(), {{{100, 100}, {300, 100}, {200, 300}, {100, 100}}});
    EXPECT_EQ(map->editor()->UndoCount(), 1);

    // Two vertices are dropped; only the command's own line is said.
    clickAll({{400, 400}, {500, 400}});
    buddy->ClearEvents();
    type("E");
    EXPECT_EQ(messages(), Texts{kDrawPolygon});
    EXPECT_EQ(featureCount(), 1);
}

TEST_F(PolygonKeys, C_LetsTheCommitCloseTheRing) {
    clickAll({{100, 100}, {300, 100}, {300, 300}});
    buddy->ClearEvents();
    type("c");
    EXPECT_EQ(messages(), Texts{kCommand});
    EXPECT_EQ(prompts(), Texts{kFirst});
    // No doubled vertex: the ring is closed once.
    expectRings(committed(), {{{100, 100}, {300, 100}, {300, 300}, {100, 100}}});
}

TEST_F(PolygonKeys, D_ClosesAroundAComputedCorner) {
    clickAll({{100, 100}, {300, 100}, {300, 200}});
    buddy->ClearEvents();
    type("D");
    EXPECT_EQ(prompts(), Texts{kFirst});
    EXPECT_EQ(messages(), Texts{kCommand});
    // The corner and the first vertex, then D's closing pair of the guide's end and the ring's
    // first vertex, which here are all the same point. GEOS accepts the repeats.
    expectRings(
        committed(),
        {{{100, 100}, {300, 100}, {300, 200}, {100, 200}, {100, 100}, {100, 100}, {100, 100}}});
    EXPECT_TRUE(committedGeometry()->IsValid());
    EXPECT_DOUBLE_EQ(committedGeometry()->GetArea(), 200.0 * 100.0);
}

}  // namespace
}  // namespace TMObjects
