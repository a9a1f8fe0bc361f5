#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "data/CHelper.h"
#include "data/CdataManager.h"
#include "tlgeo/TLGeometryWkt.h"
#include "tlgeo/TLGeosConverter.h"

using namespace TMObjects;

namespace {

// The same shape always written the same way: rings from their least vertex, in GEOS's order.
std::string canonical(TLGeometry* geometry) {
    TLGeosContext::GeometryPtr g = TLGeosConverter::ToGeos(geometry);
    GEOSNormalize_r(TLGeosContext::Handle(), g.get());
    TLRefPtr<TLGeometry> back = TLGeosConverter::FromGeos(g.get(), TLGeometry::GeoPolygon);
    return TLGeometryWkt::ToWkt(back.get());
}

std::string canonical(const std::string& wkt) {
    return canonical(TLGeometryWkt::FromWkt(wkt).get());
}

struct Piece {
    std::string wkt;
    std::vector<int> sources;
    bool operator==(const Piece& other) const {
        return wkt == other.wkt && sources == other.sources;
    }
};

std::ostream& operator<<(std::ostream& out, const Piece& piece) {
    out << piece.wkt << " from";
    for (int s : piece.sources) out << ' ' << s;
    return out;
}

Piece piece(const std::string& wkt, std::vector<int> sources) {
    return {canonical(wkt), std::move(sources)};
}

// Two packages of polygon layers, targets and cutters, and the boolean operations between them.
class Cut {
public:
    Cut() {
        first = manager.package_GetAt(manager.package_Add());
        second = manager.package_GetAt(manager.package_Add());
        targetLayer = layerOf(first);
        cutterLayer = layerOf(second);
    }

    CvectorEntityData* target(const std::string& wkt) { return add(first, targetLayer, wkt); }
    CvectorEntityData* cutter(const std::string& wkt) { return add(second, cutterLayer, wkt); }

    std::vector<Piece> run(int operation) {
        const int before = manager.package_GetSize();
        const int result = manager.twoBoolOperate(0, 1, operation, 0, 111);
        EXPECT_EQ(result, before);
        EXPECT_EQ(manager.package_GetUpperBound(), result);
        out = manager.package_GetAt(result);
        std::vector<Piece> pieces;
        for (int i = 0; out && i < out->entity_GetSize(); ++i) {
            CvectorEntityData* entity = out->entity_GetAt(i);
            TLRefPtr<TLGeometry> g =
                CHelper::ChunkDataToTmGeometry(entity, TLGeometry::GeoPolygon, false, false, false);
            std::vector<int> sources;
            for (int k = 0; k < entity->GetSourceIds().GetSize(); ++k)
                sources.push_back(entity->GetSourceIds().GetAt(k));
            pieces.push_back({canonical(g.get()), sources});
        }
        return pieces;
    }

    // The raw vertices of piece `index`, as the operation wrote them.
    std::string rawWkt(int index) {
        TLRefPtr<TLGeometry> g = CHelper::ChunkDataToTmGeometry(
            out->entity_GetAt(index), TLGeometry::GeoPolygon, false, false, false);
        return TLGeometryWkt::ToWkt(g.get());
    }

    CdataManager manager;
    CvectorPackageData* first = nullptr;
    CvectorPackageData* second = nullptr;
    CvectorPackageData* out = nullptr;

private:
    static int layerOf(CvectorPackageData* package) {
        const int layer = package->GetLayers().add();
        package->GetLayers().getAt(layer)->SetLayerType(4);
        package->GetLayers().getAt(layer)->GetFields().AddAttField("id", "id", 4, 10, 1, 1, 0);
        return layer;
    }

    static CvectorEntityData* add(CvectorPackageData* package, int layer, const std::string& wkt) {
        CvectorEntityData* entity = package->entity_GetAt(package->entity_Add(1));
        TLRefPtr<TLGeometry> geometry = TLGeometryWkt::FromWkt(wkt);
        EXPECT_TRUE(CHelper::TmGeometryToChunkData(geometry.get(), entity, false)) << wkt;
        package->GetLayers().getAt(layer)->AddChunk(entity);
        entity->entity_ForeWard();
        return entity;
    }

