#include "DataFixture.h"
#include "tlmap/TLFeatureLayer.h"

namespace TMObjects {
namespace {

// What a store cannot hold is refused at saving, by name, with nothing written; and ids, once
// given, stay given in the file too.
class StoreRefusal : public DataFixture {
protected:
    static std::string saveFailure(TLFeatureTable& table) {
        TLString why;
        return table.Save(why) ? std::string("saved") : why.toStdString();
    }
};

TEST_F(StoreRefusal, AShapeOfAnotherKindIsRefusedByNameAndNothingIsWritten) {
    const std::string path = makeGeoPackage();
    const std::string before = bytesOf(path);
    auto workspace = open(path);
    TLFeatureTable& roads = tableOf(*workspace, "roads");
    roads.Insert(featureWith("LINESTRING (500000 5000050, 500080 5000050)"));
    const int polygon = roads.Insert(
        featureWith("POLYGON ((500000 5000000, 500010 5000000, 500010 5000010, 500000 5000000))"));

    EXPECT_EQ(saveFailure(roads),
              "Saving \"roads\" failed at feature " + std::to_string(polygon) +
                  ": a polygon cannot be stored in a layer of Multi Line String geometries. The "
                  "data source was left as it was.");
    EXPECT_EQ(bytesOf(path), before);
    // Both edits wait for the user: the good one is not saved without the other.
    EXPECT_EQ(roads.PendingChanges().size(), 2u);
    ASSERT_TRUE(roads.Delete(polygon));
    EXPECT_EQ(saveFailure(roads), "saved");
    EXPECT_EQ(readStored(path, "roads").size(), 2u);
}

TEST_F(StoreRefusal, APointIsNoPolygonAndSeveralPartsDoNotFitASinglePartLayer) {
    const std::string path = makeGeoPackage();
    auto workspace = open(path);
    TLFeatureTable& parcels = tableOf(*workspace, "parcels");
    const int point = parcels.Insert(featureWith("POINT (500010 5000010)"));
    EXPECT_NE(saveFailure(parcels).find("at feature " + std::to_string(point) +
                                        ": a point cannot be stored in a layer of Polygon"),
              std::string::npos);
    ASSERT_TRUE(parcels.Delete(point));

    const int twoParts = parcels.Insert(
        featureWith("MULTIPOLYGON (((500100 5000000, 500110 5000000, 500110 5000010, "
                    "500100 5000000)), ((500200 5000000, 500210 5000000, 500210 5000010, "
                    "500200 5000000)))"));
    EXPECT_NE(saveFailure(parcels).find("at feature " + std::to_string(twoParts) +
                                        ": a polygon of 2 parts cannot be stored in a layer of "
                                        "single Polygon geometries"),
              std::string::npos);
    EXPECT_EQ(readStored(path, "parcels").size(), 1u);
}

TEST_F(StoreRefusal, AnEmptyShapeIsRefused) {
    const std::string path = makeGeoPackage();
    auto workspace = open(path);
    TLFeatureTable& roads = tableOf(*workspace, "roads");
    const int id = roads.Insert(featureWith("LINESTRING EMPTY"));
    EXPECT_NE(saveFailure(roads).find("at feature " + std::to_string(id) +
                                      ": an empty line shows nothing"),
              std::string::npos);
    EXPECT_EQ(readStored(path, "roads").size(), 1u);
}

TEST_F(StoreRefusal, AnIdOfAFeatureDeletedAndSavedIsNotGivenAgainAfterOpeningTheFileAnew) {
    const std::string path = makeGeoPackage();
    int added = 0;
    {
        auto workspace = open(path);
        TLFeatureTable& wells = tableOf(*workspace, "wells");
        added = wells.Insert(featureWith("POINT (500050 5000050)"));
        ASSERT_EQ(saveFailure(wells), "saved");
        ASSERT_TRUE(wells.Delete(added));
        ASSERT_EQ(saveFailure(wells), "saved");
    }
    auto workspace = open(path);
    TLFeatureTable& wells = tableOf(*workspace, "wells");
    EXPECT_EQ(wells.NextId(), added + 1);
    const int next = wells.Insert(featureWith("POINT (500060 5000060)"));
    EXPECT_EQ(next, added + 1);
    ASSERT_EQ(saveFailure(wells), "saved");
    EXPECT_EQ(readStored(path, "wells").count(next), 1u);
}

}  // namespace
}  // namespace TMObjects
