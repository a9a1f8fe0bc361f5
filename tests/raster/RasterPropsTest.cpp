// The cells of a GDAL raster through the host's interface: size, bound, cell types, windows that
// reach out of the raster, no-data and the statistics of bands.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <memory>

#include "RasterFiles.h"
#include "tmgis/TLGdalRasterDataset.h"
#include "tmgis/TLGdalRasterWorkspace.h"

namespace TMObjects {
namespace {

class RasterProps : public ::testing::Test {
protected:
    void SetUp() override {
        mDir = ScratchFolder(::testing::UnitTest::GetInstance()->current_test_info()->name());
    }
    TLRefPtr<TLRasterProps> open(const RasterSpec& spec, const std::string& name = "r.tif") {
        const std::string path = WriteRaster(mDir + "/" + name, spec);
        TLRefPtr<TLGdalRasterDataset> dataset = TLGdalRasterDataset::Open(path, name);
        EXPECT_TRUE(dataset);
        return dataset ? dataset->GetRaster() : TLRefPtr<TLRasterProps>();
    }
    // The block's cells of band 1 as rows of text, "a b c / d e f".
    static std::string cells(TLBlock& block, int band = 1) {
        std::string text;
        for (int r = 0; r < block.GetSize().GetHeight(); ++r) {
            if (r) text += " / ";
            for (int c = 0; c < block.GetSize().GetWidth(); ++c) {
                if (c) text += " ";
                const double v = block.value(band, c, r);
                text += std::isnan(v) ? "nan" : std::to_string(int(v));
            }
        }
        return text;
    }
    std::string mDir;
};

TEST_F(RasterProps, SizeBoundCellsAndTypesAreThoseOfTheFile) {
    RasterSpec spec;
    spec.type = "Int16";
    TLRefPtr<TLRasterProps> raster = open(spec);
    ASSERT_TRUE(raster);
    EXPECT_EQ(raster->GetWidth(), 4);
    EXPECT_EQ(raster->GetHeight(), 3);
    EXPECT_EQ(raster->cellWidth(), 10.0);
    EXPECT_EQ(raster->cellHeight(), 10.0);
    EXPECT_EQ(raster->GetBound(), TLRect(500000, 500040, 5000000, 5000030));
    EXPECT_EQ(raster->dataType(), TLCellInt16);
    EXPECT_EQ(raster->GetBandCount(), 1);
    ASSERT_TRUE(raster->GetSpatialReference());
    ASSERT_TRUE(raster->GetRasterDataset());
    EXPECT_EQ(raster->GetRasterDataset()->GetName(), TLString("r.tif"));

    const char* types[] = {"Byte", "UInt16", "Int16", "UInt32", "Int32", "Float32", "Float64"};
    for (int i = 0; i < 7; ++i) {
        spec.type = types[i];
        EXPECT_EQ(open(spec, spec.type + ".tif")->dataType(), i + 1) << types[i];
    }
    spec.type = "CFloat32";
    EXPECT_EQ(open(spec, "complex.tif")->dataType(), TLCellUnknown);
}

TEST_F(RasterProps, AWindowInsideReadsTheCellsRowByRowInTheRastersType) {
    RasterSpec spec;
    spec.type = "Int16";
    TLRefPtr<TLRasterProps> raster = open(spec);
    std::unique_ptr<TLBlock> block(raster->newBlock(TLSize(3, 2)));
    ASSERT_TRUE(raster->readBlock(TLPoint(1, 1), block.get(), 0));
    EXPECT_EQ(cells(*block), "11 12 13 / 21 22 23");
    void* data = nullptr;
    ASSERT_TRUE(block->data(1, data));
    const auto* int16 = static_cast<const std::int16_t*>(data);
    EXPECT_EQ(int16[0], 11);
    EXPECT_EQ(int16[5], 23);
    EXPECT_FALSE(block->data(2, data));
    EXPECT_EQ(data, nullptr);
    EXPECT_TRUE(std::isnan(block->value(1, 3, 0)));
    // Only the raster's own resolution is kept.
    EXPECT_FALSE(raster->readBlock(TLPoint(1, 1), block.get(), 1));
}

TEST_F(RasterProps, WindowsOverTheEdgeRepeatTheEdgeCellsOfABandWithoutNoData) {
    TLRefPtr<TLRasterProps> raster = open(RasterSpec());
    std::unique_ptr<TLBlock> block(raster->newBlock(TLSize(3, 3)));
    ASSERT_TRUE(raster->readBlock(TLPoint(-1, -1), block.get(), 0));
    EXPECT_EQ(cells(*block), "0 0 1 / 0 0 1 / 10 10 11");
    ASSERT_TRUE(raster->readBlock(TLPoint(2, 1), block.get(), 0));
    EXPECT_EQ(cells(*block), "12 13 13 / 22 23 23 / 22 23 23");
    // Wholly outside: the nearest corner.
    ASSERT_TRUE(raster->readBlock(TLPoint(10, -7), block.get(), 0));
    EXPECT_EQ(cells(*block), "3 3 3 / 3 3 3 / 3 3 3");
    double noData = 0.0;
    EXPECT_FALSE(raster->noDataValue(1, noData));
    EXPECT_TRUE(std::isnan(noData)) << "a zero cell must not compare equal to it";
}

TEST_F(RasterProps, WindowsOverTheEdgeArePaddedWithNoDataWhereTheBandHasIt) {
    RasterSpec spec;
    spec.type = "Int16";
    spec.hasNoData = true;
    TLRefPtr<TLRasterProps> raster = open(spec);
    std::unique_ptr<TLBlock> block(raster->newBlock(TLSize(3, 3)));
    ASSERT_TRUE(raster->readBlock(TLPoint(-1, 1), block.get(), 0));
    EXPECT_EQ(cells(*block), "-9999 10 11 / -9999 20 21 / -9999 -9999 -9999");
    double noData = 0.0;
    EXPECT_TRUE(raster->noDataValue(1, noData));
    EXPECT_EQ(noData, -9999.0);
    EXPECT_FALSE(raster->noDataValue(2, noData)) << "no such band";
}

TEST_F(RasterProps, BandStatisticsLeaveNoDataOutAndAreExact) {
    RasterSpec spec;
    spec.bands = 2;
    spec.hasNoData = true;
    spec.value = [](int band, int c, int r) {
        return r == 0 && c == 0 ? -9999.0 : band * 100.0 + 10.0 * r + c;
    };
    TLRefPtr<TLRasterProps> raster = open(spec);
    TLRefPtr<TLRasterBand> band = raster->GetBand(2);
    ASSERT_TRUE(band);
    EXPECT_EQ(band->GetBandIndex(), 2);
    double minimum, maximum, mean, stdDev;
    ASSERT_TRUE(band->GetStatistics(minimum, maximum, mean, stdDev, 0));
    EXPECT_EQ(minimum, 201.0);
    EXPECT_EQ(maximum, 223.0);
    // The eleven cells 201..203, 210..213, 220..223.
    const double cellsOf[] = {201, 202, 203, 210, 211, 212, 213, 220, 221, 222, 223};
    double sum = 0, squares = 0;
    for (double v : cellsOf) sum += v;
    const double expectedMean = sum / 11;
    for (double v : cellsOf) squares += (v - expectedMean) * (v - expectedMean);
    EXPECT_NEAR(mean, expectedMean, 1e-12);
    EXPECT_NEAR(stdDev, std::sqrt(squares / 11), 1e-12);
    EXPECT_FALSE(raster->GetBand(3));
    EXPECT_FALSE(raster->GetBand(0));
    // Nothing is written beside the file.
    EXPECT_FALSE(std::filesystem::exists(mDir + "/r.tif.aux.xml"));
}

TEST_F(RasterProps, ABandOfNoDataOnlyHasNoStatistics) {
    RasterSpec spec;
    spec.hasNoData = true;
    spec.value = [](int, int, int) { return -9999.0; };
    double minimum = 1, maximum = 1, mean = 1, stdDev = 1;
    EXPECT_FALSE(open(spec)->GetBand(1)->GetStatistics(minimum, maximum, mean, stdDev, 0));
    EXPECT_EQ(minimum, 0.0);
    EXPECT_EQ(maximum, 0.0);
}

TEST_F(RasterProps, AFolderWorkspaceOpensItsRastersByFileName) {
    WriteRaster(mDir + "/dem.tif", RasterSpec());
    TLRefPtr<TLRasterWorkspace> workspace(new TLGdalRasterWorkspace(mDir));
    TLRefPtr<TLRasterDataset> dataset = workspace->OpenRasterDataset("dem.tif");
    ASSERT_TRUE(dataset);
    EXPECT_EQ(dataset->GetName(), TLString("dem.tif"));
    EXPECT_EQ(dataset->GetRaster()->GetWidth(), 4);
    EXPECT_FALSE(workspace->OpenRasterDataset("missing.tif"));
}

}  // namespace
}  // namespace TMObjects
