// Coordinate files of points "number, x, y": text, and workbooks of both Excel formats read
// through GDAL with header detection off.
#include <gtest/gtest.h>

#include <fstream>

#include "RasterFiles.h"
#include "tmgisutil/TMExcelUtil.h"

namespace TMObjects {
namespace {

std::string data(const char* name) {
    return std::string(RASTER_TEST_DATA) + "/" + name;
}

std::vector<TLPoint> square() {
    return {{100, 100}, {100, 400}, {400, 400}, {400, 100}};
}

TEST(CoordinateFile, WorkbooksOfBothFormatsGiveTheirRowsAsTheyStand) {
    EXPECT_EQ(TMExcelUtil::readCoordinateFile(data("square.xls")), square());
    EXPECT_EQ(TMExcelUtil::readCoordinateFile(data("square.xlsx")), square());
}

TEST(CoordinateFile, RowsWithoutTwoNumbersAreLeftOut) {
    // Column titles, then three points, then "End".
    const std::vector<TLPoint> expected = {{10.5, 20.25}, {30, 40}, {50, 10}};
    EXPECT_EQ(TMExcelUtil::readCoordinateFile(data("titled.xls")), expected);
    EXPECT_TRUE(TMExcelUtil::readCoordinateFile(data("titles-only.xlsx")).empty());
}

TEST(CoordinateFile, TextFilesOfAnyOtherNameAreReadLineByLine) {
    const std::string path = ScratchFolder("coordinates") + "/ring.TXT";
    std::ofstream(path) << "Begin\n1,100,100\n2, 100 ,400\r\n\n3,400,400\n"
                           "4,400,100\nEnd\n";
    EXPECT_EQ(TMExcelUtil::readCoordinateFile(path), square());
}

TEST(CoordinateFile, WhatCannotBeReadGivesNoPoint) {
    EXPECT_TRUE(TMExcelUtil::readCoordinateFile(data("missing.xlsx")).empty());
    EXPECT_TRUE(TMExcelUtil::readCoordinateFile(data("missing.txt")).empty());
    const std::string fake = ScratchFolder("fake") + "/fake.xls";
    std::ofstream(fake) << "1,2,3\n";
    EXPECT_TRUE(TMExcelUtil::readCoordinateFile(fake).empty());
}

}  // namespace
}  // namespace TMObjects