    int targetLayer = -1;
    int cutterLayer = -1;
};

using Pieces = std::vector<Piece>;
const int kCutByPolygons = 13;
const int kCutByLines = 14;
const char* const kSquare = "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))";

}  // namespace

TEST(DataPolygonCut, AnOverlappingCornerGivesTheRestAndTheOverlapWithBothSources) {
    Cut c;
    c.target(kSquare);
    c.cutter("POLYGON ((5 -5, 15 -5, 15 5, 5 5, 5 -5))");
    EXPECT_EQ(c.run(kCutByPolygons),
              (Pieces{piece("POLYGON ((0 0, 5 0, 5 5, 10 5, 10 10, 0 10, 0 0))", {1}),
                      piece("POLYGON ((5 0, 10 0, 10 5, 5 5, 5 0))", {1, 2})}));
}

TEST(DataPolygonCut, OutlinesThroughVerticesAndAlongEdgesCutExactlyThere) {
    Cut c;
    c.target(kSquare);
    c.cutter("POLYGON ((0 0, 10 0, 10 10, 0 0))");
    EXPECT_EQ(c.run(kCutByPolygons), (Pieces{piece("POLYGON ((0 0, 10 10, 0 10, 0 0))", {1}),
                                             piece("POLYGON ((0 0, 10 0, 10 10, 0 0))", {1, 2})}));
}

TEST(DataPolygonCut, ACutterThatOnlyTouchesLeavesTheTargetWholeWithItsOwnVertices) {
    for (const char* touching :
         {"POLYGON ((10 0, 20 0, 20 10, 10 10, 10 0))",
          "POLYGON ((10 10, 20 10, 20 20, 10 20, 10 10))", "POLYGON ((0 20, 20 0, 20 20, 0 20))"}) {
        Cut c;
        c.target("POLYGON ((0 10, 0 0, 10 0, 10 10, 0 10))");
        c.cutter(touching);
        EXPECT_EQ(c.run(kCutByPolygons), (Pieces{piece(kSquare, {1})})) << touching;
        EXPECT_EQ(c.rawWkt(0), "POLYGON ((0 10, 0 0, 10 0, 10 10, 0 10))") << touching;
    }
}

TEST(DataPolygonCut, ATargetInsideTheCutterIsAllOverlap) {
    Cut c;
    c.target(kSquare);
    c.cutter("POLYGON ((0 0, 20 0, 0 20, 0 0))");
    EXPECT_EQ(c.run(kCutByPolygons), (Pieces{piece(kSquare, {1, 2})}));
}

TEST(DataPolygonCut, HolesAreCutWithTheirTargetAndKeptWhereUntouched) {
    const char* holed = "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0), (3 3, 3 7, 7 7, 7 3, 3 3))";
    {
        Cut c;
        c.target(holed);
        c.cutter("POLYGON ((5 -5, 15 -5, 15 15, 5 15, 5 -5))");
        EXPECT_EQ(
            c.run(kCutByPolygons),
            (Pieces{piece("POLYGON ((0 0, 5 0, 5 3, 3 3, 3 7, 5 7, 5 10, 0 10, 0 0))", {1}),
                    piece("POLYGON ((5 0, 10 0, 10 10, 5 10, 5 7, 7 7, 7 3, 5 3, 5 0))", {1, 2})}));
    }
    {
        Cut c;
        c.target(holed);
        c.cutter("POLYGON ((4 4, 6 4, 6 6, 4 6, 4 4))");
        EXPECT_EQ(c.run(kCutByPolygons), (Pieces{piece(holed, {1})}));
    }
    {
        Cut c;
        c.target(holed);
        c.cutter("POLYGON ((2 2, 8 2, 8 8, 2 8, 2 2))");
        EXPECT_EQ(
            c.run(kCutByPolygons),
            (Pieces{
                piece("POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0), (2 2, 2 8, 8 8, 8 2, 2 2))", {1}),
                piece("POLYGON ((2 2, 8 2, 8 8, 2 8, 2 2), (3 3, 3 7, 7 7, 7 3, 3 3))", {1, 2})}));
    }
}

