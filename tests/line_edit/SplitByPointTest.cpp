#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "edit/TLToolInterrupt.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlgeo/TLGeometryWkt.h"

using namespace TMObjects;

namespace {

class Splitter : public TLToolInterrupt {
public:
    std::vector<std::string> atPoint(const char* wkt, TLPoint point, int index) {
        TLRefPtr<TLGeometry> line = TLGeometryWkt::FromWkt(wkt);
        std::vector<TLRefPtr<TLGeoPolyline>> pieces;
        SplitLineByPoint(static_cast<TLGeoPolyline*>(line.get()), point, index, 1.0, pieces);
        return text(pieces);
    }
    std::vector<std::string> atTwoPoints(const char* wkt, TLPoint first, TLPoint second) {
        TLRefPtr<TLGeometry> line = TLGeometryWkt::FromWkt(wkt);
        std::vector<TLRefPtr<TLGeoPolyline>> pieces;
        SplitLineByPoint(line.get(), first, second, 0.5, pieces);
        return text(pieces);
    }

private:
    static std::vector<std::string> text(const std::vector<TLRefPtr<TLGeoPolyline>>& pieces) {
        std::vector<std::string> out;
        for (const auto& piece : pieces) out.push_back(TLGeometryWkt::ToWkt(piece.get()));
        return out;
    }
};

using Pieces = std::vector<std::string>;

}  // namespace

TEST(SplitLineByPoint, OnePointMakesAFrontAndABack) {
    Splitter s;
    EXPECT_EQ(s.atPoint("LINESTRING (0 0, 10 0, 10 10)", {10, 4}, 1),
              (Pieces{"LINESTRING (0 0, 10 0, 10 4)", "LINESTRING (10 4, 10 10)"}));
}

TEST(SplitLineByPoint, EarlierPathsStayInFrontAndLaterOnesBehind) {
    Splitter s;
    EXPECT_EQ(s.atPoint("MULTILINESTRING ((0 0, 1 0), (0 5, 10 5), (0 9, 1 9))", {4, 5}, 2),
              (Pieces{"MULTILINESTRING ((0 0, 1 0), (0 5, 4 5))",
                      "MULTILINESTRING ((4 5, 10 5), (0 9, 1 9))"}));
}

TEST(SplitLineByPoint, ABreakOnAVertexKeepsASegmentOfNoLength) {
    Splitter s;
    EXPECT_EQ(s.atPoint("LINESTRING (0 0, 10 0, 20 0)", {10, 0}, 1),
              (Pieces{"LINESTRING (0 0, 10 0, 10 0)", "LINESTRING (10 0, 20 0)"}));
}

TEST(SplitLineByPoint, AClosedLineOpens) {
    Splitter s;
    EXPECT_EQ(s.atPoint("LINESTRING (0 0, 10 0, 10 10, 0 0)", {5, 0}, 0),
              (Pieces{"LINESTRING (0 0, 5 0)", "LINESTRING (5 0, 10 0, 10 10, 0 0)"}));
}

TEST(SplitLineByPoint, TwoPointsGiveThreePiecesInLineOrder) {
    Splitter s;
    const Pieces expected{"LINESTRING (0 0, 2 0)", "LINESTRING (2 0, 10 0, 10 3)",
                          "LINESTRING (10 3, 10 10)"};
    EXPECT_EQ(s.atTwoPoints("LINESTRING (0 0, 10 0, 10 10)", {2, 0}, {10, 3}), expected);
    EXPECT_EQ(s.atTwoPoints("LINESTRING (0 0, 10 0, 10 10)", {10, 3}, {2, 0}), expected);
}

TEST(SplitLineByPoint, TwoPointsOnOneSegmentAreOrderedFromItsStart) {
    Splitter s;
    const Pieces expected{"LINESTRING (0 0, 3 0)", "LINESTRING (3 0, 7 0)",
                          "LINESTRING (7 0, 10 0)"};
    EXPECT_EQ(s.atTwoPoints("LINESTRING (0 0, 10 0)", {7, 0}, {3, 0}), expected);
    EXPECT_EQ(s.atTwoPoints("LINESTRING (0 0, 10 0)", {3, 0}, {7, 0}), expected);
}

TEST(SplitLineByPoint, APointOffTheLineGivesNothing) {
    Splitter s;
    EXPECT_EQ(s.atTwoPoints("LINESTRING (0 0, 10 0)", {3, 0}, {7, 5}), Pieces{});
    EXPECT_EQ(s.atTwoPoints("POLYGON ((0 0, 10 0, 10 10, 0 0))", {3, 0}, {7, 0}), Pieces{});
}
