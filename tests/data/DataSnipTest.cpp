#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/CHelper.h"
#include "data/CdataManager.h"
#include "data/TLTopoCheckCommonFunc.h"
#include "tlgeo/TLGeometryWkt.h"

using namespace TMObjects;

namespace {

// A package of two layers, targets and cutters, as the trim and break tools build it; the
// limits are set as given.
class Snip {
public:
    explicit Snip(double pointLimit = 0.0, double lineLimit = 0.0) {
        manager.set_dPointLimit(pointLimit);
        manager.set_dLineLimit(lineLimit);
        number = manager.package_Add();
        package = manager.package_GetAt(number);
        targetLayer = addLayer();
        package->GetLayers()
            .getAt(targetLayer)
            ->GetFields()
            .AddAttField("id", "id", 4, 10, 1, 1, 0);
        cutterLayer = addLayer();
    }

    CvectorEntityData* target(const char* wkt) { return add(targetLayer, wkt); }
    CvectorEntityData* cutter(const char* wkt) { return add(cutterLayer, wkt); }

    // The pieces as WKT, or "none" when no package was appended.
    std::vector<std::string> pieces() {
        TLTopoCheckCommonFunc::PreprocessingDataForOverlay(package);
        const int before = manager.package_GetSize();
        result = manager.lineLayerSniplineLayer(number, targetLayer, cutterLayer, 1);
        if (result < 0) {
            EXPECT_EQ(manager.package_GetSize(), before);
            return {"none"};
        }
        EXPECT_EQ(result, before);
        std::vector<std::string> out;
        CvectorPackageData* last = manager.package_GetAt(result);
        for (int i = 0; i < last->entity_GetSize(); ++i) {
            TLRefPtr<TLGeoPolyline> line =
                CHelper::ChunkDataToTmPolyline(last->entity_GetAt(i), false, false, false);
            out.push_back(TLGeometryWkt::ToWkt(line.get()));
        }
        return out;
    }

    CdataManager manager;
    CvectorPackageData* package = nullptr;
    int number = -1;
    int targetLayer = -1;
    int cutterLayer = -1;
    int result = -1;

private:
    int addLayer() {
        const int layer = package->GetLayers().add();
        package->GetLayers().getAt(layer)->SetLayerType(3);
        return layer;
    }

    CvectorEntityData* add(int layer, const char* wkt) {
        CvectorEntityData* entity = package->entity_GetAt(package->entity_Add(1));
        TLRefPtr<TLGeometry> geometry = TLGeometryWkt::FromWkt(wkt);
        EXPECT_TRUE(CHelper::TmGeometryToChunkData(geometry.get(), entity, false)) << wkt;
        package->GetLayers().getAt(layer)->AddChunk(entity);
        entity->entity_ForeWard();
        return entity;
    }
};

using Pieces = std::vector<std::string>;

}  // namespace

TEST(DataSnip, ACrossingSplitsAtItsPoint) {
    Snip s;
    s.target("LINESTRING (0 0, 10 0)");
    s.cutter("LINESTRING (4 -5, 4 5)");
    EXPECT_EQ(s.pieces(), (Pieces{"LINESTRING (0 0, 4 0)", "LINESTRING (4 0, 10 0)"}));
}

TEST(DataSnip, SplitPointsFollowTheTargetNotTheCutter) {
    Snip s;
    s.target("LINESTRING (0 0, 10 0, 10 10)");
    s.cutter("LINESTRING (12 5, 5 5, 5 -5)");
    EXPECT_EQ(s.pieces(), (Pieces{"LINESTRING (0 0, 5 0)", "LINESTRING (5 0, 10 0, 10 5)",
                                  "LINESTRING (10 5, 10 10)"}));
}

TEST(DataSnip, ACrossingThroughAVertexSplitsAtThatVertexExactly) {
    Snip s;
    s.target("LINESTRING (0 0, 0.1 0.3, 10 0)");
    s.cutter("LINESTRING (0.1 -1, 0.1 1)");
    EXPECT_EQ(s.pieces(), (Pieces{"LINESTRING (0 0, 0.1 0.3)", "LINESTRING (0.1 0.3, 10 0)"}));
}

