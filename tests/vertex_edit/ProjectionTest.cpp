#include "VertexEditSession.h"
#include "edit/TLToolEditPoint.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLEditor.h"
#include "tlsparef/TLCoordinateSystem.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {
namespace {

// A map in Web Mercator over a layer in geographic degrees: the tools show and take map
// coordinates, and the layer keeps its own.
class VertexEditProjected : public VertexEditSession {
protected:
    void SetUp() override {
        VertexEditSession::SetUp();
        map->SetSpatialReference(TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:3857"));
        roads = addLayer("roads", TLLayer::LineLayer, "EPSG:4326");
        road = addLine(roads, {{0.001, 0.001}, {0.002, 0.001}, {0.003, 0.002}});
    }

    XY toMap(XY degrees) const { return project(degrees, "EPSG:4326", "EPSG:3857"); }
    XY toLayer(XY metres) const { return project(metres, "EPSG:3857", "EPSG:4326"); }

    static XY project(XY p, const char* from, const char* to) {
        TLGeometryProject projection;
        projection.SetPrj(TLSpatialObjectFactory::LoadCoordinateSystem(from).get(),
                          TLSpatialObjectFactory::LoadCoordinateSystem(to).get(), nullptr);
        projection.ProjXY(p.first, p.second);
        return p;
    }

    TLFeatureLayer* roads = nullptr;
    int road = -1;
};

TEST_F(VertexEditProjected, EditPointShowsMapCoordinatesAndWritesLayerOnes) {
    pick("TLToolEditPoint");
    auto* tool = dynamic_cast<TLToolEditPoint*>(poolTool("TLToolEditPoint"));
    ASSERT_NE(tool, nullptr);
    const XY vertex = toMap({0.002, 0.001});
    click(vertex.first + 1, vertex.second - 1);
    EXPECT_EQ(textOf("xEdit"), QString::number(vertex.first, 'f', 6));
    EXPECT_EQ(textOf("yEdit"), QString::number(vertex.second, 'f', 6));

    const XY target = toMap({0.0025, 0.0005});
    tool->changeToNewCoord(target.first, target.second);
    Paths parts = partsOf(roads, road);
    ASSERT_EQ(parts.size(), 1u);
    EXPECT_NEAR(parts[0][1].first, 0.0025, 1e-12);
    EXPECT_NEAR(parts[0][1].second, 0.0005, 1e-12);
    EXPECT_EQ(parts[0][0], XY(0.001, 0.001));
    EXPECT_EQ(map->editor()->UndoLabel().toStdString(), "edit point");
}

TEST_F(VertexEditProjected, EditLineListsMapCoordinatesWithTenDecimalsForADegreeLayer) {
    pick("TLToolEditLine");
    const XY first = toMap({0.001, 0.001});
    click(first.first, first.second);
    const std::vector<std::string> xs = column("mTableViewPoint", 1);
    ASSERT_EQ(xs.size(), 3u);
    EXPECT_EQ(xs[0], QString::asprintf("%0.10f", first.first).toStdString());

    const XY moved = toMap({0.0015, 0.0012});
    typeCell(2, 1, QString::number(moved.first, 'f', 10).toUtf8().constData());
    typeCell(2, 2, QString::number(moved.second, 'f', 10).toUtf8().constData());
    clickButton("mBtnOk");
    Paths parts = partsOf(roads, road);
    ASSERT_EQ(parts.size(), 1u);
    EXPECT_NEAR(parts[0][2].first, 0.0015, 1e-12);
    EXPECT_NEAR(parts[0][2].second, 0.0012, 1e-12);
    // The vertices not edited only went to the map and back.
    EXPECT_NEAR(parts[0][0].first, 0.001, 1e-14);
    EXPECT_NEAR(parts[0][1].second, 0.001, 1e-14);
}

}  // namespace
}  // namespace TMObjects
