#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "DataTestSupport.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLLayerEditBuffer.h"

namespace TMObjects::testing {
namespace {

TEST(EditBuffer, AddFeatureGivesIdsAndCoercesValuesToTheFields) {
    EditFixture fx;
    TLFeature plain;
    plain.SetGeometry(Wkt("LINESTRING (0 0, 1 0)"));
    fx.buffer()->AddFeature(plain, true, true);
    EXPECT_EQ(plain.GetId(), 1);

    // The id a feature carries is never kept: it may be one a deleted feature had.
    TLFeature chosen = MakeFeature("LINESTRING (0 0, 2 0)", "ten", 10, 10);
    fx.buffer()->AddFeature(chosen, true, true);
    EXPECT_EQ(chosen.GetId(), 2);

    TLFeature zero = MakeFeature("LINESTRING (0 0, 4 0)", "zero", 0, 0);
    fx.buffer()->AddFeature(zero, true, true);
    EXPECT_EQ(zero.GetId(), 3);
    EXPECT_EQ(fx.table().NextId(), 4);

    TLFeature typed;  // a tool's feature: no fields, values by name
    typed.SetGeometry(Wkt("LINESTRING (0 0, 5 0)"));
    typed.SetValue("code", TLVariant(TLString("42")));
    typed.SetValue("AREA", TLVariant(TLString("3.5")));
    typed.SetValue("DAY", TLVariant(TLString("2024-02-29")));
    typed.SetValue("NOSUCH", TLVariant(1.0));
    typed.SetValue("FID", TLVariant(77.0));
    fx.buffer()->AddFeature(typed, true, true);
    const TLFeature* stored = fx.table().PeekFeature(typed.GetId());
    ASSERT_NE(stored, nullptr);
    EXPECT_EQ(stored->GetValue("CODE").GetKind(), TLVariant::Int32);
    EXPECT_EQ(stored->GetValue("CODE").GetInt32(), 42);
    EXPECT_EQ(stored->GetValue("AREA"), TLVariant(3.5));
    EXPECT_EQ(stored->GetValue("DAY").GetKind(), TLVariant::Date);
    EXPECT_EQ(stored->GetValue("FID").GetInt32(), typed.GetId());  // the id field is the id
    EXPECT_TRUE(stored->GetValue("NOSUCH").IsNull());
    EXPECT_TRUE(stored->GetValue("NAME").IsNull());
    EXPECT_EQ(stored->Values().size(), 3u);

    // The table keeps its own copy: the tool's geometry may change afterwards.
    double* xy = nullptr;
    int count = 0;
    ASSERT_TRUE(typed.GetGeometry()->GetRawPoints(&xy, count));
    xy[0] = 99;
    EXPECT_EQ(WktOf(stored->GetGeometry()), "LINESTRING (0 0, 5 0)");
}

TEST(EditBuffer, EachFieldTypeCodeKeepsItsOwnKindOfValue) {
    // The codes the attribute tools switch on.
    EXPECT_EQ(int(TLField::FieldShort), 0);
    EXPECT_EQ(int(TLField::FieldInt), 1);
    EXPECT_EQ(int(TLField::FieldFloat), 2);
    EXPECT_EQ(int(TLField::FieldDouble), 3);
    EXPECT_EQ(int(TLField::FieldString), 4);
    EXPECT_EQ(int(TLField::FieldDate), 5);
    EXPECT_EQ(int(TLField::FieldInt64), 9);

    TLFields fields;
    fields.AddField("S", TLField::FieldShort);
    fields.AddField("I", TLField::FieldInt);
    fields.AddField("F", TLField::FieldFloat);
    fields.AddField("D", TLField::FieldDouble);
    fields.AddField("T", TLField::FieldString, 20);
    fields.AddField("W", TLField::FieldDate);
    fields.AddField("L", TLField::FieldInt64);
    TLRefPtr<TLFeatureLayer> layer(
        TLFeatureLayer::CreateMemoryLayer("all", TLLayer::PointLayer, fields, nullptr));

    // Values typed as text, the way the attribute editor hands them on.
    TLFeature f;
    f.SetGeometry(Wkt("POINT (1 2)"));
    for (const auto& [name, text] :
         std::vector<std::pair<const char*, const char*>>{{"S", "12"},
                                                          {"I", "70000"},
                                                          {"F", "0.1"},
                                                          {"D", "0.1"},
                                                          {"T", "42.5"},
                                                          {"W", "2024-02-29"},
                                                          {"L", "9007199254740993"}})
        f.SetValue(name, TLVariant(TLString(text)));
    layer->layer_edit_buffer()->AddFeature(f, false, true);
    TLRefPtr<TLFeature> stored = layer->GetFeature(f.GetId());
    ASSERT_TRUE(stored);

    EXPECT_EQ(stored->GetValue("S").GetShort(), 12);
    EXPECT_EQ(stored->GetValue("I").GetKind(), TLVariant::Int32);
    EXPECT_EQ(stored->GetValue("I").GetInt32(), 70000);
    EXPECT_EQ(stored->GetValue("F").GetDouble(), double(0.1f));  // single precision
    EXPECT_EQ(stored->GetValue("D").GetDouble(), 0.1);
    EXPECT_EQ(stored->GetValue("T"), TLVariant(TLString("42.5")));
    EXPECT_EQ(stored->GetValue("W").GetKind(), TLVariant::Date);
    EXPECT_EQ(stored->GetValue("L").GetKind(), TLVariant::Int64);
    EXPECT_EQ(stored->GetValue("L").GetInt64(), 9007199254740993LL);  // every digit kept
}

TEST(EditBuffer, WritesToMissingFeaturesOrFieldsOrOfShapesWithoutNumbersChangeNothing) {
    EditFixture fx;
    TLFeature f = MakeFeature("LINESTRING (0 0, 1 0)", "a", 1);
    fx.buffer()->AddFeature(f, true, true);
    const auto before = Contents(fx.table());
    const int steps = fx.editor()->UndoCount();

    fx.buffer()->DeleteFeature(42, true, true);
    fx.buffer()->changeGeometry(42, Wkt("LINESTRING (0 0, 1 1)"), false);
    fx.buffer()->changeGeometry(f.GetId(), nullptr, false);
    EXPECT_FALSE(fx.buffer()->ChangeAttribute(42, "NAME", TLVariant(TLString("x")), false));
    EXPECT_FALSE(fx.buffer()->ChangeAttribute(f.GetId(), "NOSUCH", TLVariant(1.0), false));
    EXPECT_FALSE(fx.buffer()->ChangeAttribute(f.GetId(), "FID", TLVariant(5.0), false));
    // All or nothing: the good name is not written when another is bad.
    EXPECT_FALSE(fx.buffer()->ChangeAttributes(
        f.GetId(), {{"NAME", TLVariant(TLString("x"))}, {"BAD", TLVariant(1.0)}}, false));
    // Writing back the value that is there is no change.
    EXPECT_TRUE(fx.buffer()->ChangeAttribute(f.GetId(), "CODE", TLVariant(TLString("1")), false));
    // A shape with a coordinate that is no number, as a circle through three points on one level
    // gives, is neither added nor set.
    TLRefPtr<TLGeoPolyline> broken(new TLGeoPolyline);
    broken->AddXY(0, 0);
    broken->AddXY(std::nan(""), 1);
    broken->EndEntity();
    TLFeature junk;
    junk.SetGeometry(broken);
    fx.buffer()->AddFeature(junk, true, true);
    EXPECT_EQ(junk.GetId(), -1);
    fx.buffer()->changeGeometry(f.GetId(), broken, false);

    EXPECT_EQ(Contents(fx.table()), before);
    EXPECT_EQ(fx.editor()->UndoCount(), steps);
    EXPECT_EQ(fx.buffer()->GetActiveEditFeatureByFeatureId(42), nullptr);
}

TEST(EditBuffer, ChangeGeometryAndAttributesAndDeleteThroughTheBuffer) {
    EditFixture fx;
    TLFeature f = MakeFeature("LINESTRING (0 0, 1 0)", "a", 1);
    fx.buffer()->AddFeature(f, true, true);
    const int id = f.GetId();

    TLRefPtr<TLGeometry> line = Wkt("LINESTRING (0 0, 8 8)");
    fx.buffer()->changeGeometry(id, line, false);
    double* xy = nullptr;
    int count = 0;
    ASSERT_TRUE(line->GetRawPoints(&xy, count));
    xy[2] = -3;  // the caller's geometry is not the table's
    EXPECT_TRUE(fx.buffer()->ChangeAttributes(
        id, {{"NAME", TLVariant(TLString("b"))}, {"AREA", TLVariant(TLString("0.5"))}}, false));
    TLFeatureEditBuffer* edit = fx.buffer()->GetActiveEditFeatureByFeatureId(id);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit, fx.buffer()->GetActiveEditFeatureByFeatureId(id));
    EXPECT_EQ(edit->GetId(), id);
    EXPECT_EQ(edit->GetValue("name"), TLVariant(TLString("b")));
    EXPECT_TRUE(edit->SetGeometry(Wkt("LINESTRING (1 1, 2 2)")));
    EXPECT_FALSE(edit->SetGeometry(nullptr));
    EXPECT_EQ(Contents(fx.table()).at(id),
              "LINESTRING (1 1, 2 2) | AREA=3:0.5 | CODE=1:1 | NAME=4:b");
    EXPECT_EQ(fx.table().SearchBounds(TLRect(1.5, 1.6, 1.5, 1.6)), std::vector<int>{id});
    EXPECT_TRUE(fx.table().SearchBounds(TLRect(7, 9, 7, 9)).empty());