TEST(DataSnip, ACrossingOnASelfCrossingLineSplitsEveryPassThroughIt) {
    Snip s;
    s.target("LINESTRING (0 0, 10 10, 10 0, 0 10)");
    s.cutter("LINESTRING (0 5, 12 5)");
    EXPECT_EQ(s.pieces(), (Pieces{"LINESTRING (0 0, 5 5)", "LINESTRING (5 5, 10 10, 10 5)",
                                  "LINESTRING (10 5, 10 0, 5 5)", "LINESTRING (5 5, 0 10)"}));
}

TEST(DataSnip, AStretchRunAlongTogetherSplitsAtBothEndsOnly) {
    Snip s;
    s.target("LINESTRING (0 0, 5 0, 10 0)");
    s.cutter("LINESTRING (2 0, 3 0, 8 0)");
    EXPECT_EQ(s.pieces(), (Pieces{"LINESTRING (0 0, 2 0)", "LINESTRING (2 0, 5 0, 8 0)",
                                  "LINESTRING (8 0, 10 0)"}));
}

TEST(DataSnip, MultiPartTargetsSplitPathByPathAndKeepTheirUntouchedPaths) {
    Snip s;
    s.target("MULTILINESTRING ((0 0, 10 0), (0 5, 10 5))");
    s.target("LINESTRING (20 0, 30 0)");
    s.cutter("LINESTRING (5 -1, 5 1)");
    s.cutter("LINESTRING (25 -1, 25 1)");
    EXPECT_EQ(s.pieces(),
              (Pieces{"LINESTRING (0 0, 5 0)", "LINESTRING (5 0, 10 0)", "LINESTRING (0 5, 10 5)",
                      "LINESTRING (20 0, 25 0)", "LINESTRING (25 0, 30 0)"}));
    CvectorPackageData* last = s.manager.package_GetAt(s.result);
    EXPECT_EQ(last->entity_GetAt(2)->GetSourceIds().GetAt(0), 1);
    EXPECT_EQ(last->entity_GetAt(3)->GetSourceIds().GetAt(0), 2);
}

TEST(DataSnip, ARingOpensAtItsCrossingsAndThePieceOverItsStartRunsOn) {
    Snip s;
    s.target("LINESTRING (0 0, 10 0, 10 10, 0 10, 0 0)");
    s.cutter("LINESTRING (5 -5, 5 15)");
    EXPECT_EQ(s.pieces(),
              (Pieces{"LINESTRING (5 0, 10 0, 10 10, 5 10)", "LINESTRING (5 10, 0 10, 0 0, 5 0)"}));
}

TEST(DataSnip, ARingCrossedAtItsStartHasNoPieceOfNoLength) {
    Snip s;
    s.target("LINESTRING (0 0, 10 0, 10 10, 0 10, 0 0)");
    s.cutter("LINESTRING (-1 -1, 11 11)");
    EXPECT_EQ(s.pieces(),
              (Pieces{"LINESTRING (0 0, 10 0, 10 10)", "LINESTRING (10 10, 0 10, 0 0)"}));
}

TEST(DataSnip, ARingCrossedOnceStaysWhole) {
    Snip s(1.0);
    s.target("LINESTRING (0 0, 10 0, 10 10, 0 10, 0 0)");
    s.cutter("LINESTRING (5 -5, 5 5)");
    EXPECT_EQ(s.pieces(), (Pieces{"none"}));
}

TEST(DataSnip, ACutterThatMissesOrTouchesAnEndGivesNoPackage) {
    Snip miss;
    miss.target("LINESTRING (0 0, 10 0)");
    miss.cutter("LINESTRING (20 -5, 20 5)");
    EXPECT_EQ(miss.pieces(), (Pieces{"none"}));

    Snip end;
    end.target("LINESTRING (0 0, 10 0)");
    end.cutter("LINESTRING (10 -5, 10 5)");
    EXPECT_EQ(end.pieces(), (Pieces{"none"}));

    Snip same;
    same.target("LINESTRING (0 0, 10 0)");
    same.cutter("LINESTRING (0 0, 10 0)");
    EXPECT_EQ(same.pieces(), (Pieces{"none"}));
}

