#include <gtest/gtest.h>

#include "SldShape.h"
#include "export/TLSldPaintWriter.h"

namespace TMObjects {
namespace {

class SldPaint : public ::testing::Test {
protected:
    QString stroke(int pen, double width, int join, int cap, const QVector<double>& dashes,
                   double offset, double opacity) {
        QDomElement element = mDocument.createElement("s");
        mPaint.writeStroke(element, pen, QColor(255, 0, 0), width, join, cap, dashes, offset,
                           opacity);
        return shapeOf(element);
    }
    QString fill(int brush, const QColor& color, double opacity) {
        QDomElement element = mDocument.createElement("f");
        mPaint.writeFill(element, brush, color, opacity);
        return shapeOf(element);
    }

    QDomDocument mDocument;
    TLSldPaintWriter mPaint{mDocument};
};

QString css(const QString& name, const QString& value) {
    return "sld:CssParameter[name=" + name + "]'" + value + "'";
}

TEST_F(SldPaint, PenStylesChooseTheDashList) {
    const int none = TLSldPaintWriter::NoJoin;
    EXPECT_EQ(stroke(0, 2, 0, 0, {}, 0, 1), "s");
    EXPECT_EQ(stroke(2, 2, none, none, {}, 0, 1), "s(" + css("stroke", "#ff0000") + "," +
                                                      css("stroke-width", "2") + "," +
                                                      css("stroke-dasharray", "4 2") + ")");
    EXPECT_EQ(stroke(5, 0, none, none, {}, 0, 1),
              "s(" + css("stroke-dasharray", "4 2 1 2 1 2") + ")");
    EXPECT_EQ(
        stroke(6, 0, none, none, {1.5, 2.25}, 3.6, 1),
        "s(" + css("stroke-dasharray", "1.5 2.25") + "," + css("stroke-dashoffset", "4") + ")");
    EXPECT_EQ(stroke(7, 2, 0, 0, {}, 0, 1), "s(<!--Qt::BrushStyle '7'' not supported yet-->)");
}

TEST_F(SldPaint, StrokeWritesJoinsCapsAndWholeOpacity) {
    EXPECT_EQ(stroke(1, 1.005, 128, 99, {}, 0, 0.5),
              "s(" + css("stroke", "#ff0000") + "," + css("stroke-opacity", "0") + "," +
                  css("stroke-width", "1") + "," + css("stroke-linejoin", "round") + "," +
                  css("stroke-linecap", "") + ")");
    EXPECT_EQ(stroke(3, 0.5, 64, 16, {}, 1e-17, 1),
              "s(" + css("stroke", "#ff0000") + "," + css("stroke-width", "0.5") + "," +
                  css("stroke-linejoin", "bevel") + "," + css("stroke-linecap", "square") + "," +
                  css("stroke-dasharray", "1 2") + ")");
}

TEST_F(SldPaint, BrushesFillPlainlyOrWithMarks) {
    EXPECT_EQ(fill(0, QColor(1, 2, 3), 0.5), "f");
    EXPECT_EQ(fill(1, QColor(), 0.25), "f(" + css("fill-opacity", "0.25") + ")");
    EXPECT_EQ(fill(3, QColor(0, 255, 0), 1),
              "f(sld:GraphicFill(sld:Graphic(sld:Mark(sld:WellKnownName'brush://dense2',sld:Fill(" +
                  css("fill", "#00ff00") + ")))))");
    // Hatches are stroked, but with no width the stroke is not written.
    EXPECT_EQ(fill(12, QColor(0, 255, 0), 1),
              "f(sld:GraphicFill(sld:Graphic(sld:Mark(sld:WellKnownName'slash'))))");
    EXPECT_EQ(fill(15, QColor(0, 255, 0), 1), "f(<!--Qt::BrushStyle '15'' not supported yet-->)");
}

}  // namespace
}  // namespace TMObjects
