#include <gtest/gtest.h>

#include "tlmap/TLDrawCommonTool.h"

using TMObjects::TLDrawCommonTool;
using TMObjects::TLString;

namespace {

struct PointCase {
    const char* text;
    double x;
    double y;
};

}  // namespace

TEST(ReadInputPoint, AcceptsSignedDecimalAndExponentFormsWithBlanks) {
    const PointCase cases[] = {
        {"1,2", 1.0, 2.0},
        {"  -1.5e3 , +2 ", -1500.0, 2.0},
        {"3.,.5", 3.0, 0.5},
        {"1E+2,-0.25e-1", 100.0, -0.025},
        {"\t7\t,\t8\t", 7.0, 8.0},
        {"-0,0", -0.0, 0.0},
        {"512345.678,3456789.012", 512345.678, 3456789.012},
    };
    for (const auto& c : cases) {
        double x = 99.0, y = 99.0;
        EXPECT_TRUE(TLDrawCommonTool::ReadInputPoint(TLString(c.text), x, y)) << c.text;
        EXPECT_EQ(x, c.x) << c.text;
        EXPECT_EQ(y, c.y) << c.text;
    }
}

TEST(ReadInputPoint, RefusesEverythingElseAndLeavesTheResultsAlone) {
    const char* refused[] = {
        "",     " ",     "abc",     "1",     "1,",         ",2",     "1,2,3",
        "1 2",  "1;2",   "1 ,, 2",  "nan,1", "1,inf",      "0x10,1", "1e,2",
        "1,2x", "x1,2",  "1.2.3,4", "--1,2", "+-1,2",      "- 1,2",  "+,1",
        ".,1",  "1e+,2", "1e999,2", "1,2 3", "infinity,1", "E",      "1.5e3.0,2",
    };
    for (const char* text : refused) {
        double x = 99.0, y = 98.0;
        EXPECT_FALSE(TLDrawCommonTool::ReadInputPoint(TLString(text), x, y)) << text;
        EXPECT_EQ(x, 99.0) << text;
        EXPECT_EQ(y, 98.0) << text;
    }
    // Full-width digits and commas of an Asian input method are not the ASCII ones.
    double x = 0.0, y = 0.0;
    EXPECT_FALSE(TLDrawCommonTool::ReadInputPoint(TLString(L"1\uFF0C2"), x, y));
    EXPECT_FALSE(TLDrawCommonTool::ReadInputPoint(TLString(L"\uFF11,2"), x, y));
}

TEST(CheckStrIsDouble, OneWholeNumberOnly) {
    for (const char* text : {"-12.75", " 3 ", "+1e-3", ".5", "0"})
        EXPECT_TRUE(TLDrawCommonTool::CheckStrIsDouble(TLString(text))) << text;
    for (const char* text : {"", " ", "1,2", "12a", "inf", "-nan", "0x1A", "- 1", "1 2", "e5"})
        EXPECT_FALSE(TLDrawCommonTool::CheckStrIsDouble(TLString(text))) << text;
}

TEST(LengthText, IsOneSignedNumberAndReadsAsZeroOtherwise) {
    const std::pair<const char*, double> lengths[] = {{"12.5", 12.5}, {" 0 ", 0.0}, {"-5", -5.0}};
    for (const auto& [text, value] : lengths) {
        EXPECT_TRUE(TLDrawCommonTool::CheckStrIsLength(TLString(text))) << text;
        double length = 99.0;
        TLDrawCommonTool::GetLenFromStr(TLString(text), length);
        EXPECT_EQ(length, value) << text;
    }
    for (const char* text : {"", "abc", "5m", "1,2"}) {
        EXPECT_FALSE(TLDrawCommonTool::CheckStrIsLength(TLString(text))) << text;
        double length = 99.0;
        TLDrawCommonTool::GetLenFromStr(TLString(text), length);
        EXPECT_EQ(length, 0.0) << text;
    }
}
