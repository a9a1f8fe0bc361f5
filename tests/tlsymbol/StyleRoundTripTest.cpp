// Every kind of style saved and opened again through the byte stream of the symbol library.
#include <gtest/gtest.h>

#include <set>

#include "StyleSamples.h"
#include "tlsymbol/TLFileFunc.h"
#include "tlsymbol/TLStyleCharacterPoint.h"
#include "tlsymbol/TLStyleFactory.h"
#include "tlsymbol/TLStyleMultiLayer.h"
#include "tlsymbol/TLStylePatternLine.h"
#include "tlsymbol/TLStylePointDecorateLine.h"
#include "tlsymbol/TLStyleSVGPoint.h"
#include "tlsymbol/TLStyleSimpleLine.h"
#include "tlsymbol/TLStyleSimplePoint.h"

namespace TMObjects {
namespace {

TLRefPtr<TLStyle> reopened(const TLRefPtr<TLStyle>& style) {
    TLFileFunc file(SavedBytes(style));
    TLRefPtr<TLStyle> back;
    EXPECT_TRUE(TLStyleFactory::Open(file, back));
    EXPECT_TRUE(file.AtEnd());
    return back;
}

TEST(StyleRoundTrip, EveryKindComesBackAsItWasSaved) {
    std::set<int> kinds;
    for (const TLRefPtr<TLStyle>& style : SampleStyles()) {
        const TLRefPtr<TLStyle> back = reopened(style);
        ASSERT_TRUE(back) << style->GetName().toStdString();
        EXPECT_EQ(back->GetTypeID(), style->GetTypeID());
        EXPECT_EQ(back->GetClassType(), style->GetClassType());
        EXPECT_EQ(back->GetName(), style->GetName());
        EXPECT_EQ(SavedBytes(back), SavedBytes(style)) << style->GetName().toStdString();
        kinds.insert(style->GetTypeID());
    }
    EXPECT_EQ(kinds, (std::set<int>{1, 4, 5, 6, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 27}));
}

TEST(StyleRoundTrip, ValuesAndNestingAreRead) {
    const std::vector<TLRefPtr<TLStyle>> samples = SampleStyles();
    const auto marker = reopened(samples[0]).dynamicCast<TLStyleSimplePoint>();
    ASSERT_TRUE(marker);
    EXPECT_EQ(marker->GetShapeType(), TLStyleSimplePoint::Triangle);
    EXPECT_EQ(marker->GetColor(), TLColor(255, 0, 0));
    EXPECT_EQ(marker->GetOutlineColor().getA(), 200);
    EXPECT_EQ(marker->GetUnits(), TLStyleLength::Point);
    EXPECT_EQ(marker->GetDegree(), -12.5);
    EXPECT_EQ(marker->GetHeight(), 1e-3);

    const auto glyph = reopened(samples[1]).dynamicCast<TLStyleCharacterPoint>();
    ASSERT_TRUE(glyph);
    EXPECT_EQ(glyph->GetFontName(), TLString("DejaVu Sans 宋体"));
    EXPECT_EQ(glyph->GetCharIndex(), 0x4E2D);

    const auto svg = reopened(samples[3]).dynamicCast<TLStyleSVGPoint>();
    int kind = 0;
    TLString file, content;
    svg->GetSvgSrc(kind, file, content);
    EXPECT_EQ(kind, 2);
    EXPECT_EQ(file, TLString("/symbols/tree.svg?fill=green"));
    EXPECT_EQ(content, TLString("<svg/>"));

    const auto pattern = reopened(samples[6]).dynamicCast<TLStylePatternLine>();
    EXPECT_EQ(pattern->GetSteps(), (std::vector<double>{2, 8, 0.5, 1e300}));

    const auto dotted = reopened(samples[7]).dynamicCast<TLStylePointDecorateLine>();
    const auto layers = dotted->GetDecorateStyle().dynamicCast<TLStyleMultiLayer>();
    ASSERT_TRUE(layers);
    ASSERT_EQ(layers->GetLayerCount(), 2);
    EXPECT_EQ(layers->GetLayer(1)->GetTypeID(), TLStyle::CharacterPointType);
    EXPECT_EQ(dotted->GetPlacementType(), 1);

    const auto empty = reopened(samples.back()).dynamicCast<TLStyleMultiLayer>();
    ASSERT_TRUE(empty);
    EXPECT_EQ(empty->GetClassType(), TLStyle::LineClass);
    EXPECT_EQ(empty->GetLayerCount(), 0);
}

TEST(StyleRoundTrip, DamagedStreamsAreRefusedAtEveryCut) {
    const std::string bytes = SavedBytes(SampleStyles()[14]);
    // Every cut short of the end fails; none of them crashes or reads past its bytes.
    for (size_t length = 0; length < bytes.size(); ++length) {
        TLFileFunc file(bytes.substr(0, length));
        TLRefPtr<TLStyle> style;
        EXPECT_FALSE(TLStyleFactory::Open(file, style) && file.AtEnd()) << length;
    }
    // An unknown kind, a family that does not match the kind, a huge count.
    TLFileFunc unknown;
    unknown.WriteInt(99);
    unknown.WriteInt(0);
    TLRefPtr<TLStyle> style;
    TLFileFunc readUnknown(unknown.Bytes());
    EXPECT_FALSE(TLStyleFactory::Open(readUnknown, style));
    std::string mismatched = SavedBytes(SampleStyles()[4]);
    mismatched[4] = 0;  // a simple line said to be a point style
    TLFileFunc readMismatched(mismatched);
    EXPECT_FALSE(TLStyleFactory::Open(readMismatched, style));
    TLFileFunc huge;
    huge.WriteInt(0x7fffffff);
    std::vector<double> values;
    TLFileFunc readHuge(huge.Bytes());
    EXPECT_FALSE(readHuge.ReadDoubles(values));
    TLString text;
    TLFileFunc readHugeText(huge.Bytes());
    EXPECT_FALSE(readHugeText.ReadString(text));
}

TEST(StyleRoundTrip, NestingTooDeepIsDamageNotARecursion) {
    TLRefPtr<TLStyle> style(new TLStyleMultiLayer(TLStyle::LineClass));
    for (int i = 0; i < 100; ++i) {
        TLRefPtr<TLStyleMultiLayer> outer(new TLStyleMultiLayer(TLStyle::LineClass));
        outer->AddLayer(style);
        style = outer;
    }
    TLFileFunc file(SavedBytes(style));
    TLRefPtr<TLStyle> back;
    EXPECT_FALSE(TLStyleFactory::Open(file, back));
}

}  // namespace
}  // namespace TMObjects
