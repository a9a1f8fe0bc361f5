// The raster branch of the style document: rasters written with GDAL, their default and given
// image renders, and the band statistics the document carries.
#include <gtest/gtest.h>

#include <memory>

#include "RasterFiles.h"
#include "SldShape.h"
#include "tlmap/TLImageClassRenderInfo.h"
#include "tlmap/TLImageStretchRenderInfo.h"
#include "tlmap/TLMultiBandImageRender.h"
#include "tlmap/TLRasterLayer.h"
#include "tlmap/TLSingleBandImageRender.h"
#include "tmgis/TMWorkspace.h"

namespace TMObjects {
namespace {

class SldRaster : public ::testing::Test {
protected:
    void SetUp() override {
        mDir = ScratchFolder(::testing::UnitTest::GetInstance()->current_test_info()->name());
    }
    TLRefPtr<TLRasterLayer> open(const RasterSpec& spec) {
        TLString error;
        mWorkspaces.push_back(
            TMWorkspace::Open(WriteRaster(mDir + "/dem.tif", spec), false, error));
        EXPECT_TRUE(mWorkspaces.back()) << error.toStdString();
        if (!mWorkspaces.back()) return TLRefPtr<TLRasterLayer>();
        return mWorkspaces.back()->GetLayers().at(0).dynamicCast<TLRasterLayer>();
    }
    // A band of cells from 0.4 up to 254.6, and bands 2 and 3 of 10 .. 20 and -5 .. 7.25.
    TLRefPtr<TLRasterLayer> open(int bands) {
        RasterSpec spec;
        spec.bands = bands;
        spec.value = [](int band, int column, int row) {
            const bool first = column == 0 && row == 0;
            const bool last = column == 3 && row == 2;
            if (band == 1) return first ? 0.4 : last ? 254.6 : 100.0;
            if (band == 2) return first ? 10.0 : last ? 20.0 : 15.0;
            return first ? -5.0 : last ? 7.25 : 1.0;
        };
        return open(spec);
    }
    std::string mDir;
    std::vector<std::unique_ptr<TMWorkspace>> mWorkspaces;
};

TLRefPtr<TLImageStretchRenderInfo> stretch(int algorithm, std::vector<TLColor> colors) {
    TLRefPtr<TLImageStretchRenderInfo> info(new TLImageStretchRenderInfo());
    info->SetAlgoType(algorithm);
    info->SetColors(colors);
    return info;
}

QString normalize(const char* algorithm, const char* minimum, const char* maximum) {
    return QString(
               "sld:ContrastEnhancement(sld:Normalize("
               "sld:VendorOption[name=algorithm]'%1',sld:VendorOption[name=minValue]'%2',"
               "sld:VendorOption[name=maxValue]'%3'))")
        .arg(algorithm, minimum, maximum);
}

TEST_F(SldRaster, SingleBandStretchWritesTheEndsOfItsRampAndTheBandsRoundedRange) {
    TLRefPtr<TLRasterLayer> layer = open(1);
    ASSERT_TRUE(layer);
    TLRefPtr<TLSingleBandImageRender> render(new TLSingleBandImageRender(1));
    render->setRenderInfo(stretch(
        TLImageStretchRenderInfo::ClipToMinimumMaximum,
        {TLColor(0, 0, 0), TLColor(1, 2, 3), TLColor(250, 10, 0), TLColor(255, 255, 254, 17)}));
    layer->SetRender(render);
    EXPECT_EQ(rulesOf(*layer),
              QStringList("sld:Rule(sld:RasterSymbolizer(sld:ChannelSelection(sld:GrayChannel("
                          "sld:SourceChannelName'1'," +
                          normalize("ClipToMinimumMaximum", "0", "255") +
                          ")),sld:ColorMap("
                          "sld:ColorMapEntry[color=#000000;quantity=0],"
                          "sld:ColorMapEntry[color=#fffffe;quantity=3])))"));
}

TEST_F(SldRaster, DefaultGreyRampAndAnEmptyRampAndEveryAlgorithmName) {
    TLRefPtr<TLRasterLayer> layer = open(1);
    ASSERT_TRUE(layer);
    layer->SetVisibleScales(500, 20000);
    // The layer's own render: 256 greys stretched between the minimum and the maximum.
    EXPECT_EQ(rulesOf(*layer),
              QStringList("sld:Rule(sld:MinScaleDenominator'20000',sld:MaxScaleDenominator'500',"
                          "sld:RasterSymbolizer(sld:ChannelSelection(sld:GrayChannel("
                          "sld:SourceChannelName'1'," +
                          normalize("StretchToMinimumMaximum", "0", "255") +
                          ")),sld:ColorMap("
                          "sld:ColorMapEntry[color=#000000;quantity=0],"
                          "sld:ColorMapEntry[color=#ffffff;quantity=255])))"));

    layer->SetVisibleScales(0, 0);
    TLRefPtr<TLSingleBandImageRender> render(new TLSingleBandImageRender(1));
    render->setRenderInfo(stretch(TLImageStretchRenderInfo::ClipToZero, {}));
    layer->SetRender(render);
    EXPECT_EQ(rulesOf(*layer),
              QStringList("sld:Rule(sld:RasterSymbolizer(sld:ChannelSelection(sld:GrayChannel("
                          "sld:SourceChannelName'1'," +
                          normalize("ClipToZero", "0", "255") + ")),sld:ColorMap))"));
    render->setRenderInfo(stretch(7, {TLColor(9, 9, 9)}));
    EXPECT_TRUE(
        rulesOf(*layer).value(0).contains(normalize("StretchToMinimumMaximum", "0", "255")));
    EXPECT_TRUE(rulesOf(*layer).value(0).contains(
        "sld:ColorMap(sld:ColorMapEntry[color=#090909;quantity=0],"
        "sld:ColorMapEntry[color=#090909;quantity=0])"));
}

TEST_F(SldRaster, ClassesGiveOneEntryEachAndAnEmptyEnhancement) {
    TLRefPtr<TLRasterLayer> layer = open(1);
    ASSERT_TRUE(layer);
    TLRefPtr<TLImageClassRenderInfo> classes(new TLImageClassRenderInfo());
    classes->AddClassItem(1.5, 2.5, TLColor(0, 128, 0));
    classes->AddClassItem(20, 40, TLColor(0xAB, 0xCD, 0xEF, 0));
    classes->AddClassItem(-3e-7, 0, TLColor(255, 0, 0));
    TLRefPtr<TLSingleBandImageRender> render(new TLSingleBandImageRender(1));
    render->setRenderInfo(classes);
    layer->SetRender(render);
    // The upper end of a class is not written; values in Qt's default number text.
    EXPECT_EQ(rulesOf(*layer),
              QStringList("sld:Rule(sld:RasterSymbolizer(sld:ChannelSelection(sld:GrayChannel("
                          "sld:SourceChannelName'1',sld:ContrastEnhancement)),sld:ColorMap("
                          "sld:ColorMapEntry[color=#008000;quantity=1.5],"
                          "sld:ColorMapEntry[color=#abcdef;quantity=20],"
                          "sld:ColorMapEntry[color=#ff0000;quantity=-3e-07])))"));

    // A single-band render of an unknown type: an empty enhancement and an empty colour map.
    layer->SetRender(TLRefPtr<TLRasterRender>(new TLSingleBandImageRender(1)));
    EXPECT_EQ(rulesOf(*layer),
              QStringList("sld:Rule(sld:RasterSymbolizer(sld:ChannelSelection(sld:GrayChannel("
                          "sld:SourceChannelName'1',sld:ContrastEnhancement)),sld:ColorMap))"));
}

TEST_F(SldRaster, CompositeChannelsAreNumberedOneTwoThreeWhicheverBandsTheyShow) {
    TLRefPtr<TLRasterLayer> layer = open(3);
    ASSERT_TRUE(layer);
    const QString red = "sld:RedChannel(sld:SourceChannelName'1'," +
                        normalize("StretchToMinimumMaximum", "0", "255") + ")";
    const QString green = "sld:GreenChannel(sld:SourceChannelName'2'," +
                          normalize("StretchToMinimumMaximum", "10", "20") + ")";
    const QString blue = "sld:BlueChannel(sld:SourceChannelName'3'," +
                         normalize("StretchToMinimumMaximum", "-5", "7") + ")";
    EXPECT_EQ(rulesOf(*layer), QStringList("sld:Rule(sld:RasterSymbolizer(sld:ChannelSelection(" +
                                           red + "," + green + "," + blue + "),sld:ColorMap))"));

    // The bands the render really shows are not consulted, nor is its render info.
    TLRefPtr<TLMultiBandImageRender> render(new TLMultiBandImageRender(3, 2, 1));
    render->setRenderInfo(stretch(TLImageStretchRenderInfo::ClipToZero, {TLColor(1, 1, 1)}));
    render->setUseBands(true, false, false);
    layer->SetRender(render);
    EXPECT_EQ(rulesOf(*layer), QStringList("sld:Rule(sld:RasterSymbolizer(sld:ChannelSelection(" +
                                           red + "),sld:ColorMap))"));
    render->setUseBands(false, false, true);
    EXPECT_EQ(rulesOf(*layer), QStringList("sld:Rule(sld:RasterSymbolizer(sld:ChannelSelection(" +
                                           blue + "),sld:ColorMap))"));
}

TEST_F(SldRaster, TwoBandsHaveNoThirdBandToMeasure) {
    TLRefPtr<TLRasterLayer> layer = open(2);
    ASSERT_TRUE(layer);
    layer->SetRender(TLRefPtr<TLRasterRender>(new TLMultiBandImageRender(1, 2, 3)));
    EXPECT_TRUE(rulesOf(*layer).value(0).contains("sld:BlueChannel(sld:SourceChannelName'3'," +
                                                  normalize("StretchToMinimumMaximum", "0", "0") +
                                                  ")"));
}

TEST_F(SldRaster, RendersThatAreNoImageRendersLeaveTheStyleWithoutARule) {
    TLRefPtr<TLRasterLayer> layer = open(3);
    ASSERT_TRUE(layer);
    layer->SetRender(TLRefPtr<TLRasterRender>(new TLRasterRender()));
    EXPECT_TRUE(rulesOf(*layer).isEmpty());
    layer->SetRender(TLRefPtr<TLRasterRender>());
    EXPECT_TRUE(rulesOf(*layer).isEmpty());
    // A composite on a single band finds no single-band render: the gray channel is not written.
    TLRefPtr<TLRasterLayer> single = open(1);
    single->SetRender(TLRefPtr<TLRasterRender>(new TLMultiBandImageRender(1, 1, 1)));
    EXPECT_EQ(rulesOf(*single),
              QStringList("sld:Rule(sld:RasterSymbolizer(sld:ChannelSelection,sld:ColorMap))"));
}

}  // namespace
}  // namespace TMObjects
