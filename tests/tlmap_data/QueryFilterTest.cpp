#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DataTestSupport.h"
#include "tlgeo/TLGeoEnvelope.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlsde/TLWhereClause.h"

namespace TMObjects::testing {
namespace {

// Five features with a spread of values, nulls included.
class WhereTest : public ::testing::Test {
protected:
    void SetUp() override {
        add(1, "Main Street", 10, 2.5, "2020-01-01");
        add(2, "main street", 20, 7.0, nullptr);
        add(3, "O'Brien Way", 30, -1.0, "2021-06-30");
        add(4, "", 40, 0.0, "2019-12-31");
        TLFeature bare;  // no values at all
        bare.SetId(5);
        bare.SetGeometry(Wkt("POINT (5 5)"));
        table.Load(bare);
    }
    void add(int id, const char* name, int code, double area, const char* day) {
        TLFeature f = MakeFeature("POINT (0 0)", name, code, id);
        f.SetValue("AREA", TLVariant(area));
        if (day) f.SetValue("DAY", TLVariant(TLString(day)));
        table.Load(f);
    }
    std::vector<int> where(const std::string& clause) {
        TLQueryFilter filter;
        filter.SetWhereClause(TLString(clause));
        return table.Search(filter);
    }
    TLFeatureTable table{"t", SampleFields()};
};

using Ids = std::vector<int>;

TEST_F(WhereTest, ComparisonsListsPatternsAndNulls) {
    EXPECT_EQ(where(""), (Ids{1, 2, 3, 4, 5}));
    EXPECT_EQ(where("   "), (Ids{1, 2, 3, 4, 5}));
    EXPECT_EQ(where("CODE = 20"), (Ids{2}));
    EXPECT_EQ(where("code >= 20"), (Ids{2, 3, 4}));
    EXPECT_EQ(where("CODE <> 20"), (Ids{1, 3, 4}));  // a null is neither equal nor unequal
    EXPECT_EQ(where("CODE != 20"), (Ids{1, 3, 4}));
    EXPECT_EQ(where("AREA < 0"), (Ids{3}));
    EXPECT_EQ(where("AREA <= -1.0"), (Ids{3}));
    EXPECT_EQ(where("AREA > 2.5e0"), (Ids{2}));
    EXPECT_EQ(where("FID = 3"), (Ids{3}));
    EXPECT_EQ(where("fid IN (1, 5, 9)"), (Ids{1, 5}));
    EXPECT_EQ(where("__OBJECTID__ = 3"), (Ids{3}));
    EXPECT_EQ(where("__objectid__ IN (2, 4)"), (Ids{2, 4}));
    EXPECT_EQ(where("CODE IN (10, 40)"), (Ids{1, 4}));
    EXPECT_EQ(where("CODE NOT IN (10, 40)"), (Ids{2, 3}));
    EXPECT_EQ(where("CODE BETWEEN 15 AND 30"), (Ids{2, 3}));
    EXPECT_EQ(where("CODE NOT BETWEEN 15 AND 30"), (Ids{1, 4}));
    EXPECT_EQ(where("NAME = 'Main Street'"), (Ids{1}));  // equality minds case
    EXPECT_EQ(where("NAME LIKE 'main%'"), (Ids{1, 2}));  // LIKE does not
    EXPECT_EQ(where("NAME LIKE '%_Street'"), (Ids{1, 2}));
    EXPECT_EQ(where("NAME LIKE 'O''Brien%'"), (Ids{3}));
    EXPECT_EQ(where("NAME NOT LIKE '%street'"), (Ids{3, 4}));
    EXPECT_EQ(where("NAME LIKE '%'"), (Ids{1, 2, 3, 4}));
    EXPECT_EQ(where("NAME = ''"), (Ids{4}));
    EXPECT_EQ(where("DAY IS NULL"), (Ids{2, 5}));
    EXPECT_EQ(where("DAY IS NOT NULL"), (Ids{1, 3, 4}));
    EXPECT_EQ(where("DAY > '2020-01-01'"), (Ids{3}));
    EXPECT_EQ(where("NAME = NULL"), (Ids{}));
    EXPECT_EQ(where("\"CODE\" = 30 OR [AREA] = 0"), (Ids{3, 4}));
    EXPECT_EQ(where("CODE = '30'"), (Ids{3}));  // a text that reads as a number compares as one
    EXPECT_EQ(where("NOSUCH = 1"), (Ids{}));
    EXPECT_EQ(where("NOSUCH IS NULL"), (Ids{1, 2, 3, 4, 5}));
    EXPECT_EQ(where("-1 = AREA"), (Ids{3}));
    EXPECT_EQ(where("CODE = AREA * 2"), (Ids{}));  // no arithmetic: a parse error
}

TEST_F(WhereTest, LogicFollowsPrecedenceAndThreeValuedTruth) {
    EXPECT_EQ(where("CODE = 10 OR CODE = 20 AND AREA > 5"), (Ids{1, 2}));
    EXPECT_EQ(where("(CODE = 10 OR CODE = 20) AND AREA < 5"), (Ids{1}));
    EXPECT_EQ(where("NOT CODE = 10"), (Ids{2, 3, 4}));
    EXPECT_EQ(where("NOT (CODE = 10 OR NAME LIKE 'o%')"), (Ids{2, 4}));
    EXPECT_EQ(where("not not fid = 2"), (Ids{2}));
    // Unknown OR true is true; unknown AND false is false; NOT unknown stays unknown.
    EXPECT_EQ(where("DAY > '2000' OR FID = 5"), (Ids{1, 3, 4, 5}));
    EXPECT_EQ(where("NOT (DAY > '2020-06-01' AND FID < 3)"), (Ids{1, 3, 4, 5}));
    EXPECT_EQ(where("NOT DAY > '2020-06-01'"), (Ids{1, 4}));
}

TEST_F(WhereTest, TextThatDoesNotParseMatchesNothingAndNeverCrashes) {
    const std::vector<std::string> bad = {
        "CODE =",
        "= 3",
        "CODE = 3 AND",
        "CODE IN (1, 2",
        "CODE IN ()",
        "(CODE = 1",
        "CODE = 1)",
        "NAME = 'open",
        "NAME LIKE",
        "DAY IS",
        "DAY IS NOT 3",
        "CODE BETWEEN 1",
        "CODE ! 3",
        "CODE == 3",
        "CODE = 3 3",
        "CODE = 1 OR OR CODE = 2",
        "AND",
        "NOT",
        "CODE",
        "\"CODE = 1",
        "CODE = #",
        "CODE = 0x1F",
        "CODE = 1e999999",
        "CODE = 3;DROP TABLE",
    };
    for (const std::string& clause : bad) {
        EXPECT_EQ(where(clause), Ids{}) << clause;
        TLWhereClause parsed{TLString(clause)};
        EXPECT_FALSE(parsed.IsValid()) << clause;
        EXPECT_FALSE(parsed.Error().isEmpty()) << clause;
    }
    // Nesting deep enough to exhaust the stack of a naive parser.
    const std::string deep = std::string(200000, '(') + "CODE = 1" + std::string(200000, ')');
    EXPECT_EQ(where(deep), Ids{});
    const std::string deepNot = [] {
        std::string s;
        for (int i = 0; i < 100000; ++i) s += "NOT ";
        return s + "CODE = 1";
    }();
    EXPECT_EQ(where(deepNot), Ids{});
    // Moderate nesting is fine.
    EXPECT_EQ(where(std::string(50, '(') + "CODE = 10" + std::string(50, ')')), Ids{1});
}

// Lines placed so that bounds and shapes tell different stories.
class SpatialTest : public ::testing::Test {
protected:
    void SetUp() override {
        layer->SetEditable(true);
        load(1, "LINESTRING (0 0, 10 10)", "diagonal", 1);  // crosses the box's corner
        load(2, "LINESTRING (-5 4, 15 4)", "through", 2);   // crosses the box, no vertex in it
        load(3, "LINESTRING (0 9, 1 10)", "corner", 3);     // bounds meet the box only
        load(4, "POINT (4 4.5)", "inside", 4);
        load(5, "POLYGON ((20 20, 30 20, 30 30, 20 30, 20 20))", "far", 5);
    }
    void load(int id, const char* wkt, const char* name, int code) {
        layer->GetDatasource()->Load(MakeFeature(wkt, name, code, id));
    }
    std::vector<int> search(TLRefPtr<TLGeometry> g, TLSpatialRelEnum rel,
                            const std::string& where = "") {
        TLQueryFilter f;
        f.SetFilterGeometry(g);
        f.SetSpatialRel(rel);
        f.SetWhereClause(TLString(where));
        return layer->GetDatasource()->Search(f);
    }
    TLRefPtr<TLGeometry> box(double x0, double y0, double x1, double y1) {
        return TLRefPtr<TLGeometry>(new TLGeoEnvelope(x0, y0, x1, y1));
    }
    TLRefPtr<TLFeatureLayer> layer{
        TLFeatureLayer::CreateMemoryLayer("lines", TLLayer::LineLayer, SampleFields(), nullptr)};
};

TEST_F(SpatialTest, RelationsThroughTheIndexAndWhereClauseTogether) {
    // The box [3, 6] x [3, 6]: an envelope acts as the whole rectangle, not its corners.
    EXPECT_EQ(search(box(3, 3, 6, 6), TLSpatialRelIntersects), (Ids{1, 2, 4}));
    EXPECT_EQ(search(box(3, 3, 6, 6), TLSpatialRelIntersects, "CODE > 1"), (Ids{2, 4}));
    EXPECT_EQ(search(box(3, 3, 6, 6), TLSpatialRelIntersects, "CODE >"), (Ids{}));
    // Near the top left corner only line 3's bounds reach in.
    EXPECT_EQ(search(box(0, 9.8, 0.1, 10), TLSpatialRelIntersects), (Ids{}));
    EXPECT_EQ(search(box(0, 9.8, 0.1, 10), TLSpatialRelEnvelopeIntersects), (Ids{1, 3}));
    EXPECT_EQ(search(box(3, 3, 6, 6), TLSpatialRelContains), (Ids{4}));
    EXPECT_EQ(search(box(3, 3, 6, 6), TLSpatialRelDisjoint), (Ids{3, 5}));
    // A polygon filter: the triangle below the diagonal.
    TLRefPtr<TLGeometry> triangle = Wkt("POLYGON ((1 0, 12 0, 12 11, 1 0))");
    EXPECT_EQ(search(triangle, TLSpatialRelIntersects), (Ids{2}));
    EXPECT_EQ(search(Wkt("LINESTRING (25 0, 25 40)"), TLSpatialRelIntersects), (Ids{5}));
    // An empty geometry meets nothing.
    EXPECT_EQ(search(TLRefPtr<TLGeometry>(new TLGeoEnvelope()), TLSpatialRelIntersects), Ids{});
}

TEST_F(SpatialTest, CursorWalksWhatTheFilterFindsAndPassesOverFeaturesDeletedSince) {
    auto walk = [](TLRefPtr<TLFeatureCursor> cursor) {
        std::vector<int> ids;
        while (TLRefPtr<TLFeature> f = cursor->NextFeature()) ids.push_back(f->GetId());
        return ids;
    };
    TLQueryFilter filter;
    filter.SetFilterGeometry(box(3, 3, 6, 6));
    filter.SetSpatialRel(TLSpatialRelIntersects);
    TLRefPtr<TLFeatureCursor> cursor = layer->Search(filter);
    ASSERT_TRUE(cursor);

    TLRefPtr<TLFeature> first = cursor->NextFeature();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->GetId(), 1);
    EXPECT_EQ(WktOf(first->GetGeometry()), "LINESTRING (0 0, 10 10)");
    EXPECT_EQ(first->GetValue("NAME").ToString(), TLString("diagonal"));
    // What the caller does to its copy stays with the copy.
    first->SetGeometry(Wkt("POINT (0 0)"));
    EXPECT_EQ(WktOf(layer->GetFeature(1)->GetGeometry()), "LINESTRING (0 0, 10 10)");

