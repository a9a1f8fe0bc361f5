#include <stdexcept>
#include <vector>

#include "SessionFixture.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLLayerEditBuffer.h"

namespace TMObjects {
namespace {

// A tool that writes one feature and then fails before it commits, the way a tool that indexes
// past the end of its point list fails.
class HalfWritingTool : public TLTool {
public:
    explicit HalfWritingTool(TLFeatureLayer* layer) : mLayer(layer) {}
    bool OnMouseDown(TLMouseButton, int x, int y) override {
        TLEditor* editor = mBuddy->GetMapView()->GetMap()->editor();
        editor->StartOperation("add feature");
        TLFeature feature;
        feature.SetGeometry(TLRefPtr<TLGeometry>(new TLGeoPoint(x, y)));
        mLayer->layer_edit_buffer()->AddFeature(feature, true, true);
        std::vector<TLPoint> points;
        points.at(3);  // throws std::out_of_range
        editor->CommitOperation(true);
        return true;
    }
    bool OnMouseUp(TLMouseButton, int, int) override { return true; }

private:
    TLFeatureLayer* mLayer;
};

class Dispatcher : public SessionFixture {};

TEST_F(Dispatcher, AFailingToolLeavesNoHalfMadeStepAndTheHostGoesOn) {
    TLFeatureLayer* points = addLayer("wells", TLLayer::PointLayer);
    edit(points);

    // One good step before, to see that the rollback touches only the failed one.
    TLFeature kept;
    kept.SetGeometry(TLRefPtr<TLGeometry>(new TLGeoPoint(1, 1)));
    map->editor()->StartOperation("add feature");
    points->layer_edit_buffer()->AddFeature(kept, true, true);
    map->editor()->CommitOperation(true);

    TLRefPtr<TLTool> tool(new HalfWritingTool(points));
    dispatcher->Activate(tool.get());

    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 5, 5));
    EXPECT_FALSE(dispatcher->LastResult());
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_NE(dispatcher->LastFailure().find("range"), std::string::npos)
        << dispatcher->LastFailure();

    EXPECT_FALSE(map->editor()->IsOperationOpen());
    EXPECT_EQ(map->editor()->UndoCount(), 1);
    EXPECT_EQ(points->GetDatasource()->GetIds(), std::vector<int>{kept.GetId()});

    // The next event runs as usual and clears the failure.
    EXPECT_TRUE(dispatcher->MouseUp(TLLeftButton, 5, 5));
    EXPECT_TRUE(dispatcher->LastFailure().empty());
    EXPECT_EQ(failures.size(), 1u);
}

TEST_F(Dispatcher, TypedLinesGoToTheRegisteredToolOnly) {
    TLFeatureLayer* points = addLayer("wells", TLLayer::PointLayer);
    edit(points);
    EXPECT_FALSE(dispatcher->TypeLine("1,2")) << "nobody registered yet";

    pick("TLCmdDigitizePoint");
    EXPECT_TRUE(dispatcher->TypeLine("1,2"));
    dispatcher->Deactivate();
    EXPECT_EQ(buddy->RegisteredTool(), nullptr);
    EXPECT_FALSE(dispatcher->TypeLine("3,4"));
    EXPECT_EQ(points->GetDatasource()->GetFeatureCount(), 1);
}

}  // namespace
}  // namespace TMObjects
