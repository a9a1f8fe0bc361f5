// Raster layers as a workspace opens them: their raster, default render, pixels under a point,
// the 5 by 5 block around a cell, and catalogues of rasters.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "RasterFiles.h"
#include "tlmap/TLImageStretchRenderInfo.h"
#include "tlmap/TLMultiBandImageRender.h"
#include "tlmap/TLRasterDirLayer.h"
#include "tlmap/TLRasterLayer.h"
#include "tlmap/TLSingleBandImageRender.h"
#include "tmgis/TMWorkspace.h"

namespace TMObjects {
namespace {

class RasterLayer : public ::testing::Test {
protected:
    void SetUp() override {
        mDir = ScratchFolder(::testing::UnitTest::GetInstance()->current_test_info()->name());
    }
    TLRefPtr<TLRasterLayer> open(const RasterSpec& spec, const std::string& name = "r.tif") {
        TLString error;
        mWorkspaces.push_back(
            TMWorkspace::Open(WriteRaster(mDir + "/" + name, spec), false, error));
        EXPECT_TRUE(mWorkspaces.back()) << error.toStdString();
        if (!mWorkspaces.back()) return TLRefPtr<TLRasterLayer>();
        return mWorkspaces.back()->GetLayers().at(0).dynamicCast<TLRasterLayer>();
    }
    // The centre of the cell at `column` and `row` of the rasters of RasterSpec's default place.
    static TLPoint centre(int column, int row) {
        return TLPoint(500005.0 + 10.0 * column, 5000025.0 - 10.0 * row);
    }
    std::string mDir;
    std::vector<std::unique_ptr<TMWorkspace>> mWorkspaces;
};

TEST_F(RasterLayer, OneBandIsShownInGreyStretchedBetweenItsMinimumAndMaximum) {
    TLRefPtr<TLRasterLayer> layer = open(RasterSpec());
    ASSERT_TRUE(layer);
    EXPECT_EQ(layer->GetLayerType(), TLRasterLayer::SingleBandRaster);
    ASSERT_TRUE(layer->GetRaster());
    EXPECT_EQ(layer->GetRaster()->GetBound(), layer->GetExtent());
    auto* render = dynamic_cast<TLSingleBandImageRender*>(layer->GetRender().get());
    ASSERT_NE(render, nullptr);
    EXPECT_EQ(render->GetType(), TLString("ImageStretch"));
    auto* stretch = dynamic_cast<TLImageStretchRenderInfo*>(render->getRenderInfo().get());
    ASSERT_NE(stretch, nullptr);
    EXPECT_EQ(stretch->GetAlgoType(), TLImageStretchRenderInfo::StretchToMinimumMaximum);
    ASSERT_EQ(stretch->GetColorCount(), 256);
    EXPECT_EQ(stretch->GetColor(0), TLColor(0, 0, 0));
    EXPECT_EQ(stretch->GetColor(128), TLColor(128, 128, 128));
    EXPECT_EQ(stretch->GetColor(255), TLColor(255, 255, 255));
}

TEST_F(RasterLayer, ThreeBandsOrMoreAreARedGreenBlueComposite) {
    RasterSpec spec;
    spec.bands = 4;
    spec.type = "Byte";
    TLRefPtr<TLRasterLayer> layer = open(spec);
    EXPECT_EQ(layer->GetLayerType(), TLRasterLayer::MultiBandRaster);
    auto* render = dynamic_cast<TLMultiBandImageRender*>(layer->GetRender().get());
    ASSERT_NE(render, nullptr);
    EXPECT_EQ(render->GetType(), TLString("ImageRGBComposite"));
    EXPECT_EQ(render->getRedBand(), 1);
    EXPECT_EQ(render->getGreenBand(), 2);
    EXPECT_EQ(render->getBlueBand(), 3);
    EXPECT_TRUE(render->getUseRedBand() && render->getUseGreenBand() && render->getUseBlueBand());

    spec.bands = 2;
    auto* two = dynamic_cast<TLMultiBandImageRender*>(open(spec, "two.tif")->GetRender().get());
    ASSERT_NE(two, nullptr);
    EXPECT_EQ(two->getBlueBand(), 2);
    EXPECT_FALSE(two->getUseBlueBand());
}

TEST_F(RasterLayer, ThePixelUnderAPointGivesItsColumnAsXAndItsRowAsY) {
    RasterSpec spec;
    spec.hasNoData = true;
    spec.value = [](int, int c, int r) { return c == 3 && r == 2 ? -9999.0 : 10.0 * r + c; };
    TLRefPtr<TLRasterLayer> layer = open(spec);
    TLPoint rowCol;
    double value = -1;
    bool noData = true;
    ASSERT_TRUE(layer->GetPixelValue(centre(2, 1), rowCol, value, noData));
    EXPECT_EQ(rowCol, TLPoint(2, 1));
    EXPECT_EQ(value, 12.0);
    EXPECT_FALSE(noData);
    ASSERT_TRUE(layer->GetPixelValue(centre(3, 2), rowCol, value, noData));
    EXPECT_TRUE(noData);
    EXPECT_FALSE(layer->GetPixelValue(TLPoint(499999, 5000025), rowCol, value, noData));
}

TEST_F(RasterLayer, AZeroCellOfABandWithoutNoDataIsAValue) {
    TLRefPtr<TLRasterLayer> layer = open(RasterSpec());
    TLPoint rowCol;
    double value = -1;
    bool noData = true;
    ASSERT_TRUE(layer->GetPixelValue(centre(0, 0), rowCol, value, noData));
    EXPECT_EQ(value, 0.0);
    EXPECT_FALSE(noData);
}

TEST_F(RasterLayer, ThreeValuesComeFromTheBandsTheRenderShows) {
    RasterSpec spec;
    spec.bands = 3;
    spec.hasNoData = true;
    spec.value = [](int band, int c, int r) {
        return c == 0 && r == 0 ? -9999.0 : 100.0 * band + 10.0 * r + c;
    };
    TLRefPtr<TLRasterLayer> layer = open(spec);
    auto* render = dynamic_cast<TLMultiBandImageRender*>(layer->GetRender().get());
    render->setBands(3, 1, 2);
    TLPoint rowCol;
    double red, green, blue;
    bool noData = true;
    ASSERT_TRUE(layer->GetPixelValue(centre(1, 2), rowCol, red, green, blue, noData));
    EXPECT_EQ(rowCol, TLPoint(1, 2));
    EXPECT_EQ(red, 321.0);
    EXPECT_EQ(green, 121.0);
    EXPECT_EQ(blue, 221.0);
    EXPECT_FALSE(noData);
    ASSERT_TRUE(layer->GetPixelValue(centre(0, 0), rowCol, red, green, blue, noData));
    EXPECT_TRUE(noData);
}

TEST_F(RasterLayer, TheBlockAroundACellShrinksItsPartOnTheRasterAtTheEdges) {
    RasterSpec spec;
    spec.columns = 6;
    spec.rows = 6;
    spec.hasNoData = true;
    TLRefPtr<TLRasterLayer> layer = open(spec);
    int firstRow = -1, firstCol = -1, rowCount = -1, colCount = -1;
    const TLPoint corner = centre(0, 0);
    std::unique_ptr<TLBlock> block(layer->GetMultiRowColPixelValue(corner.x, corner.y, firstRow,
                                                                   firstCol, rowCount, colCount));
    ASSERT_TRUE(block);
    EXPECT_EQ(block->GetSize(), TLSize(5, 5));
    EXPECT_EQ(firstRow, 2);
    EXPECT_EQ(firstCol, 2);
    EXPECT_EQ(rowCount, 3);
    EXPECT_EQ(colCount, 3);
    EXPECT_EQ(block->value(1, 2, 2), 0.0);
    EXPECT_EQ(block->value(1, 4, 3), 12.0);
    EXPECT_EQ(block->value(1, 1, 2), -9999.0);

    const TLPoint inside = centre(2, 3);
    block.reset(layer->GetMultiRowColPixelValue(inside.x, inside.y, firstRow, firstCol, rowCount,
                                                colCount));
    EXPECT_EQ(firstRow, 0);
    EXPECT_EQ(firstCol, 0);
    EXPECT_EQ(rowCount, 5);
    EXPECT_EQ(colCount, 5);
    EXPECT_EQ(block->value(1, 0, 0), 10.0);
    EXPECT_EQ(block->value(1, 4, 4), 54.0);

    const TLPoint lowerRight = centre(5, 4);
    block.reset(layer->GetMultiRowColPixelValue(lowerRight.x, lowerRight.y, firstRow, firstCol,
                                                rowCount, colCount));
    EXPECT_EQ(firstRow, 0);
    EXPECT_EQ(firstCol, 0);
    EXPECT_EQ(rowCount, 4);
    EXPECT_EQ(colCount, 3);
    EXPECT_EQ(block->value(1, 2, 2), 45.0);

    EXPECT_EQ(layer->GetMultiRowColPixelValue(0, 0, firstRow, firstCol, rowCount, colCount),
              nullptr);
}

TEST_F(RasterLayer, ACatalogueAnswersWithTheRasterAtAPoint) {
    RasterSpec west;
    RasterSpec east;
    east.left = 500040.0;
    TLRefPtr<TLRasterDirLayer> catalogue(new TLRasterDirLayer("sheets", nullptr));
    EXPECT_FALSE(catalogue->IsValid());
    catalogue->AddRasterLayer(open(west, "west.tif"));
    catalogue->AddRasterLayer(open(east, "east.tif"));
    EXPECT_TRUE(catalogue->IsRasterLayer());
    EXPECT_TRUE(catalogue->IsValid());
    EXPECT_EQ(catalogue->GetExtent(), TLRect(500000, 500080, 5000000, 5000030));
    ASSERT_TRUE(catalogue->GetRasterLayer(500050, 5000010));
    EXPECT_EQ(catalogue->GetRasterLayer(500050, 5000010)->GetLayerName(), TLString("east"));
    // On the shared border the first one added answers.
    EXPECT_EQ(catalogue->GetRasterLayer(500040, 5000010)->GetLayerName(), TLString("west"));
    EXPECT_EQ(catalogue->GetRasterLayer(500090, 5000010), nullptr);
}

}  // namespace
}  // namespace TMObjects