TEST(DataSnip, ACutterEndingWithinThePointLimitStillCuts) {
    Snip inside(1.0);
    inside.target("LINESTRING (0 0, 10 0)");
    inside.cutter("LINESTRING (5 -5, 5 -0.5)");
    EXPECT_EQ(inside.pieces(), (Pieces{"LINESTRING (0 0, 5 0)", "LINESTRING (5 0, 10 0)"}));

    Snip outside(0.4);
    outside.target("LINESTRING (0 0, 10 0)");
    outside.cutter("LINESTRING (5 -5, 5 -0.5)");
    EXPECT_EQ(outside.pieces(), (Pieces{"none"}));
}

TEST(DataSnip, SplitPointsCloserThanTheLimitsMerge) {
    Snip merged(1.0);
    merged.target("LINESTRING (0 0, 10 0)");
    merged.cutter("LINESTRING (4 -1, 4 1, 4.5 1, 4.5 -1)");
    EXPECT_EQ(merged.pieces(), (Pieces{"LINESTRING (0 0, 4 0)", "LINESTRING (4 0, 10 0)"}));

    Snip apart(0.1);
    apart.target("LINESTRING (0 0, 10 0)");
    apart.cutter("LINESTRING (4 -1, 4 1, 4.5 1, 4.5 -1)");
    EXPECT_EQ(apart.pieces(), (Pieces{"LINESTRING (0 0, 4 0)", "LINESTRING (4 0, 4.5 0)",
                                      "LINESTRING (4.5 0, 10 0)"}));

    // The line limit leaves no piece shorter than it: the split at 4.5 goes.
    Snip shortPiece(0.1, 1.0);
    shortPiece.target("LINESTRING (0 0, 10 0)");
    shortPiece.cutter("LINESTRING (4 -1, 4 1, 4.5 1, 4.5 -1)");
    EXPECT_EQ(shortPiece.pieces(), (Pieces{"LINESTRING (0 0, 4 0)", "LINESTRING (4 0, 10 0)"}));

    // Near an end nothing is cut off.
    Snip nearEnd(1.0);
    nearEnd.target("LINESTRING (0 0, 10 0)");
    nearEnd.cutter("LINESTRING (9.5 -1, 9.5 1)");
    EXPECT_EQ(nearEnd.pieces(), (Pieces{"none"}));
}

TEST(DataSnip, APolygonCutsWithItsOutline) {
    Snip s;
    s.target("LINESTRING (0 0, 10 0)");
    s.cutter("POLYGON ((3 -1, 6 -1, 6 1, 3 1, 3 -1))");
    EXPECT_EQ(s.pieces(),
              (Pieces{"LINESTRING (0 0, 3 0)", "LINESTRING (3 0, 6 0)", "LINESTRING (6 0, 10 0)"}));
}

TEST(DataSnip, PiecesCarryTheTargetsAttributesInALayerLikeItsOwn) {
    Snip s;
    s.target("LINESTRING (0 0, 10 0)")->entity_SetAttribValueByName("id", "7");
    s.cutter("LINESTRING (4 -5, 4 5)");
    ASSERT_EQ(s.pieces().size(), 2u);
    CvectorPackageData* last = s.manager.package_GetAt(s.result);
    CRvLayer* layer = last->GetLayers().getAt(1);
    ASSERT_NE(layer, nullptr);
    EXPECT_EQ(layer->GetLayerType(), 3);
    EXPECT_EQ(layer->GetFields().FindField("id"), 0);
    EXPECT_EQ(layer->GetChunkCount(), 2);
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(last->entity_GetAt(i)->entity_GetAttribValueByName("id").toStdString(), "7");
}

TEST(DataSnip, BadNumbersAppendNothing) {
    Snip s;
    s.target("LINESTRING (0 0, 10 0)");
    s.cutter("LINESTRING (4 -5, 4 5)");
    EXPECT_EQ(s.manager.lineLayerSniplineLayer(5, 1, 2, 1), -1);
    EXPECT_EQ(s.manager.lineLayerSniplineLayer(0, 1, 3, 1), -1);
    EXPECT_EQ(s.manager.lineLayerSniplineLayer(0, 1, 1, 1), -1);
    EXPECT_EQ(s.manager.package_GetSize(), 1);
}
