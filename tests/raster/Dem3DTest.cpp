// Surface areas over polygons from a height grid, against what they must be: the plane area on
// flat ground, the plane area times sqrt(1 + a² + b²) on a tilted plane, less the triangles of a
// cell without height.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "tlanalysis/TLDem3D.h"

namespace TMObjects {
namespace {

// A grid of `columns` x `rows` cells of `cell` metres from (0, 0), first row at the bottom, of
// heights z(x, y) at the cell centres.
template <class Height>
std::vector<double> grid(int columns, int rows, double cell, Height z) {
    std::vector<double> heights(std::size_t(columns) * rows);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c)
            heights[std::size_t(r) * columns + c] = z((c + 0.5) * cell, (r + 0.5) * cell);
    return heights;
}

double shoelace(const std::vector<TLPoint>& ring) {
    double twice = 0.0;
    for (std::size_t i = 0; i + 1 < ring.size(); ++i)
        twice += ring[i].x * ring[i + 1].y - ring[i + 1].x * ring[i].y;
    return std::fabs(twice) / 2;
}

// A concave ring with edges at every angle, inside the cell centres of a 100 x 80 grid of 2 m.
const std::vector<TLPoint> kRing = {{3.3, 4.1},      {150.7, 2.9},  {190.2, 60.35}, {120.0, 40.0},
                                    {110.55, 150.9}, {40.4, 157.1}, {60.0, 80.0},   {3.3, 4.1}};

TEST(Dem3D, APlaneTiltedGivesThePlaneAreaTimesItsSecant) {
    const double a = 0.3, b = -0.2;
    const std::vector<double> heights =
        grid(100, 80, 2.0, [&](double x, double y) { return 50 + a * x + b * y; });
    TLDem3D dem;
    ASSERT_TRUE(dem.GridDataTo3D(heights.data(), 80, 100, 0, 200, 0, 160, 0, 0));
    const double expected = shoelace(kRing) * std::sqrt(1 + a * a + b * b);
    EXPECT_NEAR(dem.ProjectedArea(kRing) / expected, 1.0, 1e-9);
    // The ring's orientation and its closing point do not count.
    std::vector<TLPoint> reversed(kRing.rbegin(), kRing.rend() - 1);
    EXPECT_NEAR(dem.ProjectedArea(reversed) / expected, 1.0, 1e-9);
}

TEST(Dem3D, FlatGroundGivesThePlaneArea) {
    const std::vector<double> heights = grid(100, 80, 2.0, [](double, double) { return 7.0; });
    TLDem3D dem;
    ASSERT_TRUE(dem.GridDataTo3D(heights.data(), 80, 100, 0, 200, 0, 160, 7, 7));
    EXPECT_NEAR(dem.ProjectedArea(kRing), shoelace(kRing), 1e-9 * shoelace(kRing));
    // Up to the grid's border, where the outer cells' heights reach out.
    const std::vector<TLPoint> whole = {{0, 0}, {200, 0}, {200, 160}, {0, 160}};
    EXPECT_NEAR(dem.ProjectedArea(whole), 200.0 * 160.0, 1e-6);
}

TEST(Dem3D, ACellWithoutHeightDropsTheSixTrianglesAroundIt) {
    std::vector<double> heights = grid(10, 10, 1.0, [](double, double) { return 0.0; });
    heights[5 * 10 + 4] = TLDem3D::NoHeight;
    TLDem3D dem;
    ASSERT_TRUE(dem.GridDataTo3D(heights.data(), 10, 10, 0, 10, 0, 10, 0, 0));
    const std::vector<TLPoint> square = {{1, 1}, {9, 1}, {9, 9}, {1, 9}};
    EXPECT_NEAR(dem.ProjectedArea(square), 64.0 - 3.0, 1e-9);
    // NaN is no height either.
    heights[5 * 10 + 4] = std::nan("");
    ASSERT_TRUE(dem.GridDataTo3D(heights.data(), 10, 10, 0, 10, 0, 10, 0, 0));
    EXPECT_NEAR(dem.ProjectedArea(square), 61.0, 1e-9);
}

TEST(Dem3D, ACutThroughATriangleCountsWithItsOwnSlope) {
    // One square of nodes: heights 0 at the bottom, 1 at the top over 1 m: every triangle has
    // the secant sqrt(2). The polygon is the lower-right half of the middle square.
    const std::vector<double> heights = {0, 0, 1, 1};
    TLDem3D dem;
    ASSERT_TRUE(dem.GridDataTo3D(heights.data(), 2, 2, 0, 2, 0, 2, 0, 1));
    const std::vector<TLPoint> half = {{0.5, 0.5}, {1.5, 0.5}, {1.5, 1.5}};
    EXPECT_NEAR(dem.ProjectedArea(half), 0.5 * std::sqrt(2.0), 1e-12);
}

TEST(Dem3D, RingsWithoutAreaOrOffTheGridMeasureNothing) {
    const std::vector<double> heights = grid(4, 4, 1.0, [](double x, double) { return x; });
    TLDem3D dem;
    EXPECT_EQ(dem.ProjectedArea(kRing), 0.0) << "no grid yet";
    EXPECT_FALSE(dem.GridDataTo3D(heights.data(), 0, 4, 0, 4, 0, 4, 0, 0));
    ASSERT_TRUE(dem.GridDataTo3D(heights.data(), 4, 4, 0, 4, 0, 4, 0.5, 3.5));
    EXPECT_EQ(dem.GetMinZ(), 0.5);
    EXPECT_EQ(dem.GetMaxZ(), 3.5);
    EXPECT_EQ(dem.ProjectedArea({{1, 1}, {2, 2}}), 0.0);
    EXPECT_EQ(dem.ProjectedArea({{1, 1}, {2, 2}, {1, 1}}), 0.0);
    EXPECT_EQ(dem.ProjectedArea({{10, 10}, {12, 10}, {12, 12}}), 0.0);
    // A ring that crosses itself measures the two parts it encloses.
    const double bowtie = dem.ProjectedArea({{1, 1}, {1, 3}, {3, 1}, {3, 3}});
    EXPECT_NEAR(bowtie, 2.0 * std::sqrt(2.0), 1e-9);
}

TEST(Dem3D, TheBoxOfAPolygon) {
    double minX, minY, maxX, maxY;
    TLDem3D::getPolygonBox(kRing, minX, minY, maxX, maxY);
    EXPECT_EQ(minX, 3.3);
    EXPECT_EQ(minY, 2.9);
    EXPECT_EQ(maxX, 190.2);
    EXPECT_EQ(maxY, 157.1);
    TLDem3D::getPolygonBox({}, minX, minY, maxX, maxY);
    EXPECT_EQ(minX + minY + maxX + maxY, 0.0);
}

}  // namespace
}  // namespace TMObjects