    fx.buffer()->DeleteFeature(id, true, true);
    EXPECT_FALSE(fx.buffer()->FeatureInBuffer(id, false));
    EXPECT_TRUE(fx.buffer()->FeatureInBuffer(id, true));
    EXPECT_FALSE(fx.buffer()->FeatureInBuffer(id + 1, true));
    EXPECT_FALSE(edit->SetGeometry(Wkt("LINESTRING (1 1, 2 2)")));
    EXPECT_FALSE(edit->SetValue("NAME", TLVariant(TLString("gone"))));
    EXPECT_TRUE(edit->GetFeature().IsNull());
    EXPECT_EQ(fx.table().GetFeatureCount(), 0);
}

TEST(EditBuffer, NotifyFlagTellsTheLayerObservers) {
    EditFixture fx;
    struct Counter : TLLayerObserver {
        std::vector<int> hints;
        void OnLayerNotify(TLLayer*, int hint) override { hints.push_back(hint); }
    } counter;
    fx.layer->AddObserver(&counter);
    TLFeature f = MakeFeature("LINESTRING (0 0, 1 0)", "a", 1);
    fx.buffer()->AddFeature(f, true, true);
    fx.buffer()->changeGeometry(f.GetId(), Wkt("LINESTRING (0 0, 2 0)"), false);
    fx.buffer()->ChangeAttribute(f.GetId(), "CODE", TLVariant(3.0), true);
    fx.layer->ClearSelect(true);
    fx.layer->NotifyObservers(0);
    fx.layer->RemoveObserver(&counter);
    fx.buffer()->DeleteFeature(f.GetId(), true, true);
    EXPECT_EQ(counter.hints, (std::vector<int>{TLFeatureLayer::HintFeaturesChanged,
                                               TLFeatureLayer::HintFeaturesChanged,
                                               TLFeatureLayer::HintSelectionChanged, 0}));
}

}  // namespace
}  // namespace TMObjects::testing
