#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <set>
#include <tuple>
#include <vector>

#include "DataTestSupport.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlsde/TLPackedRTree.h"
#include "tlsde/TLSpatialIndex.h"

namespace TMObjects::testing {
namespace {

// Every vertex and segment of a table, read straight from the geometries: the answer the index
// must give without scanning.
struct Brute {
    struct Seg {
        int id;
        int start;
        TLPoint a;
        TLPoint b;
    };
    std::vector<Seg> segments;
    std::vector<std::tuple<int, int, TLPoint>> vertices;

    explicit Brute(const TLFeatureTable& table) {
        for (int id : table.GetIds()) {
            TLGeometry* g = table.PeekFeature(id)->GetGeometry().get();
            const TLPartList* parts = nullptr;
            if (auto* l = dynamic_cast<TLGeoPolyline*>(g)) parts = &l->Parts();
            if (auto* p = dynamic_cast<TLGeoPolygon*>(g)) parts = &p->Parts();
            if (auto* pt = dynamic_cast<TLGeoPoint*>(g)) {
                const TLPoint v(pt->GetX(), pt->GetY());
                vertices.emplace_back(id, 0, v);
                segments.push_back({id, 0, v, v});
                continue;
            }
            for (int part = 0; part < parts->PartCount(); ++part) {
                const int first = parts->PartStart(part);
                const int n = parts->PartSize(part);
                for (int i = first; i < first + n; ++i) {
                    vertices.emplace_back(id, i, parts->Point(i));
                    if (n == 1) segments.push_back({id, i, parts->Point(i), parts->Point(i)});
                    if (i + 1 < first + n)
                        segments.push_back({id, i, parts->Point(i), parts->Point(i + 1)});
                }
            }
        }
    }

    static double SegmentDistance(const TLPoint& p, const TLPoint& a, const TLPoint& b) {
        const double vx = b.x - a.x, vy = b.y - a.y;
        const double wx = p.x - a.x, wy = p.y - a.y;
        const double c1 = vx * wx + vy * wy;
        if (c1 <= 0) return std::hypot(wx, wy);
        const double c2 = vx * vx + vy * vy;
        if (c2 <= c1) return std::hypot(p.x - b.x, p.y - b.y);
        const double t = c1 / c2;
        return std::hypot(p.x - (a.x + t * vx), p.y - (a.y + t * vy));
    }

    double NearestVertex(const TLPoint& p) const {
        double best = std::numeric_limits<double>::infinity();
        for (const auto& [id, index, v] : vertices)
            best = std::min(best, std::hypot(p.x - v.x, p.y - v.y));
        return best;
    }

    double NearestSegment(const TLPoint& p) const {
        double best = std::numeric_limits<double>::infinity();
        for (const Seg& s : segments) best = std::min(best, SegmentDistance(p, s.a, s.b));
        return best;
    }

    // Liang-Barsky: whether segment a-b has a point in the closed rectangle.
    static bool Meets(const Seg& s, const TLRect& r) {
        double t0 = 0, t1 = 1;
        const double dx = s.b.x - s.a.x, dy = s.b.y - s.a.y;
        const double p[4] = {-dx, dx, -dy, dy};
        const double q[4] = {s.a.x - r.XMinimum(), r.XMaximum() - s.a.x, s.a.y - r.YMinimum(),
                             r.YMaximum() - s.a.y};
        for (int i = 0; i < 4; ++i) {
            if (p[i] == 0) {
                if (q[i] < 0) return false;
                continue;
            }
            const double t = q[i] / p[i];
            if (p[i] < 0)
                t0 = std::max(t0, t);
            else
                t1 = std::min(t1, t);
        }
        return t0 <= t1;
    }
};

class IndexTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (int i = 0; i < 180; ++i) table.Insert(line());
        for (int i = 0; i < 30; ++i) table.Insert(polygon());
        for (int i = 0; i < 100; ++i) table.Insert(point());
    }

    double uniform(double lo, double hi) {
        return std::uniform_real_distribution<double>(lo, hi)(rng);
    }

