#include <gtest/gtest.h>

#include <vector>

#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"

using namespace TMObjects;

namespace {

std::vector<double> rawOf(TLGeometry& g) {
    double* xy = nullptr;
    int count = 0;
    g.GetRawPoints(&xy, count);
    return std::vector<double>(xy, xy + 2 * count);
}

std::vector<int> segmentInfoOf(TLGeoPolyline& line) {
    std::vector<int> info(4 * std::size_t(line.GetSegmentInfo(nullptr)));
    line.GetSegmentInfo(info.data());
    return info;
}

}  // namespace

TEST(PolylineBuilder, PathsAndPointsGoWhereTheCallsSay) {
    TLGeoPolyline line;
    EXPECT_TRUE(line.IsEmpty());
    EXPECT_EQ(line.BeginPath(), 0);
    EXPECT_EQ(line.BeginSegment(), 0);
    EXPECT_EQ(line.AddXY(0, 0), 0);
    EXPECT_EQ(line.AddXY(1, 0), 1);
    EXPECT_EQ(line.BeginPath(), 1);
    EXPECT_EQ(line.BeginPath(), 2);  // an empty path, dropped by EndEntity
    double more[] = {5, 5, 6, 6, 7, 5};
    line.AddPoints(more, 3);
    EXPECT_EQ(line.GetPathCount(), 3);
    EXPECT_EQ(line.EndEntity(), 2);

    TLRefPtr<TLGeoPath> created = line.CreatePath(more, 2);
    ASSERT_TRUE(created);
    EXPECT_EQ(created->GetPointCount(), 2);
    EXPECT_EQ(line.GetPathCount(), 3);
    EXPECT_EQ(rawOf(line), (std::vector<double>{0, 0, 1, 0, 5, 5, 6, 6, 7, 5, 5, 5, 6, 6}));
    EXPECT_EQ(segmentInfoOf(line), (std::vector<int>{0, 2, 0, 1, 1, 3, 2, 4, 2, 2, 5, 6}));
    EXPECT_EQ(line.GetPath(1)->GetPoint(2), TLPoint(7, 5));
    EXPECT_FALSE(line.GetPath(3));
    EXPECT_FALSE(line.GetPath(-1));
    EXPECT_FALSE(line.GetPath(1)->GetPoint(3).Valid());

    // Without BeginPath the first point opens a path.
    TLGeoPolyline bare;
    double xy[] = {1, 2, 3, 4};
    EXPECT_TRUE(bare.AddRawPoints(xy, 2));
    EXPECT_FALSE(bare.AddRawPoints(nullptr, 2));
    EXPECT_EQ(bare.AddXY(5, 6), 2);
    EXPECT_EQ(bare.GetPathCount(), 1);
    bare.ClearPoints();
    EXPECT_TRUE(bare.IsEmpty());
    EXPECT_EQ(bare.GetPathCount(), 0);
    EXPECT_EQ(bare.GetSegmentInfo(nullptr), 0);
}

TEST(RawPoints, AreTheGeometrysOwnArrayAndPathViewsShareIt) {
    TLGeoPolyline line;
    line.BeginPath();
    line.AddXY(0, 0);
    line.AddXY(10, 0);
    line.BeginPath();
    line.AddXY(20, 0);
    line.AddXY(30, 5);
    line.EndEntity();

    double* xy = nullptr;
    int count = 0;
    ASSERT_TRUE(line.GetRawPoints(&xy, count));
    EXPECT_EQ(count, 4);
    xy[6] = 31;  // x of the last vertex, written in place
    EXPECT_EQ(line.GetPath(1)->GetPoint(1), TLPoint(31, 5));
    EXPECT_EQ(line.GetBound(), TLRect(0, 31, 0, 5));

    // A path view writes into the line, and outlives it.
    TLRefPtr<TLGeoPath> path = line.GetPath(1);
    double* pathXY = nullptr;
    int pathCount = 0;
    ASSERT_TRUE(path->GetRawPoints(&pathXY, pathCount));
    EXPECT_EQ(pathCount, 2);
    EXPECT_EQ(pathXY, xy + 4);
    pathXY[1] = -1;
    EXPECT_EQ(rawOf(line), (std::vector<double>{0, 0, 10, 0, 20, -1, 31, 5}));

    std::vector<double> moved = {1, 1, 2, 2, 3, 3, 4, 4};
    EXPECT_TRUE(line.UpdateRawPoints(moved.data()));
    EXPECT_EQ(rawOf(line), moved);
    EXPECT_FALSE(line.UpdateRawPoints(nullptr));

    // A clone is deep: its writes leave the original alone.
    TLRefPtr<TLGeometry> copy = line.Clone();
    double* copyXY = nullptr;
    copy->GetRawPoints(&copyXY, count);
    copyXY[0] = 100;
    EXPECT_EQ(rawOf(line)[0], 1);

    {
        TLRefPtr<TLGeoPolyline> owner(new TLGeoPolyline(line));
        path = owner->GetPath(0);
    }
    EXPECT_EQ(path->GetPoint(1), TLPoint(2, 2));

    TLGeoPolyline empty;
    xy = reinterpret_cast<double*>(&count);
    EXPECT_FALSE(empty.GetRawPoints(&xy, count));
    EXPECT_EQ(xy, nullptr);
    EXPECT_EQ(count, 0);
}

