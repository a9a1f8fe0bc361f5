#include <gtest/gtest.h>

#include "tlgeo/TLGeoPoint.h"
#include "tlmap/TLAnnoMgrTool.h"
#include "tlmap/TLAnnoStyleString.h"
#include "tlmap/TLAnnotationLayer.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMap.h"
#include "tlsde/TLFeature.h"

namespace TMObjects {

namespace {

// A record whose every attribute differs from a fresh one, with a font name that needs escaping.
TLAnnotation everyAttribute() {
    TLAnnotation a;
    a.put_Text(TLString("North; =Ridge%"));
    a.put_TextType(TextFraction);
    a.put_AnchorPoint(PositionRightDown);
    a.put_FontName(TLString("DejaVu;Sans=%"));
    a.put_FontHeight(13.0, TLTextElement::Points);
    a.put_FontWidth(7.25, TLTextElement::Pixels);
    a.put_FontWeight(700);
    a.put_FontItalic(ItalicLeft);
    a.put_FontUnderline(true);
    a.put_FontStrikeThrough(true);
    a.put_FontColor(0xFF123456u);
    a.put_FontAngle(-30.5);
    a.put_WordOrientation(OrientationVertical);
    a.put_LineSpace(2.5);
    a.put_WordSpace(1.25);
    a.put_TextHorizAlign(3);
    a.put_TextVertAlign(3);
    a.put_BackgroundStyle(BackgroundRoundedRectangleFrame);
    a.put_BackColor(0xFFABCDEFu);
    a.put_BoundColor(0xFF00FF00u);
    a.put_BoundWidth(3.0);
    a.put_FontPathWidth(1.5);
    a.put_FontPathColor(0xFF0000FFu);
    a.put_TextPos(500100.125, 5000200.25);
    a.put_Offset(-4.0, 6.5);
    a.put_ArrowHeadType(ArrowLineUnderline);
    a.SetGuideOffsetXY(12.5, -7.75);
    return a;
}

// Font sizes go through millimetres and may lose the last bit; everything else comes back exact.
void expectSameRecord(const TLAnnotation& written, TLAnnotation read) {
    EXPECT_DOUBLE_EQ(read.get_FontHeight(0), written.get_FontHeight(0));
    EXPECT_DOUBLE_EQ(read.get_FontWidth(0), written.get_FontWidth(0));
    read.put_FontHeight(written.get_FontHeight(0), 0);
    read.put_FontWidth(written.get_FontWidth(0), 0);
    EXPECT_TRUE(read.SameAs(written));
    EXPECT_EQ(read.get_Text().toStdString(), written.get_Text().toStdString());
    EXPECT_EQ(read.get_FontName().toStdString(), written.get_FontName().toStdString());
}

class AnnoFields : public ::testing::TestWithParam<int> {
protected:
    // A layer of the family, one annotation in it, the record written and read back.
    TLAnnotation roundTrip(int kind, const TLAnnotation& written) {
        map = TLRefPtr<TLMap>(new TLMap);
        layer = TLAnnotationLayer::CreateMemoryLayer("labels", TLFields(), nullptr, kind, 2000,
                                                     TLAnnotationLayer::AnnoGeoPoint);
        map->InsertLayer(0, layer, true);
        TLFeature feature;
        TLRefPtr<TLGeoPoint> point(new TLGeoPoint);
        point->PutCoords(1, 2);
        feature.SetGeometry(point);
        TLEditor* editor = map->editor();
        editor->set_edit_layer(layer);
        editor->StartOperation("Add Feature");
        layer->layer_edit_buffer()->AddFeature(feature, true, true);
        TLAnnoMgrTool::CopyZjInfoToField(
            kind, layer->layer_edit_buffer(), written,
            layer->layer_edit_buffer()->GetActiveEditFeatureByFeatureId(feature.GetId()));
        editor->CommitOperation(true);
        TLAnnotation read;
        TLAnnoMgrTool::SetZjInfoFromField(kind, read, *layer->GetFeature(feature.GetId()));
        return read;
    }

