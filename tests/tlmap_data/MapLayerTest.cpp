#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DataTestSupport.h"
#include "tlmap/TLFeatureRender.h"
#include "tlmap/TLLayerEditBuffer.h"

namespace TMObjects::testing {
namespace {

TLRefPtr<TLFeatureLayer> Layer(const char* name, TLRefPtr<TLCoordinateSystem> reference = nullptr) {
    return TLRefPtr<TLFeatureLayer>(
        TLFeatureLayer::CreateMemoryLayer(name, TLLayer::PolygonLayer, SampleFields(), reference));
}

std::vector<std::string> Names(const TLMap& map) {
    std::vector<std::string> names;
    for (const auto& layer : map.GetLayers(true))
        names.push_back(layer->GetLayerName().toStdString());
    return names;
}

TEST(MapLayers, InsertPositionsIdsAndLookups) {
    TLRefPtr<TLMap> map(new TLMap());
    TLRefPtr<TLFeatureLayer> a = Layer("a"), b = Layer("b"), c = Layer("c"), d = Layer("d");
    EXPECT_LT(a->GetLayerId(), b->GetLayerId());
    EXPECT_LT(b->GetLayerId(), c->GetLayerId());

    std::vector<int> added;
    map->layerAdded.bind("t", [&](void*, TLEvent* e) { added.push_back(e->GetData().GetInt32()); });
    EXPECT_TRUE(map->InsertLayer(-1, a.get(), true));
    EXPECT_TRUE(map->InsertLayer(-1, b.get(), true));
    EXPECT_TRUE(map->InsertLayer(0, c.get(), false));
    EXPECT_TRUE(map->InsertLayer(17, d.get(), true));  // past the end appends
    EXPECT_FALSE(map->InsertLayer(0, a.get(), true));  // already there
    EXPECT_FALSE(map->InsertLayer(0, nullptr, true));
    map->Sort();
    EXPECT_EQ(Names(*map), (std::vector<std::string>{"c", "a", "b", "d"}));
    EXPECT_EQ(added, (std::vector<int>{a->GetLayerId(), b->GetLayerId(), d->GetLayerId()}));
    EXPECT_EQ(map->GetLayerCount(), 4);
    EXPECT_EQ(a->GetMap(), map.get());

    EXPECT_EQ(map->GetLayerByID(b->GetLayerId()).get(), b.get());
    EXPECT_TRUE(map->GetLayerByID(-5).IsNull());
    EXPECT_EQ(map->GetLayerByName("D").get(), d.get());
    EXPECT_TRUE(map->GetLayerByName("e").IsNull());
    b->SetVisible(false);
    EXPECT_EQ(map->GetLayers(false).size(), 3u);
}

TEST(MapLayers, CurrentLayerAndRemovalAreSignalled) {
    TLRefPtr<TLMap> map(new TLMap());
    TLRefPtr<TLFeatureLayer> a = Layer("a"), b = Layer("b");
    map->InsertLayer(-1, a.get(), true);
    map->InsertLayer(-1, b.get(), true);
    map->editor()->set_edit_layer(a.get());

    std::vector<int> current, removed;
    map->currentLayerChanged.bind("current", [&](void* sender, TLEvent* e) {
        EXPECT_EQ(sender, map.get());
        current.push_back(e->GetData().GetInt32());
    });
    map->layerRemoved.bind("removed", [&](void*, TLEvent* e) {
        removed.push_back(e->GetData().GetInt32());
        EXPECT_TRUE(map->GetLayerByID(e->GetData().GetInt32()).IsNull());
    });
    map->SetCurrentLayer(a.get());
    map->SetCurrentLayer(a.get());  // no change, no signal
    map->SetCurrentLayer(b.get());
    map->SetCurrentLayer(a.get());
    EXPECT_TRUE(map->RemoveLayer(a.get()));
    EXPECT_FALSE(map->RemoveLayer(a.get()));
    EXPECT_FALSE(map->RemoveLayer(nullptr));

    EXPECT_EQ(current, (std::vector<int>{a->GetLayerId(), b->GetLayerId(), a->GetLayerId(), -1}));
    EXPECT_EQ(removed, std::vector<int>{a->GetLayerId()});
    EXPECT_TRUE(map->GetCurrentLayer().IsNull());
    EXPECT_EQ(map->editor()->edit_layer(), nullptr);
    EXPECT_EQ(a->GetMap(), nullptr);
    EXPECT_EQ(Names(*map), std::vector<std::string>{"b"});

    // The layer outlives the map that held it without reaching back into it.
    map = nullptr;
    EXPECT_EQ(b->GetMap(), nullptr);
}

TEST(MapLayers, HandlersMayUnbindWhileTheSignalRuns) {
    TLEventSignal signal;
    std::vector<std::string> calls;
    signal.bind("1 first", [&](void*, TLEvent*) {
        calls.push_back("first");
        signal.unbind("1 first");  // a tool leaving in its own handler
    });
    signal.bind("2 second", [&](void*, TLEvent*) {
        calls.push_back("second");
        signal.unbind("3 third");  // and one handler dropping another
    });
    signal.bind("3 third", [&](void*, TLEvent*) { calls.push_back("third"); });
    TLEvent event;
    signal.emit(nullptr, &event);
    signal.emit(nullptr, &event);
    EXPECT_EQ(calls, (std::vector<std::string>{"first", "second", "second"}));
    EXPECT_EQ(signal.bindingCount(), 1);
    EXPECT_TRUE(signal.isBound("2 second"));
}

TEST(MapLayers, DisplayUnitAndFullExtentInTheMapsSystem) {
    TLRefPtr<TLMap> map(new TLMap());
    EXPECT_EQ(map->GetMapDisplayUnit(), TLUnitUnknown);
    EXPECT_TRUE(map->GetFullExtent().IsEmpty());
    TLRefPtr<TLCoordinateSystem> wgs84 = TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:4326");
    TLRefPtr<TLCoordinateSystem> mercator =
        TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:3857");
    ASSERT_TRUE(wgs84 && mercator);
    map->SetSpatialReference(wgs84);
    EXPECT_EQ(map->GetMapDisplayUnit(), TLUnitDegree);
    map->SetSpatialReference(mercator);
    EXPECT_EQ(map->GetMapDisplayUnit(), TLUnitMeter);

    TLRefPtr<TLFeatureLayer> degrees = Layer("degrees", wgs84);
    TLFeature f = MakeFeature("POLYGON ((10 50, 11 50, 11 51, 10 51, 10 50))", "cell", 1);
    degrees->layer_edit_buffer()->AddFeature(f, false, true);
    map->InsertLayer(-1, degrees.get(), false);
    const TLRect extent = map->GetFullExtent();
    EXPECT_NEAR(extent.XMinimum(), 1113194.908, 0.01);
    EXPECT_NEAR(extent.XMaximum(), 1224514.399, 0.01);
    EXPECT_NEAR(extent.YMinimum(), 6446275.841, 0.01);
    EXPECT_NEAR(extent.YMaximum(), 6621293.723, 0.01);

    // A layer without a system is taken as it stands.
    TLRefPtr<TLFeatureLayer> plain = Layer("plain");
    TLFeature g = MakeFeature("POLYGON ((0 0, 1 0, 1 1, 0 0))", "tiny", 2);
    plain->layer_edit_buffer()->AddFeature(g, false, true);
    map->InsertLayer(-1, plain.get(), false);
    EXPECT_EQ(map->GetFullExtent().XMinimum(), 0.0);
    EXPECT_NEAR(map->GetFullExtent().YMaximum(), 6621293.723, 0.01);
}

TEST(MapLayers, MemoryLayerAndLayerServices) {
    TLRefPtr<TLCoordinateSystem> wgs84 = TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:4326");
    TLRefPtr<TLFeatureLayer> scratch(TLFeatureLayer::CreateMemoryLayer(
        "MeasurePointLayer", TLLayer::PointLayer, TLFields(), wgs84));
    EXPECT_NE(dynamic_cast<TLMemoryFeatureLayer*>(scratch.get()), nullptr);
    EXPECT_EQ(scratch->GetLayerName(), TLString("MeasurePointLayer"));
    EXPECT_EQ(scratch->GetLayerType(), TLLayer::PointLayer);
    EXPECT_TRUE(scratch->IsEditable());
    EXPECT_NE(scratch->IsValid(), 0);
    EXPECT_EQ(scratch->GetDatasource()->GetWorkspaceType(), TLString("Memory"));
    EXPECT_EQ(scratch->GetDatasource()->GetFields().GetFieldCount(), 0);
    EXPECT_TRUE(scratch->GetExtent().IsEmpty());

    TLFeature p;
    p.SetGeometry(Wkt("POINT (3 4)"));
    scratch->layer_edit_buffer()->AddFeature(p, true, true);
    scratch->layer_edit_buffer()->AddFeature(p, true, true);  // the same feature again: a new id
    EXPECT_EQ(scratch->GetDatasource()->GetIds(), (std::vector<int>{1, 2}));
    EXPECT_EQ(scratch->GetExtent(), TLRect(3, 3, 4, 4));
    EXPECT_TRUE(scratch->SaveEdits());
    EXPECT_FALSE(scratch->GetDatasource()->IsDirty());

    EXPECT_TRUE(scratch->IsSameCoordinateSystem(wgs84.get()));
    TLRefPtr<TLCoordinateSystem> again = TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:4326");
    EXPECT_TRUE(scratch->IsSameCoordinateSystem(again.get()));
    TLRefPtr<TLCoordinateSystem> mercator =
        TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:3857");
    EXPECT_FALSE(scratch->IsSameCoordinateSystem(mercator.get()));
    EXPECT_FALSE(scratch->IsSameCoordinateSystem(nullptr));
    EXPECT_TRUE(Layer("none")->IsSameCoordinateSystem(nullptr));

    EXPECT_EQ(scratch->GetSymbolRender()->GetRenderKind(), TLFeatureRender::SingleSymbol);
    TLRefPtr<TLFeatureRender> render(new TLFeatureRender());
    scratch->SetSymbolRender(render);
    EXPECT_EQ(scratch->GetSymbolRender().get(), render.get());

    // A layer made without a table still works, with an empty one.
    TLRefPtr<TLFeatureLayer> bare(new TLFeatureLayer("bare", TLLayer::LineLayer, nullptr, nullptr));
    EXPECT_NE(bare->IsValid(), 0);
    EXPECT_EQ(bare->GetDatasource()->GetFeatureCount(), 0);
    EXPECT_TRUE(bare->SelectFeatures(TLQueryFilter(), 0, 0));
    EXPECT_FALSE(bare->HasSelectedFeatures());
}

TEST(MapLayers, LayerBracketUsesTheMapsEditor) {
    EditFixture fx;
    fx.table().Load(MakeFeature("LINESTRING (0 0, 1 1)", "a", 1, 1));
    fx.layer->StartOperation(nullptr);
    fx.buffer()->changeGeometry(1, Wkt("LINESTRING (0 0, 2 2)"), false);
    // A tool that forgets its commit: the next start closes the step it left open.
    fx.layer->StartOperation(nullptr);
    fx.buffer()->changeGeometry(1, Wkt("LINESTRING (0 0, 3 3)"), false);
    EXPECT_TRUE(fx.layer->CommitOperation());
    EXPECT_FALSE(fx.layer->CommitOperation());
    EXPECT_FALSE(fx.editor()->IsOperationOpen());
    EXPECT_EQ(fx.editor()->UndoCount(), 2);
    EXPECT_EQ(fx.editor()->UndoLabel(), TLString("edit features"));
    ASSERT_TRUE(fx.editor()->Undo());
    EXPECT_EQ(WktOf(fx.table().PeekFeature(1)->GetGeometry()), "LINESTRING (0 0, 2 2)");

    // Inside an open editor step the layer's bracket folds into it.
    fx.editor()->StartOperation("Edge matching");
    fx.layer->StartOperation(fx.editor());
    fx.buffer()->changeGeometry(1, Wkt("LINESTRING (0 0, 4 4)"), false);
    fx.layer->CommitOperation();
    EXPECT_TRUE(fx.editor()->IsOperationOpen());
    fx.editor()->CommitOperation(true);
    EXPECT_EQ(fx.editor()->UndoLabel(), TLString("Edge matching"));
}

}  // namespace
}  // namespace TMObjects::testing