TEST(RawPoints, PointAndEnvelopeHandOutTheirCoordinates) {
    TLGeoPoint point;
    double* xy = nullptr;
    int count = -1;
    EXPECT_FALSE(point.GetRawPoints(&xy, count));
    EXPECT_EQ(count, 0);
    EXPECT_TRUE(point.GetBound().IsEmpty());
    point.PutCoords(3, 4);
    ASSERT_TRUE(point.GetRawPoints(&xy, count));
    EXPECT_EQ(count, 1);
    xy[1] = 7;
    EXPECT_EQ(point.GetY(), 7);
    const TLRect bound = point.GetBound();
    EXPECT_FALSE(bound.IsEmpty());
    EXPECT_EQ(bound.Width(), 0);

    TLGeoEnvelope envelope(5, 6, 1, 2);  // corners out of order
    double x0, y0, x1, y1;
    envelope.QueryCoords(&x0, &y0, &x1, &y1);
    EXPECT_EQ((std::vector<double>{x0, y0, x1, y1}), (std::vector<double>{1, 2, 5, 6}));
    ASSERT_TRUE(envelope.GetRawPoints(&xy, count));
    EXPECT_EQ(count, 2);
    double swapped[] = {9, 9, 0, 0};
    envelope.UpdateRawPoints(swapped);
    EXPECT_EQ(envelope.GetBound(), TLRect(0, 9, 0, 9));
    EXPECT_TRUE(TLGeoEnvelope(TLRect()).IsEmpty());
    EXPECT_FALSE(TLGeoEnvelope(TLRect(1, 1, 2, 2)).IsEmpty());
}

TEST(PolygonBuilder, EndEntityClosesRingsAndKeepsDegenerateOnes) {
    TLGeoPolygon polygon;
    EXPECT_EQ(polygon.BeginPath(), 0);
    EXPECT_EQ(polygon.BeginSegment(1), 0);
    polygon.AddXY(0, 0);
    polygon.AddXY(4, 0);
    polygon.AddXY(4, 4);
    polygon.AddXY(0, 4);
    polygon.BeginPath();
    polygon.BeginPath();  // empty: dropped
    polygon.BeginSegment(1);
    polygon.AddXY(10, 10);
    polygon.AddXY(11, 10);  // a two-point ring: the caller decides about it
    polygon.BeginPath();
    polygon.AddXY(20, 20);
    polygon.AddXY(21, 20);
    polygon.AddXY(21, 21);
    polygon.AddXY(20, 20);  // already closed
    EXPECT_EQ(polygon.EndEntity(), 3);

    std::vector<int> info(12);
    EXPECT_EQ(polygon.GetSegmentInfo(info.data()), 3);
    EXPECT_EQ(info, (std::vector<int>{0, 5, 0, 4, 1, 3, 5, 7, 2, 4, 8, 11}));
    EXPECT_EQ(polygon.GetRing(0)->GetPoint(4), TLPoint(0, 0));
    EXPECT_TRUE(polygon.GetRing(1)->IsClosed());
    EXPECT_FALSE(polygon.IsValid());  // the two-point ring

    TLGeoPolygon square;
    double ring[] = {0, 0, 0, 1, 1, 1, 1, 0};
    TLRefPtr<TLGeoRing> view = square.CreateRing(ring, 4);
    EXPECT_FALSE(view->IsClosed());
    EXPECT_EQ(square.EndEntity(), 1);
    EXPECT_TRUE(view->IsClosed());
    EXPECT_EQ(view->GetPointCount(), 5);
    EXPECT_TRUE(square.IsValid());
}

TEST(ZValues, RunParallelToThePointsThroughEveryChange) {
    TLGeoPolyline line;
    bool hasZ = true;
    EXPECT_TRUE(line.get_HasZ(&hasZ));
    EXPECT_FALSE(hasZ);
    EXPECT_FALSE(line.get_HasZ(nullptr));
    line.AddXY(0, 0);
    line.AddXY(1, 0);
    double* z = nullptr;
    int count = 0;
    EXPECT_FALSE(line.GetRawPointsZValue(&z, count));

    double zs[] = {5, 6};
    EXPECT_FALSE(line.SetRawPointsZValue(zs, 3));
    EXPECT_TRUE(line.SetRawPointsZValue(zs, 2));
    line.get_HasZ(&hasZ);
    EXPECT_TRUE(hasZ);
    line.AddXY(2, 0);  // a new vertex gets Z = 0
    ASSERT_TRUE(line.GetRawPointsZValue(&z, count));
    EXPECT_EQ(std::vector<double>(z, z + count), (std::vector<double>{5, 6, 0}));
    z[2] = 7;
    double* pathZ = nullptr;
    line.GetPath(0)->GetRawPointsZValue(&pathZ, count);
    EXPECT_EQ(pathZ[2], 7);

    line.Put_Z(9);
    line.GetRawPointsZValue(&z, count);
    EXPECT_EQ(std::vector<double>(z, z + count), (std::vector<double>{9, 9, 9}));
    line.put_HasZ(false);
    EXPECT_FALSE(line.GetRawPointsZValue(&z, count));

    // Closing a ring carries the first Z, Forward reverses Z with the points.
    TLGeoPolygon polygon;
    polygon.put_HasZ(true);
    polygon.AddXY(0, 0);
    polygon.AddXY(0, 1);
    polygon.AddXY(1, 1);
    polygon.GetRawPointsZValue(&z, count);
    z[0] = 1, z[1] = 2, z[2] = 3;
    polygon.EndEntity();
    polygon.Forward();
    polygon.GetRawPointsZValue(&z, count);
    EXPECT_EQ(std::vector<double>(z, z + count), (std::vector<double>{1, 3, 2, 1}));

    TLGeoPoint point(1, 2);
    point.Put_Z(3);
    double x, y, pz;
    point.QueryCoordsXYZ(&x, &y, &pz);
    EXPECT_EQ((std::vector<double>{x, y, pz}), (std::vector<double>{1, 2, 3}));
    point.get_HasZ(&hasZ);
    EXPECT_TRUE(hasZ);
}
