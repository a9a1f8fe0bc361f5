#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "DataTestSupport.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLLayerEditBuffer.h"

namespace TMObjects::testing {
namespace {

// What a save would write, as "ID new", "ID old" or "ID deleted".
std::vector<std::string> Pending(const TLFeatureTable& table) {
    std::vector<std::string> out;
    for (const TLFeatureChange& c : table.PendingChanges())
        out.push_back(std::to_string(c.id) + (c.after ? (c.isNew ? " new" : " old") : " deleted"));
    return out;
}

// Moves the first vertex of the feature's shared geometry, as a dragging tool does.
TLRefPtr<TLGeometry> DragFirstVertex(TLLayerEditBuffer* buffer, int id, double x) {
    TLRefPtr<TLGeometry> live =
        buffer->GetActiveEditFeatureByFeatureId(id)->GetFeature()->GetGeometry();
    double* xy = nullptr;
    int count = 0;
    if (live->GetRawPoints(&xy, count) && count > 0) xy[0] = x;
    return live;
}

class UndoTest : public ::testing::Test {
protected:
    void SetUp() override {
        // Two features as a store would hand them over: present, not pending.
        fx.table().Load(MakeFeature("LINESTRING (0 0, 10 0)", "first", 1, 1));
        fx.table().Load(MakeFeature("LINESTRING (0 5, 10 5)", "second", 2, 2));
    }
    EditFixture fx;
};

TEST_F(UndoTest, UndoAndRedoRestoreExactContentsThroughSeveralOperations) {
    const auto s0 = Contents(fx.table());

    fx.editor()->StartOperation("add feature");
    TLFeature added = MakeFeature("LINESTRING (1 1, 2 2, 3 1)", "third", 3);
    fx.buffer()->AddFeature(added, true, true);
    fx.editor()->CommitOperation(true);
    const auto s1 = Contents(fx.table());
    EXPECT_EQ(added.GetId(), 3);

    fx.editor()->StartOperation("move");
    fx.buffer()->changeGeometry(1, Wkt("LINESTRING (0 0, 5 4, 10 0)"), false);
    EXPECT_TRUE(fx.buffer()->ChangeAttribute(1, "NAME", TLVariant(TLString("moved")), false));
    EXPECT_TRUE(fx.buffer()->ChangeAttribute(1, "AREA", TLVariant(2.25), false));
    fx.editor()->CommitOperation(true);
    const auto s2 = Contents(fx.table());

    fx.editor()->StartOperation("delete");
    fx.buffer()->DeleteFeature(2, true, true);
    fx.editor()->CommitOperation(true);
    const auto s3 = Contents(fx.table());

    ASSERT_EQ(s3.size(), 2u);
    ASSERT_EQ(s2.at(1), "LINESTRING (0 0, 5 4, 10 0) | AREA=3:2.25 | CODE=1:1 | NAME=4:moved");
    EXPECT_EQ(fx.editor()->UndoCount(), 3);

    ASSERT_TRUE(fx.editor()->Undo());
    EXPECT_EQ(Contents(fx.table()), s2);
    ASSERT_TRUE(fx.editor()->Undo());
    EXPECT_EQ(Contents(fx.table()), s1);
    ASSERT_TRUE(fx.editor()->Undo());
    EXPECT_EQ(Contents(fx.table()), s0);
    EXPECT_FALSE(fx.editor()->Undo());
    EXPECT_EQ(fx.editor()->RedoCount(), 3);

    ASSERT_TRUE(fx.editor()->Redo());
    EXPECT_EQ(Contents(fx.table()), s1);
    ASSERT_TRUE(fx.editor()->Redo());
    EXPECT_EQ(Contents(fx.table()), s2);
    ASSERT_TRUE(fx.editor()->Redo());
    EXPECT_EQ(Contents(fx.table()), s3);
    EXPECT_FALSE(fx.editor()->Redo());

    // The spatial index follows undo and redo: the deleted line is gone from searches, and after
    // undoing the delete it is found again.
    EXPECT_TRUE(fx.table().SearchBounds(TLRect(4, 6, 4.5, 5.5)).empty());
    ASSERT_TRUE(fx.editor()->Undo());
    EXPECT_EQ(fx.table().SearchBounds(TLRect(4, 6, 4.5, 5.5)), std::vector<int>{2});

    // A new step after an undo drops what could have been redone.
    fx.editor()->StartOperation("add feature");
    TLFeature fourth = MakeFeature("LINESTRING (7 7, 8 8)", "fourth", 4);
    fx.buffer()->AddFeature(fourth, true, true);
    fx.editor()->CommitOperation(true);
    EXPECT_EQ(fx.editor()->RedoCount(), 0);
    EXPECT_EQ(fx.editor()->UndoCount(), 3);
}

TEST_F(UndoTest, NestedBracketFoldsIntoOneStepUnderTheOuterLabel) {
    const auto before = Contents(fx.table());
    fx.editor()->StartOperation("Part connect");
    TLFeature f = MakeFeature("LINESTRING (20 0, 30 0)", "n", 9);
    fx.buffer()->AddFeature(f, true, true);
    fx.editor()->StartOperation("add feature");
    EXPECT_EQ(fx.editor()->OpenOperationLabel(), TLString("Part connect"));
    fx.buffer()->DeleteFeature(1, true, true);
    EXPECT_TRUE(fx.editor()->CommitOperation(true));
    EXPECT_TRUE(fx.editor()->IsOperationOpen());
    EXPECT_EQ(fx.editor()->UndoCount(), 0);
    fx.buffer()->ChangeAttribute(2, "CODE", TLVariant(7.0), false);
    EXPECT_TRUE(fx.editor()->CommitOperation(true));

    EXPECT_FALSE(fx.editor()->IsOperationOpen());
    EXPECT_EQ(fx.editor()->UndoCount(), 1);
    EXPECT_EQ(fx.editor()->UndoLabel(), TLString("Part connect"));
    ASSERT_TRUE(fx.editor()->Undo());
    EXPECT_EQ(Contents(fx.table()), before);
}

TEST_F(UndoTest, AbortPutsBackEveryChangeAndLeavesNoStep) {
    fx.editor()->StartOperation("first");
    fx.buffer()->changeGeometry(2, Wkt("LINESTRING (0 6, 10 6)"), false);
    fx.editor()->CommitOperation(true);
    const auto before = Contents(fx.table());

    fx.editor()->StartOperation("Trim line");
    TLFeature f = MakeFeature("LINESTRING (0 0, 1 1)", "x", 5);
    fx.buffer()->AddFeature(f, true, true);
    fx.buffer()->changeGeometry(1, Wkt("LINESTRING (0 0, 4 0)"), false);
    fx.buffer()->ChangeAttribute(1, "NAME", TLVariant(TLString("cut")), false);
    fx.buffer()->DeleteFeature(2, true, true);
    fx.editor()->StartOperation("inner");
    fx.buffer()->ChangeAttribute(f.GetId(), "CODE", TLVariant(8.0), false);

    ASSERT_TRUE(fx.editor()->AbortOperation());
    EXPECT_FALSE(fx.editor()->IsOperationOpen());
    EXPECT_EQ(Contents(fx.table()), before);
    EXPECT_EQ(fx.editor()->UndoCount(), 1);
    EXPECT_EQ(fx.editor()->UndoLabel(), TLString("first"));
    EXPECT_EQ(fx.editor()->LastCommittedLabel(), TLString("first"));
    EXPECT_FALSE(fx.editor()->CommitOperation(true));
    EXPECT_FALSE(fx.editor()->AbortOperation());
    // Only the committed step is left to save: what the aborted one made, changed or deleted and
    // put back is nothing the store must hear.
    EXPECT_EQ(Pending(fx.table()), std::vector<std::string>{"2 old"});
    // The spatial index agrees with the restored contents.
    EXPECT_EQ(fx.table().SearchBounds(TLRect(0.5, 0.6, -1, 1)), std::vector<int>{1});
    EXPECT_EQ(fx.table().SearchBounds(TLRect(4, 5, 5.5, 6.5)), std::vector<int>{2});

    // Committing with false is the same as aborting.
    fx.editor()->StartOperation("dropped");
    fx.buffer()->DeleteFeature(1, true, true);
    EXPECT_TRUE(fx.editor()->CommitOperation(false));
    EXPECT_EQ(Contents(fx.table()), before);
    EXPECT_EQ(fx.editor()->UndoCount(), 1);
}

TEST_F(UndoTest, LabelsOfStepsAndOfWritesOutsideABracket) {
    TLFeature f = MakeFeature("LINESTRING (0 0, 1 1)", "x", 5);
    fx.buffer()->AddFeature(f, true, true);
    fx.buffer()->changeGeometry(f.GetId(), Wkt("LINESTRING (0 0, 2 2)"), false);
    fx.buffer()->ChangeAttribute(f.GetId(), "NAME", TLVariant(TLString("y")), false);
    fx.buffer()->ChangeAttributes(
        f.GetId(), {{"NAME", TLVariant(TLString("z"))}, {"CODE", TLVariant(6.0)}}, false);
    fx.buffer()->DeleteFeature(f.GetId(), true, true);
    fx.editor()->StartOperation("add feature");
    fx.editor()->CommitOperation(true);  // nothing written: named, but no step to undo

    const std::vector<std::string> expected = {"change attributes", "change attribute",
                                               "change geometry", "add feature"};
    EXPECT_EQ(fx.editor()->UndoCount(), 5);
    EXPECT_EQ(fx.editor()->LastCommittedLabel(), TLString("add feature"));
    EXPECT_EQ(fx.editor()->UndoLabel(), TLString("delete feature"));
    EXPECT_FALSE(fx.table().HasFeature(f.GetId()));
    ASSERT_TRUE(fx.editor()->Undo());
    std::vector<std::string> labels;
    while (fx.editor()->CanUndo()) {
        labels.push_back(fx.editor()->UndoLabel().toStdString());
        fx.editor()->Undo();
    }
    EXPECT_EQ(labels, expected);
    EXPECT_EQ(fx.editor()->RedoLabel(), TLString("add feature"));
    EXPECT_FALSE(fx.table().HasFeature(f.GetId()));
    EXPECT_EQ(fx.table().GetFeatureCount(), 2);
}

TEST_F(UndoTest, UndoAndRedoWaitForAnOpenStepToClose) {
    fx.buffer()->DeleteFeature(1, true, true);
    fx.editor()->StartOperation("open");
    EXPECT_FALSE(fx.editor()->Undo());
    EXPECT_FALSE(fx.editor()->Redo());
    fx.editor()->CommitOperation(true);  // it changed nothing: no step of its own
    EXPECT_TRUE(fx.editor()->Undo());
    EXPECT_TRUE(fx.table().HasFeature(1));
    EXPECT_FALSE(fx.editor()->Undo());
}

TEST_F(UndoTest, ChangesMadeInPlaceThroughAnEditFeatureAreUndoable) {
    const auto before = Contents(fx.table());
    fx.editor()->StartOperation("edit point");
    ASSERT_TRUE(fx.buffer()->FeatureInBuffer(1, true));
    TLFeatureEditBuffer* edit = fx.buffer()->GetActiveEditFeatureByFeatureId(1);
    ASSERT_NE(edit, nullptr);
    TLRefPtr<TLGeometry> geometry = edit->GetFeature()->GetGeometry();
    double* xy = nullptr;
    int count = 0;
    ASSERT_TRUE(geometry->GetRawPoints(&xy, count));
    ASSERT_EQ(count, 2);
    xy[2] = 40;  // the end vertex moves from (10 0) to (40 3)
    xy[3] = 3;
    // An attribute write after the change in place, in the same step.
    EXPECT_TRUE(edit->SetValue("NAME", TLVariant(TLString("dragged"))));
    xy[0] = -1;  // and another change in place after it
    fx.editor()->CommitOperation(true);

    const auto after = Contents(fx.table());
    EXPECT_EQ(after.at(1), "LINESTRING (-1 0, 40 3) | CODE=1:1 | NAME=4:dragged");
    // The index was told: the moved end is found where it is now.
    EXPECT_EQ(fx.table().SearchBounds(TLRect(39, 41, 2, 4)), std::vector<int>{1});

    ASSERT_TRUE(fx.editor()->Undo());
    EXPECT_EQ(Contents(fx.table()), before);
    EXPECT_TRUE(fx.table().SearchBounds(TLRect(39, 41, 2, 4)).empty());
    ASSERT_TRUE(fx.editor()->Redo());
    EXPECT_EQ(Contents(fx.table()), after);

    // A step that opened the feature and changed nothing costs no change to the table.
    const int steps = fx.editor()->UndoCount();
    fx.editor()->StartOperation("edit point");
    fx.buffer()->GetActiveEditFeatureByFeatureId(2)->GetFeature();
    fx.editor()->CommitOperation(true);
    EXPECT_EQ(fx.editor()->UndoCount(), steps);
    EXPECT_EQ(Contents(fx.table()), after);
    EXPECT_EQ(fx.buffer()->GetActiveEditFeatureByFeatureId(99), nullptr);
}

TEST_F(UndoTest, AnUndoneEditLeavesNothingToSaveAndRedoMakesItPendingAgain) {
    struct Edit {
        const char* what;
        std::function<void()> make;
        std::string pending;
    };
    const std::vector<Edit> edits = {
        {"add",
         [&] {
             TLFeature f = MakeFeature("LINESTRING (1 1, 2 2)", "third", 3);
             fx.buffer()->AddFeature(f, true, true);
         },
         "3 new"},
        {"geometry", [&] { fx.buffer()->changeGeometry(1, Wkt("LINESTRING (0 0, 5 5)"), false); },
         "1 old"},
        {"attribute",
         [&] { fx.buffer()->ChangeAttribute(2, "NAME", TLVariant(TLString("renamed")), false); },
         "2 old"},
        {"attributes",
         [&] {
             fx.buffer()->ChangeAttributes(
                 1, {{"NAME", TLVariant(TLString("x"))}, {"AREA", TLVariant(1.5)}}, false);
         },
         "1 old"},
        {"delete", [&] { fx.buffer()->DeleteFeature(2, true, true); }, "2 deleted"},
        {"change in place",
         [&] {
             fx.editor()->StartOperation("drag");
             DragFirstVertex(fx.buffer(), 1, -4);
             fx.editor()->CommitOperation(true);
         },
         "1 old"},
    };
    const auto contents = Contents(fx.table());
    for (const Edit& edit : edits) {
        SCOPED_TRACE(edit.what);
        edit.make();
        EXPECT_EQ(Pending(fx.table()), std::vector<std::string>{edit.pending});
        ASSERT_TRUE(fx.editor()->Undo());
        EXPECT_EQ(Contents(fx.table()), contents);
        EXPECT_FALSE(fx.table().IsDirty());
        EXPECT_TRUE(Pending(fx.table()).empty());
        ASSERT_TRUE(fx.editor()->Redo());
        EXPECT_TRUE(fx.table().IsDirty());
        EXPECT_EQ(Pending(fx.table()), std::vector<std::string>{edit.pending});
        ASSERT_TRUE(fx.editor()->Undo());
        EXPECT_FALSE(fx.table().IsDirty());
    }
}

TEST_F(UndoTest, StepsOnOneFeatureStayPendingUntilTheFirstIsTakenBack) {
    const auto contents = Contents(fx.table());
    fx.buffer()->changeGeometry(1, Wkt("LINESTRING (0 0, 5 4, 10 0)"), false);
    const auto moved = Contents(fx.table());
    fx.buffer()->ChangeAttribute(1, "NAME", TLVariant(TLString("moved")), false);
    EXPECT_EQ(Pending(fx.table()), std::vector<std::string>{"1 old"});

    ASSERT_TRUE(fx.editor()->Undo());
    EXPECT_EQ(Contents(fx.table()), moved);
    EXPECT_EQ(Pending(fx.table()), std::vector<std::string>{"1 old"});
    ASSERT_TRUE(fx.editor()->Undo());
    EXPECT_EQ(Contents(fx.table()), contents);
    EXPECT_FALSE(fx.table().IsDirty());

    // An edit put back by another edit rather than by undo is no change either.
    fx.buffer()->ChangeAttribute(2, "CODE", TLVariant(5.0), false);
    fx.buffer()->ChangeAttribute(2, "CODE", TLVariant(2.0), false);
    EXPECT_FALSE(fx.table().IsDirty());
    // Nor is a value cleared again where there was none.
    fx.buffer()->ChangeAttribute(2, "AREA", TLVariant(3.0), false);
    fx.buffer()->ChangeAttribute(2, "AREA", TLVariant(), false);
    EXPECT_FALSE(fx.table().IsDirty());
}

TEST_F(UndoTest, AChangeInPlaceStaysPendingWhenTheToolWritesTheSameGeometryBack) {
    // A dragging tool changes the shared geometry and then hands that same geometry to the
    // buffer: the write changes nothing the table can see, yet the feature is not as stored.
    fx.editor()->StartOperation("drag");
    TLRefPtr<TLGeometry> live = DragFirstVertex(fx.buffer(), 1, -4);
    fx.buffer()->changeGeometry(1, live, false);
    fx.editor()->CommitOperation(true);
    EXPECT_EQ(WktOf(fx.table().PeekFeature(1)->GetGeometry()), "LINESTRING (-4 0, 10 0)");
    EXPECT_EQ(Pending(fx.table()), std::vector<std::string>{"1 old"});

    ASSERT_TRUE(fx.editor()->Undo());
    EXPECT_FALSE(fx.table().IsDirty());
    ASSERT_TRUE(fx.editor()->Redo());
    EXPECT_EQ(Pending(fx.table()), std::vector<std::string>{"1 old"});

    // Opened and left as it was: nothing to save.
    ASSERT_TRUE(fx.editor()->Undo());
    fx.editor()->StartOperation("look");
    fx.buffer()->GetActiveEditFeatureByFeatureId(2)->GetFeature();
    fx.editor()->CommitOperation(true);
    EXPECT_FALSE(fx.table().IsDirty());
}

TEST_F(UndoTest, AGeometryStillHeldByAToolAcrossASaveIsWeighedAgainstWhatWasSaved) {
    fx.editor()->StartOperation("drag");
    TLRefPtr<TLGeometry> live = DragFirstVertex(fx.buffer(), 1, -4);
    fx.buffer()->ChangeAttribute(1, "NAME", TLVariant(TLString("dragged")), false);
    ASSERT_TRUE(fx.layer->SaveEdits());  // the shell saves while the tool still holds the line
    EXPECT_FALSE(fx.table().IsDirty());
    double* xy = nullptr;
    int count = 0;
    ASSERT_TRUE(live->GetRawPoints(&xy, count));
    xy[0] = -8;
    fx.buffer()->changeGeometry(1, live, false);
    fx.editor()->CommitOperation(true);
    EXPECT_EQ(WktOf(fx.table().PeekFeature(1)->GetGeometry()), "LINESTRING (-8 0, 10 0)");
    EXPECT_EQ(Pending(fx.table()), std::vector<std::string>{"1 old"});
}

TEST_F(UndoTest, ListenersHearEveryOperation) {
    struct Recorder : TLEditorListener {
        std::vector<std::string> events;
        void OnOperationStarted(const TLString& l) override { add("start", l); }
        void OnOperationCommitted(const TLString& l) override { add("commit", l); }
        void OnOperationAborted(const TLString& l) override { add("abort", l); }
        void OnUndo(const TLString& l) override { add("undo", l); }
        void OnRedo(const TLString& l) override { add("redo", l); }
        void add(const char* what, const TLString& l) {
            events.push_back(std::string(what) + " " + l.toStdString());
        }
    } recorder;
    fx.editor()->AddListener(&recorder);
    fx.editor()->StartOperation("a");
    fx.editor()->StartOperation("b");
    fx.buffer()->DeleteFeature(1, true, true);
    fx.editor()->CommitOperation(true);
    fx.editor()->CommitOperation(true);
    fx.editor()->StartOperation("c");
    fx.editor()->AbortOperation();
    fx.editor()->Undo();
    fx.editor()->Redo();
    fx.buffer()->DeleteFeature(2, true, true);
    fx.editor()->RemoveListener(&recorder);
    fx.editor()->Undo();
    EXPECT_EQ(recorder.events,
              (std::vector<std::string>{"start a", "commit a", "start c", "abort c", "undo a",
                                        "redo a", "commit delete feature"}));
}

TEST(EditorWithoutMap, WritesApplyAndNothingIsRecorded) {
    TLRefPtr<TLFeatureLayer> layer(
        TLFeatureLayer::CreateMemoryLayer("scratch", TLLayer::PointLayer, SampleFields(), nullptr));
    TLFeature f = MakeFeature("POINT (1 2)", "p", 1);
    layer->layer_edit_buffer()->AddFeature(f, true, true);
    layer->layer_edit_buffer()->ChangeAttribute(f.GetId(), "CODE", TLVariant(4.0), false);
    // Changed in place without an editor: the layer's commit takes it in.
    layer->StartOperation(nullptr);
    TLRefPtr<TLGeometry> g = layer->layer_edit_buffer()
                                 ->GetActiveEditFeatureByFeatureId(f.GetId())
                                 ->GetFeature()
                                 ->GetGeometry();
    double* xy = nullptr;
    int count = 0;
    ASSERT_TRUE(g->GetRawPoints(&xy, count));
    xy[0] = 50;
    EXPECT_TRUE(layer->CommitOperation());
    EXPECT_FALSE(layer->CommitOperation());
    EXPECT_EQ(Contents(*layer->GetDatasource()).at(f.GetId()),
              "POINT (50 2) | CODE=1:4 | NAME=4:p");
    EXPECT_EQ(layer->GetDatasource()->SearchBounds(TLRect(49, 51, 1, 3)),
              std::vector<int>{f.GetId()});
}

TEST(EditorWithoutMap, AFeatureOpenedAndLeftAsItWasIsNotPending) {
    TLRefPtr<TLFeatureLayer> layer(
        TLFeatureLayer::CreateMemoryLayer("scratch", TLLayer::PointLayer, SampleFields(), nullptr));
    TLFeatureTable& table = *layer->GetDatasource();
    table.Load(MakeFeature("POINT (1 2)", "p", 1, 1));
    table.Load(MakeFeature("POINT (3 4)", "q", 2, 2));
    layer->StartOperation(nullptr);
    layer->layer_edit_buffer()->GetActiveEditFeatureByFeatureId(1)->GetFeature();
    DragFirstVertex(layer->layer_edit_buffer(), 2, 30);
    EXPECT_TRUE(layer->CommitOperation());
    EXPECT_EQ(Pending(table), std::vector<std::string>{"2 old"});
}

}  // namespace
}  // namespace TMObjects::testing