    TLFeature line() {
        TLRefPtr<TLGeoPolyline> g(new TLGeoPolyline());
        const int paths = uniform(0, 1) < 0.2 ? 2 : 1;
        for (int p = 0; p < paths; ++p) {
            g->BeginPath();
            double x = uniform(0, 1000), y = uniform(0, 1000);
            const int n = int(uniform(2, 16));
            for (int i = 0; i < n; ++i) {
                g->AddXY(x, y);
                x += uniform(-30, 30);
                y += uniform(-30, 30);
            }
        }
        g->EndEntity();
        TLFeature f;
        f.SetGeometry(TLRefPtr<TLGeometry>(g));
        return f;
    }

    TLFeature polygon() {
        TLRefPtr<TLGeoPolygon> g(new TLGeoPolygon());
        const double x = uniform(0, 950), y = uniform(0, 950), w = uniform(5, 50),
                     h = uniform(5, 50);
        g->BeginPath();
        g->BeginSegment(1);
        g->AddXY(x, y);
        g->AddXY(x + w, y);
        g->AddXY(x + w * 0.5, y + h);
        g->EndEntity();
        TLFeature f;
        f.SetGeometry(TLRefPtr<TLGeometry>(g));
        return f;
    }

    TLFeature point() {
        TLFeature f;
        f.SetGeometry(TLRefPtr<TLGeometry>(new TLGeoPoint(uniform(0, 1000), uniform(0, 1000))));
        return f;
    }

    // The geometry's own vertex at a raw index, to check what the index reports.
    TLPoint Vertex(int id, int raw) {
        double* xy = nullptr;
        int count = 0;
        EXPECT_TRUE(table.PeekFeature(id)->GetGeometry()->GetRawPoints(&xy, count));
        EXPECT_LT(raw, count);
        return TLPoint(xy[2 * raw], xy[2 * raw + 1]);
    }

    void ExpectAgreesWithBruteForce(int queries) {
        const Brute brute(table);
        const TLSpatialIndex& index = table.Index();
        const double tolerances[] = {0.0, 1.0, 5.0, 20.0, 60.0};
        int vertexHits = 0, segmentHits = 0;
        for (int q = 0; q < queries; ++q) {
            const TLPoint p(uniform(-50, 1050), uniform(-50, 1050));
            const double tol = tolerances[q % 5];
            SCOPED_TRACE(::testing::Message() << "query " << q << " at " << p.x << "," << p.y);

            TLSegmentRef hit{};
            TLPoint at;
            const double vd = brute.NearestVertex(p);
            const bool vertex = index.NearestVertex(p, tol, hit, at);
            ASSERT_EQ(vertex, vd <= tol);
            if (vertex) {
                ++vertexHits;
                EXPECT_NEAR(std::hypot(p.x - at.x, p.y - at.y), vd, 1e-9);
                EXPECT_EQ(Vertex(hit.featureId, hit.start), at);
                EXPECT_EQ(hit.a, at);
            }

            const double sd = brute.NearestSegment(p);
            const bool segment = index.NearestSegment(p, tol, hit, at);
            ASSERT_EQ(segment, sd <= tol + 1e-12) << sd;
            if (segment) {
                ++segmentHits;
                EXPECT_NEAR(std::hypot(p.x - at.x, p.y - at.y), sd, 1e-9);
                EXPECT_NEAR(Brute::SegmentDistance(p, hit.a, hit.b), sd, 1e-9);
                EXPECT_EQ(Vertex(hit.featureId, hit.start), hit.a);
            }
        }
        // The layer is dense enough that both kinds of answer occur often.
        EXPECT_GT(vertexHits, queries / 10);
        EXPECT_GT(segmentHits, queries / 4);
    }

    void ExpectRectanglesAgree(int queries) {
        const Brute brute(table);
        for (int q = 0; q < queries; ++q) {
            const double x = uniform(-20, 1000), y = uniform(-20, 1000);
            const TLRect rect(x, x + uniform(0, 60), y, y + uniform(0, 60));

            std::vector<int> expected;
            for (int id : table.GetIds())
                if (table.PeekFeature(id)->GetGeometry()->GetBound().Intersects(rect))
                    expected.push_back(id);
            EXPECT_EQ(table.SearchBounds(rect), expected);

            std::set<std::pair<int, int>> want, got;
            for (const Brute::Seg& s : brute.segments)
                if (Brute::Meets(s, rect)) want.insert({s.id, s.start});
            std::vector<TLSegmentRef> found;
            table.Index().QuerySegments(rect, found);
            for (const TLSegmentRef& s : found) got.insert({s.featureId, s.start});
            EXPECT_EQ(got, want);
            EXPECT_EQ(got.size(), found.size());  // no segment twice
        }
    }

