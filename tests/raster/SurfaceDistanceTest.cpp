// Distances along the terrain of a raster: on a plane they are exact, whatever the sampling.
#include <gtest/gtest.h>

#include <cmath>

#include "RasterFiles.h"
#include "tlanalysis/TLSurfaceAnalyst.h"
#include "tmgis/TLGdalRasterDataset.h"

namespace TMObjects {
namespace {

class SurfaceDistance : public ::testing::Test {
protected:
    void SetUp() override {
        mDir = ScratchFolder(::testing::UnitTest::GetInstance()->current_test_info()->name());
    }
    TLRefPtr<TLGdalRasterDataset> write(const RasterSpec& spec) {
        return TLGdalRasterDataset::Open(WriteRaster(mDir + "/dem.tif", spec), "dem.tif");
    }
    std::string mDir;
};

// 60 x 40 cells of 5 m from (1000, 1200) down to (1300, 1000); z = 0.5 x - 0.25 y.
RasterSpec plane() {
    RasterSpec spec;
    spec.columns = 60;
    spec.rows = 40;
    spec.cell = 5.0;
    spec.left = 1000.0;
    spec.top = 1200.0;
    spec.type = "Float64";
    spec.value = [](int, int c, int r) {
        const double x = 1000.0 + (c + 0.5) * 5.0, y = 1200.0 - (r + 0.5) * 5.0;
        return 0.5 * x - 0.25 * y;
    };
    return spec;
}

TEST_F(SurfaceDistance, OnAPlaneItIsThePlaneDistanceTimesTheSecantAlongTheLine) {
    TLRefPtr<TLGdalRasterDataset> dataset = write(plane());
    ASSERT_TRUE(dataset);
    // Between cell centres, so that the heights at both ends are the plane's.
    const double x1 = 1012.5, y1 = 1187.5, x2 = 1282.5, y2 = 1017.5;
    const double dx = x2 - x1, dy = y2 - y1, dz = 0.5 * dx - 0.25 * dy;
    EXPECT_NEAR(TLSurfaceAnalyst::getSurfaceDistance(dataset.get(), x1, y1, x2, y2),
                std::sqrt(dx * dx + dy * dy + dz * dz), 1e-9);
    // Along a contour line (0.5 dx = 0.25 dy) the terrain is level: the plane distance.
    EXPECT_NEAR(TLSurfaceAnalyst::getSurfaceDistance(dataset.get(), 1050, 1050, 1100, 1150),
                std::hypot(50.0, 100.0), 1e-9);
    EXPECT_NEAR(TLSurfaceAnalyst::getSurfaceDistance(dataset.get(), 1100, 1100, 1100, 1100), 0.0,
                1e-12);
}

TEST_F(SurfaceDistance, WhereTheTerrainIsUnknownThePlaneLengthCounts) {
    RasterSpec spec = plane();
    spec.hasNoData = true;
    spec.noData = -9999;
    // Column 30 is a gap across the raster.
    const auto height = spec.value;
    spec.value = [height](int b, int c, int r) { return c == 30 ? -9999.0 : height(b, c, r); };
    TLRefPtr<TLGdalRasterDataset> dataset = write(spec);
    const double through =
        TLSurfaceAnalyst::getSurfaceDistance(dataset.get(), 1102.5, 1100, 1202.5, 1100);
    EXPECT_GT(through, 100.0);
    EXPECT_LT(through, 100.0 * std::sqrt(1.25));
    // Off the raster altogether: the plane distance.
    EXPECT_NEAR(TLSurfaceAnalyst::getSurfaceDistance(dataset.get(), 0, 0, 30, 40), 50.0, 1e-9);
    EXPECT_EQ(TLSurfaceAnalyst::getSurfaceDistance(nullptr, 0, 0, 1, 1), -1.0);
}

}  // namespace
}  // namespace TMObjects
