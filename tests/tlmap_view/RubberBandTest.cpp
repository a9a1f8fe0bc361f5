#include <stdexcept>

#include "ViewFixture.h"
#include "tlmap/TLRubberBand.h"

namespace TMObjects {
namespace {

using Paths = std::vector<std::vector<std::pair<double, double>>>;

class RubberBand : public ViewFixture {};

TEST_F(RubberBand, PartsOpenOnlyAtTheirCountAndMissingOnesThrow) {
    TLRubberBand band(view.get(), TLRubberBand::LineBand);
    EXPECT_EQ(band.GetGeometryCount(), 0);
    EXPECT_EQ(band.GetPointCount(-1), 0);
    EXPECT_THROW(band.GetPoint(0, -1), std::out_of_range);
    EXPECT_THROW(band.RemoveLastPoint(-1), std::out_of_range);
    EXPECT_THROW(band.AddPoint(TLPoint(9, 9), 1), std::out_of_range);

    band.AddPoint(TLPoint(1, 1), -1);  // -1 on an empty band starts part 0
    band.AddPoint(TLPoint(2, 2), 0);
    band.AddPoint(TLPoint(3, 3), band.GetGeometryCount());
    band.AddPoint(TLPoint(4, 4), -1);
    EXPECT_EQ(band.GetGeometryCount(), 2);
    EXPECT_EQ(band.GetPointCount(0), 2);
    EXPECT_EQ(band.GetPointCount(-1), 2);
    EXPECT_EQ(band.GetPointCount(7), 0);
    EXPECT_EQ(band.GetCount(), 4);
    EXPECT_EQ(band.GetPoint(1, 0), TLPoint(2, 2));
    EXPECT_EQ(band.GetPoint(0, -1), TLPoint(3, 3));

    EXPECT_THROW(band.AddPoint(TLPoint(9, 9), 3), std::out_of_range);
    EXPECT_THROW(band.AddPoint(TLPoint(9, 9), -2), std::out_of_range);
    EXPECT_THROW(band.GetPoint(2, 0), std::out_of_range);
    EXPECT_THROW(band.GetPoint(-1, 0), std::out_of_range);
    EXPECT_THROW(band.GetPoint(0, 2), std::out_of_range);
    EXPECT_EQ(band.GetCount(), 4);  // a refused point is not added anywhere

    // Emptying part 0 keeps it, so that part 1 keeps its index.
    EXPECT_EQ(band.RemoveLastPoint(0), TLPoint(2, 2));
    EXPECT_EQ(band.RemoveLastPoint(0), TLPoint(1, 1));
    EXPECT_THROW(band.RemoveLastPoint(0), std::out_of_range);
    EXPECT_THROW(band.RemoveLastPoint(2), std::out_of_range);
    EXPECT_EQ(band.GetGeometryCount(), 2);
    EXPECT_EQ(band.GetPoint(1, 1), TLPoint(4, 4));
}

TEST_F(RubberBand, ResetSetsTheTypeAndClearKeepsIt) {
    TLRubberBand band(view.get(), TLRubberBand::LineBand);
    band.AddPoint(TLPoint(1, 1), -1);
    band.Reset(TLRubberBand::PolygonBand);
    EXPECT_EQ(band.GetType(), TLRubberBand::PolygonBand);
    EXPECT_EQ(band.GetGeometryCount(), 0);
    band.AddPoint(TLPoint(1, 1), 0);
    band.AddPoint(TLPoint(2, 2), 1);
    band.Clear();
    EXPECT_EQ(band.GetType(), TLRubberBand::PolygonBand);
    EXPECT_EQ(band.GetGeometryCount(), 0);
    EXPECT_EQ(band.GetCount(), 0);
}

TEST_F(RubberBand, AsGeometryFollowsTheBandTypeAndSkipsShortParts) {
    TLRubberBand band(view.get(), TLRubberBand::LineBand);
    EXPECT_FALSE(band.AsGeometry());
    band.AddPoint(TLPoint(5, 5), 0);
    EXPECT_FALSE(band.AsGeometry()) << "one point makes no line";

    band.AddPoint(TLPoint(6, 5), 0);
    band.AddPoint(TLPoint(0, 0), 1);  // a part of one point
    band.AddPoint(TLPoint(10, 0), 2);
    band.AddPoint(TLPoint(10, 10), 2);
    band.AddPoint(TLPoint(20, 10), 2);
    TLRefPtr<TLGeometry> line = band.AsGeometry();
    ASSERT_TRUE(line);
    EXPECT_EQ(line->GetType(), TLGeometry::GeoPolyline);
    EXPECT_EQ(pathsOf(line.get()), (Paths{{{5, 5}, {6, 5}}, {{10, 0}, {10, 10}, {20, 10}}}));

    band.Reset(TLRubberBand::PolygonBand);
    band.AddPoint(TLPoint(0, 0), 0);
    band.AddPoint(TLPoint(4, 0), 0);
    band.AddPoint(TLPoint(0, 0), 0);  // closed, but only two corners
    EXPECT_FALSE(band.AsGeometry());
    band.AddPoint(TLPoint(10, 0), 1);
    band.AddPoint(TLPoint(14, 0), 1);
    band.AddPoint(TLPoint(14, 3), 1);
    band.AddPoint(TLPoint(20, 0), 2);
    band.AddPoint(TLPoint(24, 0), 2);
    band.AddPoint(TLPoint(24, 3), 2);
    band.AddPoint(TLPoint(20, 3), 2);
    band.AddPoint(TLPoint(20, 0), 2);
    TLRefPtr<TLGeometry> polygon = band.AsGeometry();
    ASSERT_TRUE(polygon);
    EXPECT_EQ(polygon->GetType(), TLGeometry::GeoPolygon);
    EXPECT_EQ(pathsOf(polygon.get()), (Paths{{{10, 0}, {14, 0}, {14, 3}, {10, 0}},
                                             {{20, 0}, {24, 0}, {24, 3}, {20, 3}, {20, 0}}}));
    EXPECT_DOUBLE_EQ(polygon->GetArea(), 6 + 12);

    // A point band gives its last point, whichever part holds it.
    band.Reset(TLRubberBand::PointBand);
    band.AddPoint(TLPoint(1, 2), 0);
    band.AddPoint(TLPoint(3, 4), 1);
    band.AddPoint(TLPoint(5, 6), 1);
    TLRefPtr<TLGeometry> point = band.AsGeometry();
    ASSERT_TRUE(point);
    EXPECT_EQ(pathsOf(point.get()), (Paths{{{5, 6}}}));

    band.Reset(TLRubberBand::ImageBand);
    band.AddPoint(TLPoint(1, 2), 0);
    EXPECT_FALSE(band.AsGeometry());
}

TEST_F(RubberBand, ClosePointsRepeatsTheFirstPointOnce) {
    TLRubberBand band(view.get(), TLRubberBand::PolygonBand);
    band.ClosePoints(true, -1);  // nothing to close: no failure, no repaint
    EXPECT_EQ(band.UpdateCount(), 0);

    band.AddPoint(TLPoint(0, 0), 0);
    band.AddPoint(TLPoint(1, 0), 0);
    band.AddPoint(TLPoint(1, 1), 0);
    band.AddPoint(TLPoint(5, 5), 1);
    band.AddPoint(TLPoint(6, 5), 1);
    band.AddPoint(TLPoint(6, 6), 1);
    band.ClosePoints(false, -1);
    EXPECT_EQ(band.GetPointCount(1), 4);
    EXPECT_EQ(band.GetPoint(3, 1), TLPoint(5, 5));
    EXPECT_EQ(band.GetPointCount(0), 3);
    EXPECT_EQ(band.UpdateCount(), 0);

    band.ClosePoints(true, -2);
    EXPECT_EQ(band.GetPointCount(0), 4);
    EXPECT_EQ(band.GetPointCount(1), 4) << "a closed part is not closed twice";
    EXPECT_EQ(band.UpdateCount(), 1);
    band.ClosePoints(true, 5);
    EXPECT_EQ(band.GetCount(), 8);
    EXPECT_EQ(pathsOf(band.AsGeometry().get()).front().back(), std::make_pair(0.0, 0.0));
}

TEST_F(RubberBand, RegistersWithItsViewAndAsksForOverlayRepaints) {
    auto* band = new TLRubberBand(view.get(), TLRubberBand::LineBand);
    ASSERT_EQ(view->RubberBands(), std::vector<TLRubberBand*>{band});
    band->Update();
    band->Update();
    EXPECT_EQ(band->UpdateCount(), 2);
    EXPECT_EQ(listener.count(RecordingListener::RefreshOverlay), 2);
    delete band;
    EXPECT_TRUE(view->RubberBands().empty());

    // A band that outlives its view stays usable.
    TLRubberBand survivor(view.get(), TLRubberBand::LineBand);
    view.reset();
    EXPECT_EQ(survivor.View(), nullptr);
    survivor.AddPoint(TLPoint(1, 1), -1);
    survivor.Update();
    EXPECT_EQ(survivor.UpdateCount(), 1);
}

TEST_F(RubberBand, RotateCoordTurnsEveryPartAboutTheCentre) {
    TLRubberBand band(view.get(), TLRubberBand::LineBand);
    band.AddPoint(TLPoint(2, 1), 0);
    band.AddPoint(TLPoint(1, 3), 1);
    band.RotateCoord(1, 1, 90, false);
    EXPECT_NEAR(band.GetPoint(0, 0).x, 1, 1e-12);
    EXPECT_NEAR(band.GetPoint(0, 0).y, 2, 1e-12);
    band.RotateCoord(1, 1, M_PI / 2, true);
    EXPECT_NEAR(band.GetPoint(0, 0).x, 0, 1e-12);
    EXPECT_NEAR(band.GetPoint(0, 0).y, 1, 1e-12);
    EXPECT_NEAR(band.GetPoint(0, 1).x, 1, 1e-12);
    EXPECT_NEAR(band.GetPoint(0, 1).y, -1, 1e-12);
}

}  // namespace
}  // namespace TMObjects