TEST(DataPolygonCut, PiecesAreSinglePolygonsLargestFirstWithinTheirSources) {
    Cut c;
    c.target("MULTIPOLYGON (((0 0, 10 0, 10 10, 0 10, 0 0)), ((20 0, 30 0, 30 10, 20 10, 20 0)))");
    c.cutter("POLYGON ((4 -5, 25 -5, 25 15, 4 15, 4 -5))");
    EXPECT_EQ(c.run(kCutByPolygons),
              (Pieces{piece("POLYGON ((25 0, 30 0, 30 10, 25 10, 25 0))", {1}),
                      piece("POLYGON ((0 0, 4 0, 4 10, 0 10, 0 0))", {1}),
                      piece("POLYGON ((4 0, 10 0, 10 10, 4 10, 4 0))", {1, 2}),
                      piece("POLYGON ((20 0, 25 0, 25 10, 20 10, 20 0))", {1, 2})}));
}

TEST(DataPolygonCut, AStripAcrossSplitsTheTargetInTwo) {
    Cut c;
    c.target(kSquare);
    c.cutter("POLYGON ((3 -5, 6 -5, 6 15, 3 15, 3 -5))");
    EXPECT_EQ(c.run(kCutByPolygons),
              (Pieces{piece("POLYGON ((6 0, 10 0, 10 10, 6 10, 6 0))", {1}),
                      piece("POLYGON ((0 0, 3 0, 3 10, 0 10, 0 0))", {1}),
                      piece("POLYGON ((3 0, 6 0, 6 10, 3 10, 3 0))", {1, 2})}));
}

TEST(DataPolygonCut, SourcesAreNumberedAcrossBothPackages) {
    Cut c;
    c.target(kSquare);
    c.target("POLYGON ((20 0, 30 0, 30 10, 20 10, 20 0))")->entity_SetHandle(7);
    c.cutter("POLYGON ((8 -1, 22 -1, 22 1, 8 1, 8 -1))");
    EXPECT_EQ(c.run(kCutByPolygons),
              (Pieces{piece("POLYGON ((0 0, 8 0, 8 1, 10 1, 10 10, 0 10, 0 0))", {1}),
                      piece("POLYGON ((8 0, 10 0, 10 1, 8 1, 8 0))", {1, 3}),
                      piece("POLYGON ((20 1, 22 1, 22 0, 30 0, 30 10, 20 10, 20 1))", {2}),
                      piece("POLYGON ((20 0, 22 0, 22 1, 20 1, 20 0))", {2, 3})}));
    // Each piece stands for its target: its handle and attributes.
    EXPECT_EQ(c.out->entity_GetAt(2)->entity_GetHandle(), 7);
}

TEST(DataPolygonCut, NothingToCutStillGivesAnEmptyPackage) {
    Cut c;
    c.cutter(kSquare);
    EXPECT_EQ(c.run(kCutByPolygons), Pieces{});
    EXPECT_EQ(c.manager.twoBoolOperate(0, 7, kCutByPolygons, 0, 111), -1);
    EXPECT_EQ(c.manager.twoBoolOperate(0, 1, 99, 0, 111), -1);
    EXPECT_EQ(c.manager.package_GetSize(), 3);
}

