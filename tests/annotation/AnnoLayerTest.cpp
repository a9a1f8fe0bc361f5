#include <gtest/gtest.h>

#include "tlgeo/TLGeoPoint.h"
#include "tlgraphics/TLFont.h"
#include "tlmap/TLAnnoMgrTool.h"
#include "tlmap/TLAnnotationLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlsde/TLFeature.h"

namespace TMObjects {

namespace {

TLSize measure(const char* text, int type = TextSingleRow, int orientation = 0,
               double lineSpace = 0) {
    TLTextElement t;
    t.put_FontName("DejaVu Sans");
    t.put_FontHeight(20, TLTextElement::Pixels);
    t.put_Text(text);
    t.put_TextType(type);
    t.put_WordOrientation(orientation);
    t.put_LineSpace(lineSpace);
    return TLAnnoMgrTool::CalcAnnotationSize(t, nullptr);
}

}  // namespace

TEST(AnnoLayer, TheReferenceScaleIsNeverZero) {
    TLRefPtr<TLAnnotationLayer> layer(
        TLAnnotationLayer::CreateMemoryLayer("labels", TLFields(), nullptr, 2, 0.0, 13));
    EXPECT_EQ(layer->GetReferenceScale(), TLAnnotationLayer::kDefaultReferenceScale);
    EXPECT_FALSE(layer->SetReferenceScale(-5));
    EXPECT_FALSE(layer->SetReferenceScale(std::numeric_limits<double>::infinity()));
    EXPECT_TRUE(layer->SetReferenceScale(2500));
    EXPECT_EQ(layer->GetReferenceScale(), 2500.0);
    EXPECT_EQ(layer->GetLayerType(), TLLayer::AnnotationLayer);
    EXPECT_EQ(layer->annoFieldKind, 2);
    EXPECT_TRUE(layer->IsEditable());
}

TEST(AnnoLayer, TheRecordOfAFeatureIsKeptAndReadAfreshWhenDirty) {
    TLRefPtr<TLAnnotationLayer> layer(
        TLAnnotationLayer::CreateMemoryLayer("labels", TLFields(), nullptr, 1, 1000, 2));
    EXPECT_EQ(layer->GetAnnoTextElement(1), nullptr);
    TLFeature feature;
    TLRefPtr<TLGeoPoint> point(new TLGeoPoint);
    point->PutCoords(0, 0);
    feature.SetGeometry(point);
    feature.SetValue("TEXTSTRING", TLVariant(TLString("Old")));
    const int id = layer->GetDatasource()->Insert(feature);
    TLAnnotation* kept = layer->GetAnnoTextElement(id);
    ASSERT_NE(kept, nullptr);
    EXPECT_EQ(kept->get_Text().toStdString(), "Old");
    layer->layer_edit_buffer()->ChangeAttribute(id, "TEXTSTRING", TLVariant(TLString("New")),
                                                false);
    EXPECT_EQ(layer->GetAnnoTextElement(id)->get_Text().toStdString(), "Old");
    layer->SetAnnotationDirty(id, true);
    EXPECT_TRUE(layer->IsAnnotationDirty(id));
    EXPECT_EQ(layer->GetFreshTextElement(id)->get_Text().toStdString(), "New");
    EXPECT_FALSE(layer->IsAnnotationDirty(id));
}

TEST(AnnoSize, RowsStackAndColumnsStandSideBySide) {
    const TLSize one = measure("Ridge");
    ASSERT_GT(one.GetWidth(), 0);
    ASSERT_GT(one.GetHeight(), 0);
    const TLSize lines = measure("Ridge\nRidge");
    EXPECT_EQ(lines.GetWidth(), one.GetWidth());
    EXPECT_NEAR(lines.GetHeight(), 2 * one.GetHeight(), 1.0);
    const TLSize spaced = measure("Ridge\nRidge", TextSingleRow, 0, 10);
    EXPECT_NEAR(spaced.GetHeight(), lines.GetHeight() + 10, 1.0);
    // Several rows and fractions keep their rows apart with "||".
    EXPECT_EQ(measure("Ridge||Ridge", TextMultiRow).GetHeight(), lines.GetHeight());
    EXPECT_EQ(measure("3||4", TextFraction).GetHeight(), lines.GetHeight());
    const TLSize vertical = measure("Ridge", TextSingleRow, OrientationVertical);
    EXPECT_GT(vertical.GetHeight(), vertical.GetWidth());
}

TEST(AnnoSize, LetterSpacingWidensTheBox) {
    TLFont font;
    font.SetFamily("DejaVu Sans");
    font.SetHeight(20);
    const double plain = font.MeasureRows({TLString("Ridge")}, false, 0).GetWidth();
    font.SetLetterSpacing(4, 4);
    EXPECT_NEAR(font.MeasureRows({TLString("Ridge")}, false, 0).GetWidth(), plain + 5 * 4, 2.0);
}

TEST(AnnoFont, KnownLocalNamesHaveTheirEnglishName) {
    EXPECT_EQ(TLFont::GetEnglishNameForKnownFont(TLString(L"\u5b8b\u4f53")).toStdString(),
              "SimSun");
    EXPECT_EQ(TLFont::GetEnglishNameForKnownFont("dejavu sans").toStdString(), "DejaVu Sans");
    EXPECT_TRUE(TLFont::GetEnglishNameForKnownFont("No Such Font").isEmpty());
}

}  // namespace TMObjects
