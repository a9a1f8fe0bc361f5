#include <cmath>

#include "CommandSession.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLEditor.h"

namespace TMObjects {
namespace {

// Two adjacent parcel sheets digitized with a small mismatch along the sheet line x = 400: the
// parcels of sheet B overlap sheet A at the bottom and fall short of it in the middle. Matching
// them onto parcel A1 must leave the two sheets meeting exactly along the line.
class EdgeMatchingSheets : public CommandSession {
protected:
    void SetUp() override {
        CommandSession::SetUp();
        sheetA = addLayer("sheet_a", TLLayer::PolygonLayer);
        sheetB = addLayer("sheet_b", TLLayer::PolygonLayer);
        a1 = addPolygon(
            sheetA,
            {{100, 50}, {400, 50}, {400, 200}, {400, 370}, {400, 550}, {100, 550}, {100, 50}});
        b1 = addPolygon(sheetB,
                        {{400.4, 50.3}, {700, 50}, {700, 300}, {399.7, 300.2}, {400.4, 50.3}});
        b2 = addPolygon(sheetB,
                        {{399.7, 300.2}, {700, 300}, {700, 550}, {400.2, 549.6}, {399.7, 300.2}});
        sheetA->AddSelect(a1);
        pick("TLToolEdgeMatching");
    }

    int addPolygon(TLFeatureLayer* layer, const Path& ring) {
        TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon);
        polygon->BeginPath();
        for (const XY& p : ring) polygon->AddXY(p.first, p.second);
        polygon->EndEntity();
        TLFeature feature;
        feature.SetGeometry(polygon);
        return layer->GetDatasource()->Insert(feature);
    }

    TLRefPtr<TLGeometry> shape(TLFeatureLayer* layer, int id) const {
        return layer->GetFeature(id)->GetGeometry();
    }

    // A press on the sheet line and a drag whose circle's bound covers the whole stretch.
    void match() {
        dispatcher->MouseDown(TLLeftButton, 400, 600 - 300);
        dispatcher->MouseMove(TLLeftButton, 400, 600 - 554);
        dispatcher->MouseUp(TLLeftButton, 400, 600 - 554);
    }

    // The outlines of A1 and of sheet B along the sheet line, as lines.
    TLRefPtr<TLGeometry> stretchOfA() const {
        return shape(sheetA, a1)->Boundary()->Clip(kStretch, 0.0);
    }
    TLRefPtr<TLGeometry> stretchOfB() const {
        return shape(sheetB, b1)
            ->Union(shape(sheetB, b2).get(), 0.0)
            ->Boundary()
            ->Clip(kStretch, 0.0);
    }

    bool sheetsMeetExactly() const {
        TLRefPtr<TLGeometry> all = shape(sheetA, a1)
                                       ->Union(shape(sheetB, b1).get(), 0.0)
                                       ->Union(shape(sheetB, b2).get(), 0.0);
        auto* polygon = dynamic_cast<TLGeoPolygon*>(all.get());
        const double parts = shape(sheetA, a1)->GetArea() + shape(sheetB, b1)->GetArea() +
                             shape(sheetB, b2)->GetArea();
        // One ring: no hole along the line; the areas add up: no overlap.
        return polygon && polygon->GetRingCount() == 1 && std::fabs(all->GetArea() - parts) < 1e-6;
    }

    // The sheet line between the corners of the sheets, where only the two outlines run.
    static inline const TLRect kStretch{399.0, 401.0, 60.0, 540.0};
    TLFeatureLayer* sheetA = nullptr;
    TLFeatureLayer* sheetB = nullptr;
    int a1 = -1, b1 = -1, b2 = -1;
};

TEST_F(EdgeMatchingSheets, TheDigitizedSheetsNeitherMeetNorAddUp) {
    EXPECT_FALSE(sheetsMeetExactly());
    EXPECT_FALSE(stretchOfB()->Difference(stretchOfA().get(), 0.0)->IsEmpty());
}

TEST_F(EdgeMatchingSheets, AfterMatchingTheOutlinesCoincideAlongTheSheetLine) {
    match();
    // Hausdorff distance 0 over the stretch: each outline lies wholly on the other.
    ASSERT_FALSE(stretchOfA()->IsEmpty());
    EXPECT_TRUE(stretchOfA()->Difference(stretchOfB().get(), 0.0)->IsEmpty());
    EXPECT_TRUE(stretchOfB()->Difference(stretchOfA().get(), 0.0)->IsEmpty());
    EXPECT_TRUE(sheetsMeetExactly());
    // A1's vertices on the stretch are vertices of sheet B now.
    expectPaths(partsOf(sheetB, b1),
                Paths{{{400, 50}, {700, 50}, {700, 300}, {400, 300.2}, {400, 200}, {400, 50}}});
    expectPaths(
        partsOf(sheetB, b2),
        Paths{{{400, 300.2}, {700, 300}, {700, 550}, {400, 550}, {400, 370}, {400, 300.2}}});
    // The boundary stays, and each caught parcel is a step of its own.
    expectPaths(
        partsOf(sheetA, a1),
        Paths{{{100, 50}, {400, 50}, {400, 200}, {400, 370}, {400, 550}, {100, 550}, {100, 50}}});
    EXPECT_EQ(map->editor()->UndoCount(), 2);
}

TEST_F(EdgeMatchingSheets, OnlyWhatLiesInTheCirclesBoundMoves) {
    // A circle of radius 100 about (400, 300): B's corners at y = 50 and 550 stay.
    dispatcher->MouseDown(TLLeftButton, 400, 300);
    dispatcher->MouseMove(TLLeftButton, 500, 300);
    dispatcher->MouseUp(TLLeftButton, 500, 300);
    expectPaths(partsOf(sheetB, b1),
                Paths{{{400.4, 50.3}, {700, 50}, {700, 300}, {400, 300.2}, {400.4, 50.3}}});
    expectPaths(partsOf(sheetB, b2),
                Paths{{{400, 300.2}, {700, 300}, {700, 550}, {400.2, 549.6}, {400, 300.2}}});
}

}  // namespace
}  // namespace TMObjects
