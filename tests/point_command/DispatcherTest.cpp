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

// A tool that opens an operation inside another, as a command calling a helper does, writes, and
// then fails with something that is no standard exception. It takes typed lines.
class NestedThrowingTool : public TLTool {
public:
    explicit NestedThrowingTool(TLFeatureLayer* layer) : mLayer(layer) {}
    void activate() override {
        TLTool::activate();
        mBuddy->RegisterTool("NestedThrowing", this, true);
    }
    bool processChildCmd(TLString text) override {
        TLEditor* editor = mBuddy->GetMapView()->GetMap()->editor();
        editor->StartOperation("outer");
        editor->StartOperation("inner");
        TLFeature feature;
        feature.SetGeometry(TLRefPtr<TLGeometry>(new TLGeoPoint(1, 2)));
        mLayer->layer_edit_buffer()->AddFeature(feature, true, true);
        if (text == TLString("fail")) throw 42;
        editor->CommitOperation(true);
        editor->CommitOperation(true);
        return true;
    }

private:
    TLFeatureLayer* mLayer;
};

// A tool that writes and returns with its step still open, as a tool does that gives up half-way
// through a write without an exception.
class UnclosedTool : public TLTool {
public:
    explicit UnclosedTool(TLFeatureLayer* layer) : mLayer(layer) {}
    bool OnMouseDown(TLMouseButton, int x, int y) override {
        mBuddy->GetMapView()->GetMap()->editor()->StartOperation("interrupt");
        TLFeature feature;
        feature.SetGeometry(TLRefPtr<TLGeometry>(new TLGeoPoint(x, y)));
        mLayer->layer_edit_buffer()->AddFeature(feature, true, true);
        return true;
    }

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

TEST_F(Dispatcher, AnyFailureOfATypedLineClosesEveryOpenLevelAndIsReported) {
    TLFeatureLayer* points = addLayer("wells", TLLayer::PointLayer);
    edit(points);
    std::vector<std::string> entries;
    dispatcher->SetFailureListener(
        [&](const std::string&, const std::string& entry) { entries.push_back(entry); });
    TLRefPtr<TLTool> tool(new NestedThrowingTool(points));
    dispatcher->Activate(tool.get());

    EXPECT_FALSE(dispatcher->TypeLine("fail"));
    EXPECT_EQ(entries, std::vector<std::string>{"processChildCmd"});
    EXPECT_FALSE(dispatcher->LastFailure().empty());
    EXPECT_FALSE(map->editor()->IsOperationOpen());
    EXPECT_EQ(map->editor()->UndoCount(), 0);
    EXPECT_EQ(points->GetDatasource()->GetFeatureCount(), 0);

    // The same tool goes on, and its next line is one step under the outer label.
    EXPECT_TRUE(dispatcher->TypeLine("go"));
    EXPECT_EQ(entries.size(), 1u);
    EXPECT_EQ(map->editor()->UndoCount(), 1);
    EXPECT_EQ(map->editor()->UndoLabel().toStdString(), "outer");
    EXPECT_EQ(points->GetDatasource()->GetFeatureCount(), 1);
}

TEST_F(Dispatcher, AStepLeftOpenIsRolledBackSoThatLaterEditsStayUndoable) {
    TLFeatureLayer* points = addLayer("wells", TLLayer::PointLayer);
    edit(points);
    std::vector<std::string> entries;
    dispatcher->SetFailureListener(
        [&](const std::string&, const std::string& entry) { entries.push_back(entry); });
    TLRefPtr<TLTool> unclosed(new UnclosedTool(points));
    dispatcher->Activate(unclosed.get());

    EXPECT_TRUE(dispatcher->MouseDown(TLLeftButton, 5, 5)) << "the tool's answer stands";
    EXPECT_EQ(entries, std::vector<std::string>{"OnMouseDown"});
    EXPECT_EQ(dispatcher->LastFailure(), "the editor operation \"interrupt\" was left open");
    EXPECT_FALSE(map->editor()->IsOperationOpen());
    EXPECT_EQ(points->GetDatasource()->GetFeatureCount(), 0);
    EXPECT_EQ(map->editor()->UndoCount(), 0);

    // The next command's point is a step of its own, under its own label.
    pick("TLCmdDigitizePoint");
    EXPECT_TRUE(dispatcher->TypeLine("1,2"));
    EXPECT_EQ(entries.size(), 1u);
    EXPECT_EQ(map->editor()->UndoCount(), 1);
    EXPECT_EQ(map->editor()->UndoLabel().toStdString(), "add feature");
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
