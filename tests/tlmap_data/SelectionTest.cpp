#include <gtest/gtest.h>

#include <vector>

#include "DataTestSupport.h"
#include "tlgeo/TLGeoEnvelope.h"
#include "tlmap/TLLayerEditBuffer.h"

namespace TMObjects::testing {
namespace {

using Ids = std::vector<int>;

TLQueryFilter BoxFilter(double x0, double y0, double x1, double y1) {
    TLQueryFilter f;
    f.SetFilterGeometry(TLRefPtr<TLGeometry>(new TLGeoEnvelope(x0, y0, x1, y1)));
    f.SetSpatialRel(TLSpatialRelIntersects);
    return f;
}

// Four lines at x = 0, 10, 20, 30, each ten units high, with codes 1 to 4.
TLRefPtr<TLFeatureLayer> Fence(const char* name) {
    TLRefPtr<TLFeatureLayer> layer(
        TLFeatureLayer::CreateMemoryLayer(name, TLLayer::LineLayer, SampleFields(), nullptr));
    for (int i = 0; i < 4; ++i) {
        const std::string x = std::to_string(10 * i);
        TLFeature f = MakeFeature("LINESTRING (" + x + " 0, " + x + " 10)", "post", i + 1);
        layer->layer_edit_buffer()->AddFeature(f, false, true);
    }
    return layer;
}

TEST(Selection, ModeZeroReplacesAndModeFourAdds) {
    TLRefPtr<TLFeatureLayer> layer = Fence("fence");
    EXPECT_FALSE(layer->HasSelectedFeatures());
    EXPECT_TRUE(layer->SelectFeatures(BoxFilter(-1, 4, 11, 6), 0, 0));
    EXPECT_EQ(layer->GetSelectedIds(), (Ids{1, 2}));
    EXPECT_TRUE(layer->SelectFeatures(BoxFilter(29, 4, 31, 6), 4, 0));
    EXPECT_EQ(layer->GetSelectedIds(), (Ids{1, 2, 4}));
    EXPECT_TRUE(layer->SelectFeatures(BoxFilter(9, 4, 21, 6), 4, 0));  // 2 again: no doubles
    EXPECT_EQ(layer->GetSelectedIds(), (Ids{1, 2, 3, 4}));
    EXPECT_EQ(layer->SelectedFeatureCount(), 4);

    TLQueryFilter byCode;
    byCode.SetWhereClause("CODE >= 3");
    EXPECT_TRUE(layer->SelectFeatures(byCode, 0, 0));
    EXPECT_EQ(layer->GetSelectedIds(), (Ids{3, 4}));
    EXPECT_EQ(layer->Get_SelFeaIDs_Val(0), 3);
    EXPECT_EQ(layer->Get_SelFeaIDs_Val(1), 4);
    EXPECT_EQ(layer->Get_SelFeaIDs_Val(2), -1);
    EXPECT_EQ(layer->Get_SelFeaIDs_Val(-1), -1);

    // A miss in replace mode empties the selection.
    EXPECT_TRUE(layer->SelectFeatures(BoxFilter(100, 100, 101, 101), 0, 0));
    EXPECT_FALSE(layer->HasSelectedFeatures());

    // A layer that may not be picked from keeps what it has.
    layer->AddSelect(1);
    layer->SetSelectable(false);
    EXPECT_FALSE(layer->SelectFeatures(BoxFilter(-100, -100, 100, 100), 0, 0));
    EXPECT_EQ(layer->GetSelectedIds(), (Ids{1}));
}

TEST(Selection, SetsCarryLayerIdAndACopyOfTheGeometry) {
    TLRefPtr<TLFeatureLayer> layer = Fence("fence");
    layer->SelectFeatures(BoxFilter(15, 0, 35, 1), 0, 0);
    TLRefPtr<TLFeatureSelectionSet> set = layer->GetSelection();
    ASSERT_EQ(set->GetCount(), 2);
    EXPECT_TRUE(set->GetFeature(-1).IsNull());
    EXPECT_TRUE(set->GetFeature(2).IsNull());
    TLRefPtr<TLSelectFeature> first = set->GetFeature(0);
    EXPECT_EQ(first->GetLayer(), layer.get());
    EXPECT_EQ(first->GetOID(), 3);
    EXPECT_EQ(WktOf(first->GetGeometry()), "LINESTRING (20 0, 20 10)");
    EXPECT_DOUBLE_EQ(first->GetLength(), 10.0);
    EXPECT_EQ(set->GetFeature(1)->GetOID(), 4);

    double* xy = nullptr;
    int count = 0;
    ASSERT_TRUE(first->GetGeometry()->GetRawPoints(&xy, count));
    xy[0] = 500;  // projecting or flashing the copy leaves the layer alone
    EXPECT_EQ(WktOf(layer->GetFeature(3)->GetGeometry()), "LINESTRING (20 0, 20 10)");
}

TEST(Selection, AddClearAndDeletedFeaturesLeavingTheSelection) {
    TLRefPtr<TLMap> map(new TLMap());
    TLRefPtr<TLFeatureLayer> layer = Fence("fence");
    map->InsertLayer(0, layer.get(), false);
    TLRefPtr<TLFeature> three = layer->GetFeature(3);
    ASSERT_TRUE(three);
    EXPECT_TRUE(layer->AddSelect(three.get(), false));
    EXPECT_TRUE(layer->AddSelect(1));
    EXPECT_FALSE(layer->AddSelect(nullptr, false));
    EXPECT_FALSE(layer->AddSelect(99));
    EXPECT_EQ(layer->GetSelectedIds(), (Ids{1, 3}));
    EXPECT_TRUE(layer->IsSelected(3));

    layer->layer_edit_buffer()->DeleteFeature(3, true, true);
    EXPECT_EQ(layer->GetSelectedIds(), (Ids{1}));
    EXPECT_EQ(layer->GetSelection()->GetCount(), 1);
    // Undo brings the feature back, not its selection.
    ASSERT_TRUE(map->editor()->Undo());
    EXPECT_TRUE(layer->GetDatasource()->HasFeature(3));
    EXPECT_EQ(layer->GetSelectedIds(), (Ids{1}));

    EXPECT_TRUE(layer->ClearSelect(false));
    EXPECT_EQ(layer->SelectedFeatureCount(), 0);
    EXPECT_EQ(layer->GetSelection()->GetCount(), 0);
}

TEST(Selection, MapSelectionRunsOverAllLayersInOrder) {
    TLRefPtr<TLMap> map(new TLMap());
    TLRefPtr<TLFeatureLayer> lower = Fence("lower");
    TLRefPtr<TLFeatureLayer> upper = Fence("upper");
    TLRefPtr<TLFeatureLayer> idle = Fence("idle");
    map->InsertLayer(-1, lower.get(), true);
    map->InsertLayer(-1, idle.get(), true);
    map->InsertLayer(0, upper.get(), true);
    lower->SelectFeatures(BoxFilter(-1, 0, 1, 1), 0, 0);
    upper->SelectFeatures(BoxFilter(19, 0, 31, 1), 0, 0);

    TLRefPtr<TLFeatureSelectionSet> all = map->GetAllSelection();
    ASSERT_EQ(all->GetCount(), 3);
    EXPECT_EQ(all->GetFeature(0)->GetLayer(), upper.get());
    EXPECT_EQ(all->GetFeature(0)->GetOID(), 3);
    EXPECT_EQ(all->GetFeature(1)->GetLayer(), upper.get());
    EXPECT_EQ(all->GetFeature(1)->GetOID(), 4);
    EXPECT_EQ(all->GetFeature(2)->GetLayer(), lower.get());
    EXPECT_EQ(all->GetFeature(2)->GetOID(), 1);

    EXPECT_EQ(TLSelectionEnvironment::Instance(), TLSelectionEnvironment::Instance());
}

}  // namespace
}  // namespace TMObjects::testing
