#include <gtest/gtest.h>

#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"

using namespace TMObjects;

namespace {

// Two paths: raw 0..2 along y = 0, raw 3..4 along y = 10.
TLGeoPolyline twoPathLine() {
    TLGeoPolyline line;
    line.BeginPath();
    line.AddXY(0, 0);
    line.AddXY(10, 0);
    line.AddXY(20, 0);
    line.BeginPath();
    line.AddXY(0, 10);
    line.AddXY(20, 10);
    line.EndEntity();
    return line;
}

struct Hit {
    bool found;
    int part;
    int vertex;
    bool operator==(const Hit& o) const {
        return found == o.found && part == o.part && vertex == o.vertex;
    }
};

std::ostream& operator<<(std::ostream& os, const Hit& h) {
    return os << h.found << " part " << h.part << " vertex " << h.vertex;
}

Hit hit(TLGeometry& g, double x, double y, double tolerance, GeoHitPartType type) {
    Hit h{false, 99, 99};
    h.found = g.HitTest(TLPoint(x, y), tolerance, type, h.part, h.vertex);
    return h;
}

}  // namespace

TEST(HitTest, VertexAndBoundaryAnswerRawIndexesAcrossParts) {
    TLGeoPolyline line = twoPathLine();
    // On the second path, nearer to its end vertex (raw 4) than its start (raw 3).
    EXPECT_EQ(hit(line, 19, 9.5, 2, GeoHitVertex), (Hit{true, 1, 4}));
    EXPECT_EQ(hit(line, 15, 9.5, 1, GeoHitBoundary), (Hit{true, 1, 3}));
    // Between two vertices of the first path: no vertex within reach, the segment 1-2 is.
    EXPECT_EQ(hit(line, 15, 0.5, 1, GeoHitVertex), (Hit{false, -1, -1}));
    EXPECT_EQ(hit(line, 15, 0.5, 1, GeoHitBoundary), (Hit{true, 0, 1}));
    // The nearest candidate wins over an earlier one that is also within reach.
    EXPECT_EQ(hit(line, 10, 6, 5, GeoHitBoundary), (Hit{true, 1, 3}));
    EXPECT_EQ(hit(line, 10, 4, 5, GeoHitBoundary), (Hit{true, 0, 0}));
    // A shared vertex: the lower raw index wins the tie.
    EXPECT_EQ(hit(line, 10, 0, 1, GeoHitBoundary), (Hit{true, 0, 0}));
    // The tolerance is inclusive; nothing beyond it, and a none type finds nothing.
    EXPECT_EQ(hit(line, 20, 12, 2, GeoHitVertex), (Hit{true, 1, 4}));
    EXPECT_EQ(hit(line, 20, 12.001, 2, GeoHitVertex), (Hit{false, -1, -1}));
    EXPECT_EQ(hit(line, 20, 10, 2, GeoHitNone), (Hit{false, -1, -1}));
    EXPECT_EQ(hit(line, 20, 10, -1, GeoHitVertex), (Hit{false, -1, -1}));
}

TEST(HitTest, PolygonRingsEnvelopesAndPoints) {
    TLGeoPolygon polygon;
    double outer[] = {0, 0, 10, 0, 10, 10, 0, 10};
    double hole[] = {4, 4, 6, 4, 6, 6, 4, 6};
    polygon.CreateRing(outer, 4);  // left open: the closing edge still counts
    EXPECT_EQ(hit(polygon, 0.2, 5, 0.5, GeoHitBoundary), (Hit{true, 0, 3}));
    polygon.CreateRing(hole, 4);
    polygon.EndEntity();  // outer raw 0..4, hole raw 5..9
    EXPECT_EQ(hit(polygon, 0.2, 5, 0.5, GeoHitBoundary), (Hit{true, 0, 3}));
    EXPECT_EQ(hit(polygon, 5, 6.1, 0.5, GeoHitBoundary), (Hit{true, 1, 7}));
    // The closing vertex repeats the first: the first raw index is answered.
    EXPECT_EQ(hit(polygon, 0, 0, 0.5, GeoHitVertex), (Hit{true, 0, 0}));
    EXPECT_EQ(hit(polygon, 4.1, 4.1, 0.5, GeoHitVertex), (Hit{true, 1, 5}));

    TLGeoEnvelope envelope(0, 0, 2, 1);
    EXPECT_EQ(hit(envelope, 2, 1, 0.1, GeoHitVertex), (Hit{true, 0, 2}));
    EXPECT_EQ(hit(envelope, 0, 0.5, 0.1, GeoHitBoundary), (Hit{true, 0, 3}));

    TLGeoPoint point(3, 3);
    EXPECT_EQ(hit(point, 3, 3.5, 0.5, GeoHitVertex), (Hit{true, 0, 0}));
    EXPECT_EQ(hit(point, 3, 3.5, 0.5, GeoHitBoundary), (Hit{true, 0, 0}));
    TLGeoPoint empty;
    EXPECT_EQ(hit(empty, 0, 0, 10, GeoHitVertex), (Hit{false, -1, -1}));
}