    std::mt19937 rng{20240601};
    TLFeatureTable table{"random", SampleFields()};
};

TEST_F(IndexTest, NearestVertexAndSegmentAgreeWithBruteForce) {
    ASSERT_GT(Brute(table).segments.size(), 1500u);
    EXPECT_EQ(table.Index().Size(), std::size_t(table.GetFeatureCount()));
    ExpectAgreesWithBruteForce(3000);
    ExpectRectanglesAgree(300);
}

TEST_F(IndexTest, IndexFollowsInsertsDeletesAndGeometryChanges) {
    table.Index();  // built now, kept up to date from here on
    std::vector<int> ids = table.GetIds();
    std::shuffle(ids.begin(), ids.end(), rng);
    for (int i = 0; i < 60; ++i) table.Delete(ids[std::size_t(i)]);
    for (int i = 60; i < 120; ++i) table.SetGeometry(ids[std::size_t(i)], line().GetGeometry());
    for (int i = 0; i < 60; ++i) table.Insert(i % 2 ? point() : line());
    // A load marks the index for a packed rebuild on next use.
    table.Load(polygon());
    EXPECT_EQ(table.Index().Size(), std::size_t(table.GetFeatureCount()));
    ExpectAgreesWithBruteForce(2000);
    ExpectRectanglesAgree(200);

    const TLRect all = table.GetExtent();
    TLRect expected;
    for (int id : table.GetIds()) expected.Union(table.PeekFeature(id)->GetGeometry()->GetBound());
    EXPECT_EQ(all, expected);
}

TEST(SpatialIndex, BadInputNeverReachesTheTree) {
    TLSpatialIndex index;
    TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline());
    line->BeginPath();
    line->AddXY(0, 0);
    line->AddXY(std::nan(""), 5);
    line->AddXY(10, 0);
    line->AddXY(20, 0);
    line->EndEntity();
    index.Insert(1, line.get());
    index.Insert(2, nullptr);
    TLRefPtr<TLGeoPoint> empty(new TLGeoPoint());
    index.Insert(3, empty.get());
    EXPECT_EQ(index.Size(), 1u);  // only the line, with its finite segment 10-20

    TLSegmentRef hit{};
    TLPoint at;
    EXPECT_TRUE(index.NearestSegment(TLPoint(15, 1), 2, hit, at));
    EXPECT_EQ(hit.start, 2);
    EXPECT_EQ(at, TLPoint(15, 0));
    EXPECT_FALSE(index.NearestSegment(TLPoint(1, 1), 2, hit, at));  // its segments touch the NaN
    EXPECT_FALSE(index.NearestSegment(TLPoint(std::nan(""), 0), 2, hit, at));
    EXPECT_FALSE(index.NearestVertex(TLPoint(20, 0), -1, hit, at));
    EXPECT_FALSE(index.NearestVertex(TLPoint(20, 0), std::nan(""), hit, at));
    EXPECT_FALSE(
        index.NearestVertex(TLPoint(20, 0), std::numeric_limits<double>::infinity(), hit, at));
    EXPECT_TRUE(index.NearestVertex(TLPoint(20, 0), 0, hit, at));
    EXPECT_EQ(hit.start, 3);
    EXPECT_TRUE(index.Query(TLRect()).empty());
    index.Remove(1);
    index.Remove(42);
    EXPECT_EQ(index.Size(), 0u);
    EXPECT_TRUE(index.Extent().IsEmpty());
    EXPECT_FALSE(index.NearestVertex(TLPoint(20, 0), 5, hit, at));
}

