#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <fstream>

#include "DataFixture.h"
#include "tlmap/TLRasterLayer.h"

namespace TMObjects {
namespace {

class Workspace : public DataFixture {};

TEST_F(Workspace, AGeoPackageOpensAsFeatureLayersOfTheirKindWithTheirSystem) {
    auto workspace = open(makeGeoPackage());
    ASSERT_TRUE(workspace);
    EXPECT_EQ(workspace->GetDriverName().toStdString(), "GPKG");
    std::vector<std::string> names;
    for (const auto& layer : workspace->GetLayers())
        names.push_back(layer->GetLayerName().toStdString());
    EXPECT_EQ(names, (std::vector<std::string>{"wells", "roads", "curves", "parcels", "marks"}));
    EXPECT_EQ(workspace->GetLayer("wells")->GetLayerType(), TLLayer::PointLayer);
    EXPECT_EQ(workspace->GetLayer("roads")->GetLayerType(), TLLayer::LineLayer);
    EXPECT_EQ(workspace->GetLayer("curves")->GetLayerType(), TLLayer::LineLayer);
    EXPECT_EQ(workspace->GetLayer("parcels")->GetLayerType(), TLLayer::PolygonLayer);
    EXPECT_EQ(workspace->GetLayer("wells")->GetSpatialReference()->GetAuthorityCode().toStdString(),
              "EPSG:32633");
    EXPECT_TRUE(workspace->GetLayer("wells")->IsEditable());
    ASSERT_EQ(workspace->GetNotes().size(), 1u);
    EXPECT_EQ(workspace->GetNotes()[0].toStdString(), "table log has no geometry; left out");
    EXPECT_EQ(tableOf(*workspace, "wells").GetWorkspaceType().toStdString(), "OGR");
}

// A table made without a system gets one of the GeoPackage's stand-ins for "undefined": its
// layer has no system, so the map draws and picks its coordinates as they are.
TEST_F(Workspace, ATableWithoutASystemGivesALayerWithoutOne) {
    const std::string path = file("undefined.gpkg");
    {
        GDALAllRegister();
        GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("GPKG");
        ASSERT_TRUE(driver);
        std::unique_ptr<GDALDataset> dataset(
            driver->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
        ASSERT_TRUE(dataset);
        ASSERT_TRUE(dataset->CreateLayer("sketch", nullptr, wkbPolygon, nullptr));
    }
    auto workspace = open(path);
    ASSERT_TRUE(workspace && workspace->GetLayer("sketch"));
    EXPECT_FALSE(workspace->GetLayer("sketch")->GetSpatialReference());
}

TEST_F(Workspace, FieldsMapToTheHostsTypesAndValuesReadExactly) {
    auto workspace = open(makeGeoPackage());
    TLFeatureTable& wells = tableOf(*workspace, "wells");
    const TLFields& fields = wells.GetFields();
    std::vector<std::pair<std::string, int>> types;
    for (int i = 0; i < fields.GetFieldCount(); ++i)
        types.emplace_back(fields.GetField(i)->GetName().toStdString(),
                           fields.GetField(i)->GetFieldType());
    // The binary scan has no host type: it stays out of the table.
    EXPECT_EQ(types, (std::vector<std::pair<std::string, int>>{{"fid", TLField::FieldOID},
                                                               {"geom", TLField::FieldGeometry},
                                                               {"name", 4},
                                                               {"lanes", 0},
                                                               {"count", 1},
                                                               {"ratio", 2},
                                                               {"depth", 3},
                                                               {"serial", 9},
                                                               {"drilled", 5},
                                                               {"logged", 5}}));
    EXPECT_TRUE(fields.GetField(0)->IsSystemField());

    EXPECT_EQ(wells.GetIds(), (std::vector<int>{1, 2}));
    const TLFeature* north = wells.PeekFeature(1);
    ASSERT_NE(north, nullptr);
    EXPECT_EQ(wktOf(north), "POINT (500010 5000020)");
    EXPECT_EQ(north->GetValue(TLString("fid")).GetInt64(), 1);
    EXPECT_EQ(north->GetValue(TLString("name")).ToString().toStdString(), "north");
    EXPECT_EQ(north->GetValue(TLString("lanes")).GetInt32(), 2);
    EXPECT_EQ(north->GetValue(TLString("ratio")).GetDouble(), double(0.1f));
    EXPECT_EQ(north->GetValue(TLString("depth")).GetDouble(), 12.25);
    EXPECT_EQ(north->GetValue(TLString("serial")).GetInt64(), 9000000000LL);
    EXPECT_EQ(north->GetValue(TLString("drilled")).ToString().toStdString(), "2021-06-30");
    EXPECT_EQ(north->GetValue(TLString("logged")).ToString().toStdString(), "2021-06-30T08:15:00Z");
    EXPECT_TRUE(wells.PeekFeature(2)->GetValue(TLString("depth")).IsNull());
    EXPECT_FALSE(wells.IsDirty());
}

TEST_F(Workspace, CurvesReadAsTheirLinearShape) {
    auto workspace = open(makeGeoPackage());
    const TLFeature* bend = tableOf(*workspace, "curves").PeekFeature(1);
    ASSERT_NE(bend, nullptr);
    ASSERT_TRUE(bend->GetGeometry());
    double* xy = nullptr;
    int count = 0;
    ASSERT_TRUE(bend->GetGeometry()->GetRawPoints(&xy, count));
    EXPECT_GT(count, 3);
    EXPECT_DOUBLE_EQ(xy[0], 500000);
    EXPECT_DOUBLE_EQ(xy[2 * count - 2], 500100);
}

TEST_F(Workspace, ReadOnlyWorkspacesGiveLayersThatCannotBeEdited) {
    auto workspace = open(makeGeoPackage(), false);
    EXPECT_FALSE(workspace->GetLayer("wells")->IsEditable());
}

TEST_F(Workspace, RastersBecomeRasterLayersWithTheirGrid) {
    auto workspace = open(makeGeoTiff());
    ASSERT_EQ(workspace->GetLayers().size(), 1u);
    auto* dem = dynamic_cast<TLRasterLayer*>(workspace->GetLayers()[0].get());
    ASSERT_NE(dem, nullptr);
    EXPECT_EQ(dem->GetLayerName().toStdString(), "dem");
    EXPECT_EQ(dem->GetLayerType(), TLRasterLayer::MultiBandRaster);
    EXPECT_EQ(dem->GetColumnCount(), 4);
    EXPECT_EQ(dem->GetRowCount(), 3);
    EXPECT_EQ(dem->GetBandCount(), 2);
    EXPECT_EQ(dem->GetExtent(), TLRect(500000, 500040, 5000000, 5000030));
    EXPECT_EQ(dem->GetCellWidth(), 10);
    EXPECT_EQ(dem->GetCellHeight(), 10);
    double noData = 0;
    EXPECT_TRUE(dem->GetNoData(2, noData));
    EXPECT_EQ(noData, -9999);
    int column = -1, row = -1;
    EXPECT_TRUE(dem->CellAt(TLPoint(500035, 5000001), column, row));
    EXPECT_EQ(std::make_pair(column, row), std::make_pair(3, 2));
    EXPECT_FALSE(dem->CellAt(TLPoint(500040, 5000001), column, row));
    EXPECT_EQ(dem->GetSpatialReference()->GetAuthorityCode().toStdString(), "EPSG:32633");
}

TEST_F(Workspace, WhatCannotBeOpenedIsRefusedWithTheReason) {
    TLString error;
    EXPECT_FALSE(TMWorkspace::Open(TLString(file("nowhere.gpkg")), true, error));
    EXPECT_NE(error.toStdString().find("Cannot open " + file("nowhere.gpkg")), std::string::npos)
        << error.toStdString();
    std::ofstream(file("notes.txt")) << "not a map\n";
    error = TLString();
    EXPECT_FALSE(TMWorkspace::Open(TLString(file("notes.txt")), true, error));
    // GDAL's reason, in one sentence that ends once.
    const std::string said = error.toStdString();
    EXPECT_NE(said.find("Cannot open " + file("notes.txt") + ": "), std::string::npos) << said;
    EXPECT_EQ(said.back(), '.') << said;
    EXPECT_NE(said.substr(said.size() - 2), "..") << said;
}

}  // namespace
}  // namespace TMObjects
