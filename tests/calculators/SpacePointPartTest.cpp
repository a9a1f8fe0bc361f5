#include <gtest/gtest.h>

#include <vector>

#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLRubberBand.h"

using TMObjects::TLDrawCommonTool;
using TMObjects::TLPoint;
using TMObjects::TLRubberBand;

// A line of two parts keeps all vertices in one list; the corner must take its direction from
// the part being drawn, never from the jump between the parts.
TEST(SpacePoint, TakesItsDirectionFromTheBandsLastPartOnly) {
    TLRubberBand band(nullptr, TLRubberBand::LineBand);
    std::vector<TLPoint> points{TLPoint(0, 0), TLPoint(10, 0), TLPoint(20, 20)};
    band.AddPoint(points[0], 0);
    band.AddPoint(points[1], -1);
    band.AddPoint(points[2], band.GetGeometryCount());

    double ox = 99, oy = 99;
    EXPECT_FALSE(TLDrawCommonTool::CalculateSpacePoint(&band, points, 25, 35, ox, oy));
    EXPECT_EQ(ox, 99.0);

    points.emplace_back(20, 30);
    band.AddPoint(points.back(), -1);
    ASSERT_TRUE(TLDrawCommonTool::CalculateSpacePoint(&band, points, 25, 35, ox, oy));
    EXPECT_EQ(ox, 25.0);
    EXPECT_EQ(oy, 30.0);
}