    // Feature 2 was found but is gone before the walk reaches it.
    layer->layer_edit_buffer()->DeleteFeature(2, false, true);
    EXPECT_EQ(walk(cursor), Ids{4});
    EXPECT_FALSE(cursor->NextFeature());
    cursor->Reset();
    EXPECT_EQ(walk(cursor), (Ids{1, 4}));

    // The where clause on the id narrows the same search; no filter at all walks the layer.
    filter.SetWhereClause("FID = 4");
    EXPECT_EQ(walk(layer->Search(filter)), Ids{4});
    EXPECT_EQ(walk(layer->Search(TLQueryFilter())), (Ids{1, 3, 4, 5}));
}

TEST_F(SpatialTest, StandingFilterIsNarrowedByThePickEnvelope) {
    // The layer shows only what meets the part right of x = 6.8.
    TLQueryFilter standing;
    standing.SetFilterGeometry(box(6.8, -10, 40, 40));
    standing.SetSpatialRel(TLSpatialRelIntersects);
    layer->set_query_filter(standing);

    // The pick: a box of half size d around (6, 5), the way the pick tools make it.
    const double d = 1.5;
    TLRefPtr<TLGeometry> envelope = box(6 - d, 5 - d, 6 + d, 5 + d);
    TLQueryFilter pick = layer->query_filter();
    ASSERT_TRUE(pick.IsSpatialFilter());
    pick.SetFilterGeometry(pick.GetFilterGeometry()->Intersect(envelope.get(), d * 0.1));
    pick.SetSpatialRel(layer->query_filter().GetSpatialRel());
    ASSERT_TRUE(pick.GetFilterGeometry());

    // Line 1 crosses the pick box left of x = 6.5 only, outside the standing filter; line 2
    // crosses both.
    layer->ClearSelect(false);
    EXPECT_TRUE(layer->SelectFeatures(pick, 0, 0));
    EXPECT_EQ(layer->GetSelectedIds(), (Ids{2}));

    // Without a standing filter the same envelope picks both lines.
    TLQueryFilter plain;
    plain.SetFilterGeometry(envelope);
    plain.SetSpatialRel(TLSpatialRelIntersects);
    EXPECT_TRUE(layer->SelectFeatures(plain, 0, 0));
    EXPECT_EQ(layer->GetSelectedIds(), (Ids{1, 2}));
}

}  // namespace
}  // namespace TMObjects::testing