    TLRefPtr<TLMap> map;
    TLAnnotationLayer* layer = nullptr;
};

}  // namespace

TEST_P(AnnoFields, CopyThenSetGivesBackEveryAttribute) {
    const TLAnnotation written = everyAttribute();
    expectSameRecord(written, roundTrip(GetParam(), written));
}

TEST_P(AnnoFields, AFreshRecordComesBackFresh) {
    expectSameRecord(TLAnnotation(), roundTrip(GetParam(), TLAnnotation()));
}

INSTANTIATE_TEST_SUITE_P(EachFamily, AnnoFields, ::testing::Values(1, 2, 0));

TEST(AnnoFieldNames, EachFamilyKeepsItsQuantitiesWhereTheAdvancedToolLooks) {
    TLFields rv, tm;
    TLAnnoMgrTool::AddAnnotationFields(1, rv);
    TLAnnoMgrTool::AddAnnotationFields(2, tm);
    for (const char* name : {"FONTSIZE", "LEADING", "CSPACING", "ANGLE", "SUBCLASSID"})
        EXPECT_GE(rv.FindField(name), 0) << name;
    for (const char* name : {"GD", "TMZJKZ", "JG", "ZJFX", "ARRIDXOFFX", "ARRIDXOFFY"})
        EXPECT_GE(tm.FindField(name), 0) << name;
    EXPECT_LT(rv.FindField("TMZJKZ"), 0);
    EXPECT_LT(tm.FindField("FONTSIZE"), 0);
}

TEST(AnnoFieldNames, SizesAreStoredInMillimetres) {
    TLAnnotation a;
    a.put_FontHeight(96.0, TLTextElement::Pixels);
    TLFeature row;
    row.SetValue("GD", TLVariant(12.7));
    TLAnnotation read;
    TLAnnoMgrTool::SetZjInfoFromTmField(read, row);
    EXPECT_DOUBLE_EQ(read.get_FontHeight(TLTextElement::Pixels), 48.0);
    EXPECT_DOUBLE_EQ(TLAnnoStyleString::PixelsToMillimetres(96.0), 25.4);
}

TEST(AnnoStyleString, PacksWithItsHeadAndEscapesTheFontName) {
    TLAnnotation a;
    a.put_FontName("A;B=C%D");
    a.put_LineSpace(0.1);
    const std::string packed = TLAnnoStyleString::Pack(a).toStdString();
    EXPECT_EQ(packed.rfind("TMZJKZ1;TT=0;FN=A%3BB%3DC%25D;", 0), 0u) << packed;
    EXPECT_NE(packed.find(";LD=0.1;"), std::string::npos) << packed;
}

TEST(AnnoStyleString, ReadingIgnoresUnknownAndBrokenEntriesAndKeepsWhatIsMissing) {
    TLAnnotation a;
    a.put_FontWeight(700);
    a.put_LineSpace(9);
    ASSERT_TRUE(TLAnnoStyleString::Unpack("TMZJKZ1;LD=3;ZZ=1;broken;=5;AP=2", a));
    EXPECT_EQ(a.get_LineSpace(), 3.0);
    EXPECT_EQ(a.get_AnchorPoint(), 2);
    EXPECT_EQ(a.get_FontWeight(), 700);
    EXPECT_FALSE(TLAnnoStyleString::Unpack("font=Arial", a));
    EXPECT_EQ(a.get_LineSpace(), 3.0);
}

TEST(AnnoFieldNames, ARowLackingAFieldLeavesThatAttributeAlone) {
    TLAnnotation a;
    a.put_FontAngle(45);
    TLFeature row;
    row.SetValue("TEXTSTRING", TLVariant(TLString("Ridge")));
    TLAnnoMgrTool::SetZjInfoFromRvField(a, row);
    EXPECT_EQ(a.get_Text().toStdString(), "Ridge");
    EXPECT_EQ(a.get_FontAngle(), 45.0);
}

}  // namespace TMObjects
