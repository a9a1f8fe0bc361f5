#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <tuple>

#include "DataFixture.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlsde/TLSpatialIndex.h"
#include "tmgis/TLOgrGeometryReader.h"

namespace TMObjects {
namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();

// The geometry's own binary form: type, parts, coordinates and Z values, bit for bit.
std::vector<std::uint8_t> savedBytes(const TLRefPtr<TLGeometry>& geometry) {
    TLFileFunc file;
    if (geometry) geometry->save(file);
    return file.Data();
}

std::unique_ptr<OGRGeometry> fromWkt(const char* wkt) {
    OGRGeometry* g = nullptr;
    EXPECT_EQ(OGRGeometryFactory::createFromWkt(wkt, nullptr, &g), OGRERR_NONE) << wkt;
    return std::unique_ptr<OGRGeometry>(g);
}

// What the direct way reads is what the way through WKB and GEOS reads, refusals included.
void expectSameAsThroughGeos(const OGRGeometry& g, const std::string& what) {
    const TLRefPtr<TLGeometry> direct = TLOgrGeometryReader::Read(&g);
    const TLRefPtr<TLGeometry> geos = TLOgrGeometryReader::ReadThroughGeos(&g);
    EXPECT_EQ(bool(direct), bool(geos)) << what;
    EXPECT_EQ(savedBytes(direct), savedBytes(geos)) << what;
}

TEST(OgrGeometryReader, EveryShapeReadsAsItDoesThroughGeos) {
    for (const char* wkt : {
             "POINT (1 2)",
             "POINT Z (1 2 3)",
             "POINT EMPTY",
             "POINT M (1 2 3)",
             "LINESTRING (0 0, 1 1, 2 0)",
             "LINESTRING Z (0 0 1, 1 1 2, 2 0 3)",
             "LINESTRING (0 0)",
             "LINESTRING EMPTY",
             "LINESTRING M (0 0 1, 1 1 2)",
             "LINESTRING ZM (0 0 1 5, 1 1 2 6)",
             "MULTILINESTRING ((0 0, 1 1), (2 2, 3 3, 4 4))",
             "MULTILINESTRING Z ((0 0 1, 1 1 1), (2 2 2, 3 3 3))",
             "MULTILINESTRING ((0 0, 1 1), EMPTY)",
             "MULTILINESTRING ((0 0, 1 1), (5 5))",
             "MULTILINESTRING EMPTY",
             "POLYGON ((0 0, 4 0, 4 4, 0 4, 0 0), (1 1, 2 1, 2 2, 1 1))",
             "POLYGON Z ((0 0 1, 4 0 1, 4 4 1, 0 0 1))",
             "POLYGON ((0 0, 4 0, 4 4, 0 4))",
             "POLYGON ((0 0, 4 0, 0 0))",
             "POLYGON ((0 0, 4 0, 4 4, 0 0), (1 1, 2 1, 2 2))",
             "POLYGON EMPTY",
             "MULTIPOLYGON (((0 0, 1 0, 1 1, 0 0)), ((5 5, 6 5, 6 6, 5 5), (5.2 5.1, 5.8 5.1, "
             "5.8 5.7, 5.2 5.1)))",
             "MULTIPOLYGON (((0 0, 1 0, 1 1, 0 0)), EMPTY)",
             "MULTIPOINT ((1 2))",
             "MULTIPOINT ((1 2), (3 4), (1 2))",
             "MULTIPOINT Z ((1 2 3), (3 4 5))",
             "MULTIPOINT (EMPTY, (1 2))",
             "MULTIPOINT EMPTY",
             "CIRCULARSTRING (0 0, 1 1, 2 0)",
             "COMPOUNDCURVE ((0 0, 1 0), CIRCULARSTRING (1 0, 2 1, 3 0))",
             "GEOMETRYCOLLECTION (LINESTRING (0 0, 1 1), LINESTRING (2 2, 3 3))",
             "GEOMETRYCOLLECTION (POINT (1 1), LINESTRING (0 0, 1 1))",
         }) {
        const std::unique_ptr<OGRGeometry> g = fromWkt(wkt);
        ASSERT_TRUE(g) << wkt;
        expectSameAsThroughGeos(*g, wkt);
    }
}

TEST(OgrGeometryReader, CoordinatesThatAreNotNumbersReadAsThroughGeos) {
    OGRLineString gap;  // a vertex that is not a number inside a line
    gap.addPoint(0, 0);
    gap.addPoint(kNaN, 1);
    gap.addPoint(2, 2);
    expectSameAsThroughGeos(gap, "line with a NaN vertex");

    OGRLineString firstZ;  // no Z at the first vertex: GEOS takes the line as 2D
    firstZ.addPoint(0, 0, kNaN);
    firstZ.addPoint(1, 1, 5);
    expectSameAsThroughGeos(firstZ, "line whose first Z is NaN");

    OGRLineString laterZ;  // a later Z that is not a number becomes 0
    laterZ.addPoint(0, 0, 1);
    laterZ.addPoint(1, 1, kNaN);
    expectSameAsThroughGeos(laterZ, "line with a later NaN Z");

    OGRPoint nanPoint(kNaN, 2);
    expectSameAsThroughGeos(nanPoint, "point with a NaN x");
    OGRPoint nanZ(1, 2, kNaN);
    expectSameAsThroughGeos(nanZ, "point with a NaN z");
    OGRPoint infinite(std::numeric_limits<double>::infinity(), 2);
    expectSameAsThroughGeos(infinite, "point at infinity");

    OGRMultiPoint points;
    points.addGeometry(std::make_unique<OGRPoint>(1, 2, 3).get());
    points.addGeometry(std::make_unique<OGRPoint>(3, 4, kNaN).get());
    expectSameAsThroughGeos(points, "multipoint with a NaN z");

    OGRLinearRing ring;  // a closing vertex that is not a number: not closed for GEOS
    for (auto [x, y] : {std::pair{0.0, 0.0}, {4.0, 0.0}, {4.0, 4.0}, {kNaN, 0.0}})
        ring.addPoint(x, y);
    OGRPolygon polygon;
    polygon.addRing(&ring);
    expectSameAsThroughGeos(polygon, "ring closed by a NaN");
}

// 10,000 random walks of 100 vertices, about a line every 150 m over 100 km: one million
// vertices in a GeoPackage, with a few multi-part lines among them.
std::string writeWalks(const std::string& path) {
    GDALAllRegister();
    GDALDatasetUniquePtr ds(GetGDALDriverManager()->GetDriverByName("GPKG")->Create(
        path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRSpatialReference srs;
    srs.importFromEPSG(3857);
    OGRLayer* layer = ds->CreateLayer("walks", &srs, wkbMultiLineString, nullptr);
    std::mt19937 rng(7);
    std::uniform_real_distribution<double> start(0.0, 100000.0), step(-100.0, 100.0);
    EXPECT_EQ(ds->StartTransaction(), OGRERR_NONE);
    for (int i = 0; i < 10000; ++i) {
        OGRMultiLineString lines;
        const int parts = i % 50 == 0 ? 2 : 1;
        double x = start(rng), y = start(rng);
        for (int part = 0; part < parts; ++part) {
            OGRLineString line;
            for (int v = 0; v < 100 / parts; ++v) {
                line.addPoint(x, y);
                x = std::clamp(x + step(rng), 0.0, 100000.0);
                y = std::clamp(y + step(rng), 0.0, 100000.0);
            }
            lines.addGeometry(&line);
        }
        OGRFeature feature(layer->GetLayerDefn());
        feature.SetGeometry(&lines);
        EXPECT_EQ(layer->CreateFeature(&feature), OGRERR_NONE);
    }
    EXPECT_EQ(ds->CommitTransaction(), OGRERR_NONE);
    return path;
}

// The same layer read the way it was read before: every geometry through WKB and GEOS, cloned
// into the table.
TLRefPtr<TLFeatureTable> readThroughGeos(const std::string& path) {
    GDALDatasetUniquePtr ds(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
    OGRLayer* layer = ds->GetLayerByName("walks");
    TLRefPtr<TLFeatureTable> table(new TLFeatureTable(TLString("walks"), TLFields()));
    for (auto& feature : *layer) {
        TLFeature host(int(feature->GetFID()));
        TLRefPtr<TLGeometry> g = TLOgrGeometryReader::ReadThroughGeos(feature->GetGeometryRef());
        host.SetGeometry(g->Clone());
        table->Load(host);
    }
    return table;
}

// The nearest vertex and segment foot within the tolerance by a scan of every vertex, ties to the
// lower feature id and then the lower raw index, with the index's own arithmetic.
struct Scan {
    bool found = false;
    double d2 = 0;
    int id = 0, index = 0;
    TLPoint at;
    void offer(double candidate, int cid, int cindex, const TLPoint& where) {
        if (found &&
            (candidate > d2 || (candidate == d2 && std::tie(cid, cindex) >= std::tie(id, index))))
            return;
        found = true, d2 = candidate, id = cid, index = cindex, at = where;
    }
};

void scan(const TLFeatureTable& table, const TLPoint& p, double tolerance, Scan& vertex,
          Scan& segment) {
    const double limit = tolerance * tolerance;
    for (int id : table.GetIds()) {
        const TLRefPtr<TLGeometry> g = table.PeekFeature(id)->GetGeometry();
        const TLPartList& parts = static_cast<TLGeoPolyline*>(g.get())->Parts();
        for (int part = 0; part < parts.PartCount(); ++part) {
            const int first = parts.PartStart(part), end = first + parts.PartSize(part);
            for (int i = first; i < end; ++i) {
                const TLPoint a = parts.Point(i);
                if (p.SqrDist(a) <= limit) vertex.offer(p.SqrDist(a), id, i, a);
                if (i + 1 == end) continue;
                const TLPoint b = parts.Point(i + 1);
                const double dx = b.x - a.x, dy = b.y - a.y, len2 = dx * dx + dy * dy;
                const double t = std::clamp(
                    len2 > 0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / len2 : 0.0, 0.0, 1.0);
                const TLPoint foot =
                    t == 0.0 ? a : (t == 1.0 ? b : TLPoint(a.x + t * dx, a.y + t * dy));
                if (p.SqrDist(foot) <= limit) segment.offer(p.SqrDist(foot), id, i, foot);
            }
        }
    }
}

class MillionVertexLayer : public DataFixture {};

TEST_F(MillionVertexLayer, LoadsAndSnapsExactlyAsThroughGeos) {
    const std::string path = writeWalks(file("walks.gpkg"));
    auto workspace = open(path, false);
    ASSERT_TRUE(workspace);
    TLFeatureTable& table = tableOf(*workspace, "walks");
    const TLRefPtr<TLFeatureTable> before = readThroughGeos(path);
    ASSERT_EQ(table.GetIds(), before->GetIds());
    long long vertices = 0;
    for (int id : table.GetIds()) {
        const TLRefPtr<TLGeometry> g = table.PeekFeature(id)->GetGeometry();
        ASSERT_EQ(savedBytes(g), savedBytes(before->PeekFeature(id)->GetGeometry())) << id;
        double* xy = nullptr;
        int n = 0;
        g->GetRawPoints(&xy, n);
        vertices += n;
    }
    EXPECT_EQ(vertices, 1000000);

    // Snap queries over the whole square with a tolerance of 100 m: the same vertex and the same
    // segment, to the last bit, from both tables.
    const TLSpatialIndex& now = table.Index();
    const TLSpatialIndex& then = before->Index();
    std::mt19937 rng(11);
    std::uniform_real_distribution<double> coordinate(0.0, 100000.0);
    using Search = bool (TLSpatialIndex::*)(const TLPoint&, double, TLSegmentRef&, TLPoint&) const;
    // The answer of one search from both tables, to the last bit; true when there is one.
    auto same = [&](Search search, const TLPoint& p) {
        TLSegmentRef a{}, b{};
        TLPoint atA, atB;
        const bool found = (now.*search)(p, 100.0, a, atA);
        EXPECT_EQ(found, (then.*search)(p, 100.0, b, atB));
        if (found) {
            EXPECT_EQ(std::tie(a.featureId, a.start, atA.x, atA.y),
                      std::tie(b.featureId, b.start, atB.x, atB.y));
        }
        return found;
    };
    int vertexHits = 0, segmentHits = 0;
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        const TLPoint p(coordinate(rng), coordinate(rng));
        vertexHits += same(&TLSpatialIndex::NearestVertex, p);
        segmentHits += same(&TLSpatialIndex::NearestSegment, p);
    }
    // Most queries land near a line: the comparison is not an empty one.
    EXPECT_GT(vertexHits, 6000) << vertexHits;
    EXPECT_GT(segmentHits, 8000) << segmentHits;

    // And a sample of them against a scan of the million vertices.
    for (int i = 0; i < 100; ++i) {
        const TLPoint p(coordinate(rng), coordinate(rng));
        Scan vertex, segment;
        scan(table, p, 100.0, vertex, segment);
        TLSegmentRef ref{};
        TLPoint at;
        ASSERT_EQ(now.NearestVertex(p, 100.0, ref, at), vertex.found) << i;
        if (vertex.found) {
            EXPECT_EQ(std::tie(ref.featureId, ref.start, at.x, at.y),
                      std::tie(vertex.id, vertex.index, vertex.at.x, vertex.at.y));
        }
        ASSERT_EQ(now.NearestSegment(p, 100.0, ref, at), segment.found) << i;
        if (segment.found) {
            EXPECT_EQ(std::tie(ref.featureId, ref.start, at.x, at.y),
                      std::tie(segment.id, segment.index, segment.at.x, segment.at.y));
        }
    }
}

}  // namespace
}  // namespace TMObjects
