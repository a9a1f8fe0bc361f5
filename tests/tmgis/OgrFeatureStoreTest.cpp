#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "DataFixture.h"
#include "tlgeo/TLGeometryWkt.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMap.h"
#include "tmgis/TLOgrFeatureStore.h"

namespace TMObjects {
namespace {

class OgrFeatureStore : public DataFixture {
protected:
    static TLVariant text(const char* value) { return TLVariant(TLString(value)); }
    static bool save(TLFeatureTable& table, std::string& error) {
        TLString why;
        const bool saved = table.Save(why);
        error = why.toStdString();
        return saved;
    }
    std::vector<std::string> scratchLeft() const {
        std::vector<std::string> left;
        for (const auto& entry : std::filesystem::directory_iterator(dir()))
            if (entry.path().filename().string().rfind(".tlsave-", 0) == 0)
                left.push_back(entry.path().string());
        return left;
    }
};

TEST_F(OgrFeatureStore, AGeoPackageSaveWritesAddsChangesAndDeletesTogether) {
    const std::string path = makeGeoPackage();
    auto workspace = open(path);
    TLFeatureTable& wells = tableOf(*workspace, "wells");
    TLFeature added = featureWith("POINT (500100.5 5000200.25)");
    added.SetValue(TLString("name"), text("east"));
    added.SetValue(TLString("drilled"), TLVariant::FromDate(TLString("2024-02-29")));
    const int id = wells.Insert(added);
    EXPECT_EQ(id, 3);
    ASSERT_TRUE(wells.SetValue(2, TLString("depth"), TLVariant(40.5)));
    ASSERT_TRUE(wells.Delete(1));

    std::string error;
    ASSERT_TRUE(save(wells, error)) << error;
    EXPECT_FALSE(wells.IsDirty());

    const auto stored = readStored(path, "wells");
    ASSERT_EQ(stored.size(), 2u);
    EXPECT_EQ(stored.count(1), 0u);
    EXPECT_EQ(stored.at(3).wkt, "POINT (500100.5 5000200.25)");
    EXPECT_EQ(stored.at(3).values.at("name"), "east");
    EXPECT_EQ(stored.at(3).values.at("drilled"), "2024/02/29");
    EXPECT_EQ(stored.at(3).values.at("depth"), "(null)");
    EXPECT_EQ(stored.at(2).values.at("depth"), "40.5");
    // The binary field the host never showed is kept as it was.
    EXPECT_EQ(stored.at(2).values.at("scan"), "CAFE0001");
    EXPECT_EQ(stored.at(2).wkt, "POINT (500030 5000040)");
}

TEST_F(OgrFeatureStore, EditsTakenBackByUndoLeaveTheGeoPackageAloneUntilTheyFollowASave) {
    const std::string path = makeGeoPackage();
    auto workspace = open(path);
    TLRefPtr<TLMap> map(new TLMap());
    auto* layer = dynamic_cast<TLFeatureLayer*>(workspace->GetLayer(TLString("wells")).get());
    ASSERT_NE(layer, nullptr);
    map->InsertLayer(0, layer, false);
    TLLayerEditBuffer* buffer = layer->layer_edit_buffer();
    TLEditor* editor = map->editor();
    TLFeatureTable& wells = *layer->GetDatasource();

    TLFeature added = featureWith("POINT (500100 5000100)");
    buffer->AddFeature(added, false, true);
    buffer->changeGeometry(1, geometry("POINT (500011 5000021)"), false);
    ASSERT_TRUE(buffer->ChangeAttribute(2, TLString("depth"), TLVariant(40.5), false));
    buffer->DeleteFeature(2, false, true);
    EXPECT_EQ(wells.PendingChanges().size(), 3u);
    while (editor->CanUndo()) ASSERT_TRUE(editor->Undo());
    EXPECT_FALSE(wells.IsDirty());
    const std::string untouched = bytesOf(path);
    ASSERT_TRUE(layer->SaveEdits());
    EXPECT_EQ(bytesOf(path), untouched);

    // Saved, then taken back: the file holds the edit, so undoing it is a change to save.
    ASSERT_TRUE(buffer->ChangeAttribute(1, TLString("name"), text("renamed"), false));
    ASSERT_TRUE(layer->SaveEdits());
    ASSERT_TRUE(editor->Undo());
    EXPECT_EQ(wells.PendingChanges().size(), 1u);
    ASSERT_TRUE(layer->SaveEdits());
    const auto stored = readStored(path, "wells");
    EXPECT_EQ(stored.at(1).values.at("name"), "north");
    EXPECT_EQ(stored.at(1).values.at("depth"), "12.25");
    EXPECT_EQ(stored.at(1).wkt, "POINT (500010 5000020)");
    EXPECT_EQ(stored.size(), 2u);
}

TEST_F(OgrFeatureStore, AnAttributeChangeKeepsAStoredCurveAsItWas) {
    const std::string path = makeGeoPackage();
    auto workspace = open(path);
    TLFeatureTable& curves = tableOf(*workspace, "curves");
    ASSERT_TRUE(curves.SetValue(1, TLString("name"), text("hairpin")));
    std::string error;
    ASSERT_TRUE(save(curves, error)) << error;
    const auto stored = readStored(path, "curves");
    EXPECT_EQ(stored.at(1).wkt, "CIRCULARSTRING (500000 5000000,500050 5000050,500100 5000000)");
    EXPECT_EQ(stored.at(1).values.at("name"), "hairpin");
}

TEST_F(OgrFeatureStore, APolygonIntoAMultipolygonLayerIsStoredAsOneAndSecondSavesFollowOn) {
    const std::string path = makeGeoPackage();
    auto workspace = open(path);
    TLFeatureTable& roads = tableOf(*workspace, "roads");
    const int id = roads.Insert(featureWith("LINESTRING (500000 5000000, 500010 5000010)"));
    std::string error;
    ASSERT_TRUE(save(roads, error)) << error;
    ASSERT_TRUE(roads.SetGeometry(id, geometry("LINESTRING (500000 5000000, 500020 5000010)")));
    ASSERT_TRUE(save(roads, error)) << error;
    EXPECT_EQ(readStored(path, "roads").at(id).wkt,
              "MULTILINESTRING ((500000 5000000,500020 5000010))");
}

TEST_F(OgrFeatureStore, AChangeRefusedHalfWayLeavesTheFileByteForByteAsItWas) {
    const std::string path = makeGeoPackage();
    auto workspace = open(path);
    TLFeatureTable& marks = tableOf(*workspace, "marks");
    TLFeature good = featureWith("POINT (500010 5000010)");
    good.SetValue(TLString("code"), text("BM2"));
    marks.Insert(good);
    // Digitized without a code: the column is NOT NULL.
    marks.Insert(featureWith("POINT (500020 5000020)"));
    const std::string before = bytesOf(path);

    std::string error;
    EXPECT_FALSE(save(marks, error));
    EXPECT_NE(error.find("Saving \"marks\" failed at feature 3"), std::string::npos) << error;
    EXPECT_NE(error.find("NOT NULL"), std::string::npos) << error;
    EXPECT_NE(error.find("The data source was left as it was."), std::string::npos) << error;
    EXPECT_EQ(bytesOf(path), before);
    EXPECT_EQ(readStored(path, "marks").size(), 1u);
    // The edits stay pending; once the mark has its code the save goes through.
    EXPECT_EQ(marks.PendingChanges().size(), 2u);
    ASSERT_TRUE(marks.SetValue(3, TLString("code"), text("BM3")));
    ASSERT_TRUE(save(marks, error)) << error;
    EXPECT_EQ(readStored(path, "marks").size(), 3u);
}

TEST_F(OgrFeatureStore, ADuplicateOfAUniqueCodeIsRefusedAndNothingIsWritten) {
    const std::string path = makeGeoPackage();
    auto workspace = open(path);
    TLFeatureTable& marks = tableOf(*workspace, "marks");
    TLFeature copy = featureWith("POINT (500010 5000010)");
    copy.SetValue(TLString("code"), text("BM1"));
    marks.Insert(copy);
    const std::string before = bytesOf(path);
    std::string error;
    EXPECT_FALSE(save(marks, error));
    EXPECT_NE(error.find("UNIQUE"), std::string::npos) << error;
    EXPECT_EQ(bytesOf(path), before);
}

TEST_F(OgrFeatureStore, AFeatureRemovedBehindTheHostsBackFailsTheSaveWholly) {
    const std::string path = makeGeoPackage();
    auto workspace = open(path);
    TLFeatureTable& wells = tableOf(*workspace, "wells");
    wells.Insert(featureWith("POINT (500001 5000001)"));
    ASSERT_TRUE(wells.SetValue(1, TLString("name"), text("renamed")));
    {
        GDALDatasetUniquePtr other(
            GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
        ASSERT_EQ(other->GetLayerByName("wells")->DeleteFeature(1), OGRERR_NONE);
    }
    std::string error;
    EXPECT_FALSE(save(wells, error));
    EXPECT_NE(error.find("feature 1: it is no longer in the data source"), std::string::npos)
        << error;
    EXPECT_EQ(readStored(path, "wells").size(), 1u);
}

TEST_F(OgrFeatureStore, AShapefileIsRewrittenWholeAndKeepsTrackOfItsRenumbering) {
    const std::string path = makeParcels("parcels.shp", "ESRI Shapefile");
    auto workspace = open(path);
    TLFeatureTable& parcels = tableOf(*workspace, "parcels");
    EXPECT_EQ(parcels.GetIds(), (std::vector<int>{0, 1, 2}));
    ASSERT_TRUE(parcels.Delete(0));
    std::string error;
    ASSERT_TRUE(save(parcels, error)) << error;
    // The file numbered its records afresh; the third parcel is now its record 1.
    ASSERT_TRUE(parcels.SetValue(2, TLString("name"), text("third, renamed")));
    const int added = parcels.Insert(featureWith("POLYGON ((60 0, 70 0, 70 10, 60 10, 60 0))"));
    ASSERT_TRUE(save(parcels, error)) << error;

    const auto stored = readStored(path, "parcels");
    ASSERT_EQ(stored.size(), 3u);
    EXPECT_EQ(stored.at(0).values.at("name"), "second");
    EXPECT_EQ(stored.at(1).values.at("name"), "third, renamed");
    // The format keeps outer rings clockwise.
    EXPECT_EQ(stored.at(1).wkt, "POLYGON ((40 0,40 10,50 10,50 0,40 0))");
    EXPECT_EQ(stored.at(2).wkt, "POLYGON ((60 0,60 10,70 10,70 0,60 0))");
    auto* store = dynamic_cast<TLOgrFeatureStore*>(parcels.GetStore());
    ASSERT_NE(store, nullptr);
    EXPECT_EQ(store->StoredId(added), 2);
    EXPECT_TRUE(scratchLeft().empty());
    EXPECT_TRUE(std::filesystem::exists(file("parcels.prj")));
}

TEST_F(OgrFeatureStore, AShapefileThatRefusesAFeatureIsLeftUntouched) {
    const std::string path = makeParcels("parcels.shp", "ESRI Shapefile");
    auto workspace = open(path);
    TLFeatureTable& parcels = tableOf(*workspace, "parcels");
    ASSERT_TRUE(parcels.SetValue(1, TLString("name"), text("changed")));
    // A typed point goes into any editable layer; a polygon Shapefile cannot hold it.
    parcels.Insert(featureWith("POINT (5 5)"));
    const std::string shp = bytesOf(path), dbf = bytesOf(file("parcels.dbf"));
    std::string error;
    EXPECT_FALSE(save(parcels, error));
    EXPECT_NE(error.find("The data source was left as it was."), std::string::npos) << error;
    EXPECT_EQ(bytesOf(path), shp);
    EXPECT_EQ(bytesOf(file("parcels.dbf")), dbf);
    EXPECT_TRUE(scratchLeft().empty());
}

TEST_F(OgrFeatureStore, GeoJsonKeepsItsIdsThroughARewrite) {
    const std::string path = makeParcels("parcels.geojson", "GeoJSON");
    auto workspace = open(path);
    TLFeatureTable& parcels = tableOf(*workspace, "parcels");
    ASSERT_TRUE(parcels.Delete(1));
    ASSERT_TRUE(parcels.SetGeometry(2, geometry("POLYGON ((40 0, 55 0, 55 10, 40 10, 40 0))")));
    std::string error;
    ASSERT_TRUE(save(parcels, error)) << error;
    const auto stored = readStored(path, "parcels");
    ASSERT_EQ(stored.size(), 2u);
    EXPECT_EQ(stored.at(0).values.at("name"), "first");
    EXPECT_EQ(stored.at(2).wkt, "POLYGON ((40 0,55 0,55 10,40 10,40 0))");
    auto reopened = open(path);
    EXPECT_EQ(tableOf(*reopened, "parcels").GetIds(), (std::vector<int>{0, 2}));
}

TEST_F(OgrFeatureStore, AMissingDataSourceIsReportedAndNothingIsMade) {
    const std::string path = makeGeoPackage();
    auto workspace = open(path);
    TLFeatureTable& wells = tableOf(*workspace, "wells");
    wells.Insert(featureWith("POINT (1 1)"));
    std::filesystem::remove(path);
    std::string error;
    EXPECT_FALSE(save(wells, error));
    EXPECT_EQ(error.rfind("Cannot open " + path + " for writing", 0), 0u) << error;
    EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace TMObjects
