#include <gtest/gtest.h>

#include <cmath>

#include "edit/TLExtensionGeometry.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlgeo/TLGeometryWkt.h"

using namespace TMObjects;

namespace {

struct Cross {
    TLPoint out{-99, -99};
    int found = 0;
};

Cross cross(TLPoint p1, TLPoint p2, TLPoint q1, TLPoint q2, int preset = 0) {
    Cross c;
    c.found = preset;
    crossSegment(p1, p2, q1, q2, c.out, c.found);
    return c;
}

}  // namespace

TEST(CrossSegment, VerticalTargetTestsItsOwnSpan) {
    Cross on = cross({5, 0}, {5, 10}, {0, 0}, {1, 1});
    EXPECT_EQ(on.found, 1);
    EXPECT_EQ(on.out.x, 5);
    EXPECT_EQ(on.out.y, 5);
    Cross off = cross({5, 0}, {5, 10}, {0, 20}, {1, 21}, 1);
    EXPECT_EQ(off.found, 0);
    EXPECT_EQ(off.out.y, 25);
    Cross flat = cross({5, 0}, {5, 10}, {0, 3}, {1, 3});
    EXPECT_EQ(flat.found, 1);
    EXPECT_EQ(flat.out.y, 3);
}

TEST(CrossSegment, TwoVerticalLinesNeverMeetAndLeaveOutAlone) {
    Cross c = cross({5, 0}, {5, 10}, {6, 0}, {6, 1}, 1);
    EXPECT_EQ(c.found, 0);
    EXPECT_EQ(c.out.x, -99);
}

// A vertical prolongation is tested against the span of q, not of p: found outside q or on its
// ends, wherever the point lies on p's line.
TEST(CrossSegment, VerticalProlongationTestsTheSpanOfQ) {
    Cross outsideQ = cross({0, 0}, {10, 0}, {5, 1}, {5, 2});
    EXPECT_EQ(outsideQ.found, 1);
    EXPECT_EQ(outsideQ.out.x, 5);
    EXPECT_EQ(outsideQ.out.y, 0);
    EXPECT_EQ(cross({0, 0}, {10, 0}, {5, -1}, {5, 1}, 1).found, 0);
    Cross beyondP = cross({0, 0}, {10, 0}, {20, 1}, {20, 2});
    EXPECT_EQ(beyondP.found, 1);
    EXPECT_EQ(beyondP.out.x, 20);
    Cross sloped = cross({0, 0}, {10, 5}, {4, 7}, {4, 8});
    EXPECT_EQ(sloped.out.y, 2);
    EXPECT_EQ(sloped.found, 1);
}

TEST(CrossSegment, SlopingLines) {
    EXPECT_EQ(cross({0, 0}, {10, 10}, {0, 1}, {1, 2}, 1).found, 0);  // parallel
    EXPECT_EQ(cross({0, 0}, {10, 0}, {0, 1}, {1, 1}, 1).found, 0);   // both level

    Cross level = cross({0, 0}, {10, 0}, {0, -5}, {1, -4});
    EXPECT_EQ(level.found, 1);
    EXPECT_EQ(level.out.x, 5);
    EXPECT_EQ(level.out.y, 0);

    Cross levelQ = cross({0, 0}, {10, 10}, {0, 5}, {1, 5});
    EXPECT_EQ(levelQ.found, 1);
    EXPECT_EQ(levelQ.out.x, 5);
    EXPECT_EQ(levelQ.out.y, 5);

    Cross general = cross({0, 0}, {10, 10}, {0, 10}, {10, 0});
    EXPECT_EQ(general.found, 1);
    EXPECT_EQ(general.out.x, 5);
    EXPECT_EQ(general.out.y, 5);

    // Off the segment the caller's preset stays.
    Cross off = cross({0, 0}, {1, 1}, {0, 10}, {10, 0}, 7);
    EXPECT_EQ(off.found, 7);
    EXPECT_EQ(off.out.x, 5);
}

TEST(PointBeyond, RunsOnFromB) {
    TLPoint p;
    pointBeyond({0, 0}, {0, 10}, 5, p);
    EXPECT_EQ(p.x, 0);
    EXPECT_EQ(p.y, 15);
    pointBeyond({0, 10}, {0, 0}, 5, p);
    EXPECT_EQ(p.y, -5);
    pointBeyond({10, 0}, {0, 0}, 5, p);
    EXPECT_EQ(p.x, -5);
    EXPECT_EQ(p.y, 0);
    pointBeyond({0, 0}, {3, 4}, 5, p);
    EXPECT_DOUBLE_EQ(p.x, 6);
    EXPECT_DOUBLE_EQ(p.y, 8);
    pointBeyond({3, 4}, {0, 0}, 5, p);
    EXPECT_DOUBLE_EQ(p.x, -3);
    EXPECT_DOUBLE_EQ(p.y, -4);
}

TEST(PointBeyond, EqualPointsGiveNotANumber) {
    TLPoint p;
    pointBeyond({2, 2}, {2, 2}, 5, p);
    EXPECT_EQ(p.x, 2);
    EXPECT_TRUE(std::isnan(p.y));
}

TEST(ExtendedLine, PutsThePointBeforeTheFirstOrAfterTheLastPath) {
    TLRefPtr<TLGeometry> line =
        TLGeometryWkt::FromWkt("MULTILINESTRING Z ((0 0 1, 1 0 1), (2 0 1, 3 0 1))");
    auto* polyline = static_cast<TLGeoPolyline*>(line.get());
    EXPECT_EQ(TLGeometryWkt::ToWkt(extendedLine(polyline, {-1, 0}, true).get()),
              "MULTILINESTRING ((-1 0, 0 0, 1 0), (2 0, 3 0))");
    EXPECT_EQ(TLGeometryWkt::ToWkt(extendedLine(polyline, {4, 0}, false).get()),
              "MULTILINESTRING ((0 0, 1 0), (2 0, 3 0, 4 0))");
}