TEST(SpatialIndex, TiesGoToTheLowerFeatureThenTheLowerVertex) {
    TLSpatialIndex index;
    // A closed ring repeats its first vertex at its end; two features share a corner.
    TLRefPtr<TLGeometry> ring = Wkt("POLYGON ((0 0, 4 0, 4 4, 0 0))");
    TLRefPtr<TLGeometry> other = Wkt("LINESTRING (4 4, 8 8)");
    index.Rebuild({{7, other.get()}, {5, ring.get()}, {5, other.get()}});
    EXPECT_EQ(index.Size(), 2u);  // the repeated id is entered once
    TLSegmentRef hit{};
    TLPoint at;
    ASSERT_TRUE(index.NearestVertex(TLPoint(0.1, -0.1), 1, hit, at));
    EXPECT_EQ(hit.featureId, 5);
    EXPECT_EQ(hit.start, 0);
    ASSERT_TRUE(index.NearestVertex(TLPoint(4, 4.5), 1, hit, at));
    EXPECT_EQ(hit.featureId, 5);
    EXPECT_EQ(hit.start, 2);
    ASSERT_TRUE(index.NearestSegment(TLPoint(4, 4), 1, hit, at));
    EXPECT_EQ(hit.featureId, 5);
    EXPECT_EQ(hit.start, 1);
    EXPECT_EQ(at, TLPoint(4, 4));
}

TEST(SpatialIndex, AGeometryShortenedInPlaceIsSearchedAsItIsNow) {
    // A tool may change a lent geometry before the table enters it again: the index then reads
    // the points that are there, and never past them.
    TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline());
    line->BeginPath();
    for (int i = 0; i <= 40; ++i) line->AddXY(i * 10.0, 0);
    line->EndEntity();
    TLSpatialIndex index;
    index.Rebuild({{1, line.get()}});
    line->ClearPoints();
    line->BeginPath();
    line->AddXY(0, 5);
    line->AddXY(20, 5);
    line->EndEntity();
    TLSegmentRef hit{};
    TLPoint at;
    EXPECT_FALSE(index.NearestVertex(TLPoint(300, 0), 5, hit, at));
    ASSERT_TRUE(index.NearestVertex(TLPoint(19, 4), 5, hit, at));
    EXPECT_EQ(at, TLPoint(20, 5));
    index.Insert(1, line.get());
    ASSERT_TRUE(index.NearestSegment(TLPoint(10, 0), 5, hit, at));
    EXPECT_EQ(at, TLPoint(10, 5));
}

TEST(PackedRTree, FindsEveryBoxThatMeetsTheRectangleEvenAtAnEdge) {
    // Coordinates a float cannot hold exactly, and rectangles that just touch the boxes: the
    // tree's rounded boxes must never lose one.
    std::mt19937 rng(5);
    std::uniform_real_distribution<double> place(-1e6, 1e6), size(0.0, 300.0);
    std::vector<std::array<double, 4>> exact;
    std::vector<TLPackedRTree::Box> boxes;
    for (int i = 0; i < 5000; ++i) {
        const double x = place(rng) + 0.1, y = place(rng) + 0.3;
        exact.push_back({x, y, x + size(rng), y + size(rng)});
        const auto& e = exact.back();
        boxes.push_back(TLPackedRTree::Outward(e[0], e[1], e[2], e[3]));
    }
    TLPackedRTree tree;
    std::vector<std::uint32_t> order;
    tree.Build(boxes, order);
    ASSERT_EQ(tree.Size(), boxes.size());
    for (int q = 0; q < 400; ++q) {
        // Every fourth rectangle starts exactly at a box's right edge.
        const auto& touched = exact[std::size_t(q) * 7 % exact.size()];
        const double x0 = q % 4 == 0 ? touched[2] : place(rng),
                     y0 = q % 4 == 0 ? touched[1] : place(rng);
        const double x1 = x0 + size(rng) * 10, y1 = y0 + size(rng) * 10;
        std::set<std::uint32_t> want, got;
        for (std::uint32_t i = 0; i < exact.size(); ++i) {
            const auto& e = exact[i];
            if (e[0] <= x1 && e[2] >= x0 && e[1] <= y1 && e[3] >= y0) want.insert(i);
        }
        tree.Search(x0, y0, x1, y1, [&](std::size_t at) {
            const auto& e = exact[order[at]];
            if (e[0] <= x1 && e[2] >= x0 && e[1] <= y1 && e[3] >= y0) got.insert(order[at]);
        });
        ASSERT_EQ(got, want) << q;
        if (q % 4 == 0) {
            EXPECT_TRUE(want.count(std::uint32_t(std::size_t(q) * 7 % exact.size())));
        }
    }
}

}  // namespace
}  // namespace TMObjects::testing