// The pieces of a target alone add up to the target less the overlap, and the pieces of both to
// the overlap, for star-shaped polygons thrown at random.
TEST(DataPolygonCut, PieceAreasAddUpToTheTargetLessTheOverlap) {
    std::mt19937 random(20261125);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    auto star = [&](double cx, double cy) {
        // Angles jittered around even steps: no gap reaches half a turn, so the ring is simple.
        const int n = 4 + int(unit(random) * 12);
        std::vector<double> angles;
        for (int i = 0; i < n; ++i) angles.push_back((i + 0.8 * unit(random)) * 2 * M_PI / n);
        std::string wkt = "POLYGON ((";
        std::string firstVertex;
        for (int i = 0; i < n; ++i) {
            const double r = 20 + 80 * unit(random);
            const std::string v = std::to_string(500000 + cx + r * std::cos(angles[i])) + " " +
                                  std::to_string(5000000 + cy + r * std::sin(angles[i]));
            if (i == 0) firstVertex = v;
            wkt += v + ", ";
        }
        return wkt + firstVertex + "))";
    };
    GEOSContextHandle_t h = TLGeosContext::Handle();
    auto area = [&](const std::string& wkt) {
        TLGeosContext::GeometryPtr g = TLGeosConverter::ToGeos(TLGeometryWkt::FromWkt(wkt).get());
        double a = 0;
        GEOSArea_r(h, g.get(), &a);
        return a;
    };
    for (int round = 0; round < 200; ++round) {
        const std::string target = star(0, 0);
        const std::string cutter = star(unit(random) * 120 - 60, unit(random) * 120 - 60);
        Cut c;
        c.target(target);
        c.cutter(cutter);
        double alone = 0, both = 0;
        for (const Piece& p : c.run(kCutByPolygons))
            (p.sources.size() == 1 ? alone : both) += area(p.wkt);
        TLGeosContext::GeometryPtr t =
            TLGeosConverter::ToGeos(TLGeometryWkt::FromWkt(target).get());
        TLGeosContext::GeometryPtr k =
            TLGeosConverter::ToGeos(TLGeometryWkt::FromWkt(cutter).get());
        ASSERT_TRUE(t && k) << target << "\n" << cutter;
        TLGeosContext::GeometryPtr overlap(GEOSIntersection_r(h, t.get(), k.get()));
        ASSERT_TRUE(overlap) << target << "\n" << cutter << "\n" << TLGeosContext::LastError();
        double whole = 0, shared = 0;
        GEOSArea_r(h, t.get(), &whole);
        GEOSArea_r(h, overlap.get(), &shared);
        EXPECT_NEAR(alone, whole - shared, 1e-9 * whole) << target << "\n" << cutter;
        EXPECT_NEAR(both, shared, 1e-9 * whole) << target << "\n" << cutter;
    }
}

TEST(DataPolygonCut, ALineAcrossCutsAPolygonIntoItsFacesLargestFirst) {
    Cut c;
    c.target("POLYGON ((0 0, 20 0, 20 10, 0 10, 0 0))");
    c.cutter("LINESTRING (0 0, 10 10, 12 14)");
    EXPECT_EQ(c.run(kCutByLines), (Pieces{piece("POLYGON ((0 0, 20 0, 20 10, 10 10, 0 0))", {1}),
                                          piece("POLYGON ((0 0, 10 10, 0 10, 0 0))", {1})}));
}

TEST(DataPolygonCut, ALineThatDoesNotRunAcrossCutsNothing) {
    for (const char* line : {"LINESTRING (5 5, 15 5)", "LINESTRING (2 2, 8 8)",
                             "LINESTRING (10 0, 10 10)", "LINESTRING (20 0, 20 10)"}) {
        Cut c;
        c.target(kSquare);
        c.cutter(line);
        EXPECT_EQ(c.run(kCutByLines), (Pieces{piece(kSquare, {1})})) << line;
    }
}

TEST(DataPolygonCut, ALineThroughAHoleCutsAroundIt) {
    Cut c;
    c.target("POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0), (3 3, 3 7, 7 7, 7 3, 3 3))");
    c.cutter("LINESTRING (4 -1, 4 11)");
    EXPECT_EQ(c.run(kCutByLines),
              (Pieces{piece("POLYGON ((4 0, 10 0, 10 10, 4 10, 4 7, 7 7, 7 3, 4 3, 4 0))", {1}),
                      piece("POLYGON ((0 0, 4 0, 4 3, 3 3, 3 7, 4 7, 4 10, 0 10, 0 0))", {1})}));
}
