#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "DataTestSupport.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLLayerEditBuffer.h"

namespace TMObjects::testing {
namespace {

// What the editor tells, as lines: "committed LABEL", "refused WHY".
struct Heard : TLEditorListener {
    std::vector<std::string> lines;
    void OnOperationCommitted(const TLString& label) override {
        lines.push_back("committed " + label.toStdString());
    }
    void OnWriteRefused(const TLString& why) override {
        lines.push_back("refused " + why.toStdString());
    }
};

int AddLine(EditFixture& fx, const std::string& wkt, int carried = -1) {
    fx.editor()->StartOperation("add feature");
    TLFeature feature(carried);
    feature.SetGeometry(Wkt(wkt));
    fx.buffer()->AddFeature(feature, true, true);
    fx.editor()->CommitOperation(true);
    return feature.GetId();
}

TEST(FeatureIds, ADeletedIdIsNeverGivenAgainWhateverTheNewFeatureCarries) {
    EditFixture fx;
    fx.table().Load(MakeFeature("LINESTRING (0 0, 1 0)", "one", 1, 1));
    fx.table().Load(MakeFeature("LINESTRING (0 1, 1 1)", "two", 2, 2));
    fx.editor()->StartOperation("delete feature");
    fx.buffer()->DeleteFeature(2, true, true);
    fx.editor()->CommitOperation(true);

    // The feature carries the id of the deleted one, as TLFeature(2) makes it; it gets a new one.
    EXPECT_EQ(AddLine(fx, "LINESTRING (5 5, 6 6)", 2), 3);
    // TLFeature(1) of a part cut off feature 1 does not land on feature 1 either.
    EXPECT_EQ(AddLine(fx, "LINESTRING (7 7, 8 8)", 1), 4);
    EXPECT_EQ(WktOf(fx.table().PeekFeature(1)->GetGeometry()), "LINESTRING (0 0, 1 0)");
    EXPECT_EQ(fx.table().GetIds(), (std::vector<int>{1, 3, 4}));
}

TEST(FeatureIds, AnAddTakenBackLeavesItsIdUsedAndRedoBringsTheSameFeatureBack) {
    EditFixture fx;
    const int first = AddLine(fx, "LINESTRING (0 0, 1 0)");
    ASSERT_TRUE(fx.editor()->Undo());
    const int second = AddLine(fx, "LINESTRING (0 5, 1 5)");
    EXPECT_NE(first, second);
    ASSERT_TRUE(fx.editor()->Undo());
    ASSERT_TRUE(fx.editor()->Redo());
    EXPECT_EQ(fx.table().GetIds(), std::vector<int>{second});
}

TEST(FeatureIds, ATableNeverTakesARequestedIdThatADeletedFeatureHad) {
    TLFeatureTable table("marks", SampleFields());
    table.Insert(MakeFeature("POINT (0 0)", "a", 1, 7));
    ASSERT_TRUE(table.Delete(7));
    EXPECT_EQ(table.Insert(MakeFeature("POINT (1 1)", "b", 2, 7)), 8);
    // Put back by undo, the deleted feature is the same one again and keeps its id.
    table.Restore(7, MakeFeature("POINT (0 0)", "a", 1, 7));
    EXPECT_TRUE(table.HasFeature(7));
}

TEST(FeatureIds, AStoreThatRemembersDeletedIdsRaisesTheNextOneButNeverLowersIt) {
    TLFeatureTable table("marks", SampleFields());
    table.Load(MakeFeature("POINT (0 0)", "a", 1, 3));
    table.ReserveIdsBelow(10);
    EXPECT_EQ(table.NextId(), 10);
    table.ReserveIdsBelow(5);
    EXPECT_EQ(table.NextId(), 10);
    EXPECT_EQ(table.Insert(MakeFeature("POINT (1 1)", "b", 2)), 10);
}

TEST(EditorSteps, AStepThatChangedNothingIsNotKeptForUndoButIsToldAndNamed) {
    EditFixture fx;
    Heard heard;
    fx.editor()->AddListener(&heard);
    AddLine(fx, "LINESTRING (0 0, 1 0)");
    fx.editor()->StartOperation("add feature");
    fx.editor()->CommitOperation(true);

    EXPECT_EQ(fx.editor()->UndoCount(), 1);
    EXPECT_EQ(fx.editor()->LastCommittedLabel(), TLString("add feature"));
    EXPECT_EQ(heard.lines,
              (std::vector<std::string>{"committed add feature", "committed add feature"}));
    // Undo takes back the step that did something.
    ASSERT_TRUE(fx.editor()->Undo());
    EXPECT_EQ(fx.table().GetFeatureCount(), 0);
    fx.editor()->RemoveListener(&heard);
}

TEST(EditorSteps, AShapeWithACoordinateThatIsNoNumberIsRefusedAndTheListenersHearWhy) {
    EditFixture fx;
    Heard heard;
    fx.editor()->AddListener(&heard);
    TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline());
    double xy[] = {0, 0, std::numeric_limits<double>::quiet_NaN(), 1};
    line->AddPoints(xy, 2);
    fx.editor()->StartOperation("add feature");
    TLFeature feature;
    feature.SetGeometry(TLRefPtr<TLGeometry>(line.get()));
    fx.buffer()->AddFeature(feature, true, true);
    fx.editor()->CommitOperation(true);

    EXPECT_EQ(fx.table().GetFeatureCount(), 0);
    EXPECT_EQ(feature.GetId(), -1);
    EXPECT_EQ(fx.editor()->UndoCount(), 0);
    EXPECT_EQ(heard.lines,
              (std::vector<std::string>{"refused No feature was added in roads: the shape has a "
                                        "coordinate that is not a finite number.",
                                        "committed add feature"}));

    const int id = AddLine(fx, "LINESTRING (0 0, 1 0)");
    fx.buffer()->changeGeometry(id, TLRefPtr<TLGeometry>(line.get()), true);
    EXPECT_EQ(heard.lines.back(),
              "refused No feature was changed in roads: the shape has a "
              "coordinate that is not a finite number.");
    EXPECT_EQ(WktOf(fx.table().PeekFeature(id)->GetGeometry()), "LINESTRING (0 0, 1 0)");
    fx.editor()->RemoveListener(&heard);
}

TEST(EditorSteps, AChangeMadeInPlaceInsideAnOpenStepIsSavedByTheNextSave) {
    EditFixture fx;
    fx.table().Load(MakeFeature("LINESTRING (0 0, 10 0)", "first", 1, 1));
    fx.editor()->StartOperation("move vertex");
    TLRefPtr<TLGeometry> live =
        fx.buffer()->GetActiveEditFeatureByFeatureId(1)->GetFeature()->GetGeometry();
    double* xy = nullptr;
    int count = 0;
    ASSERT_TRUE(live->GetRawPoints(&xy, count));
    xy[0] = 4;
    ASSERT_EQ(fx.table().PendingChanges().size(), 0u);
    ASSERT_TRUE(fx.layer->SaveEdits());
    EXPECT_EQ(fx.table().PendingChanges().size(), 0u);
    fx.editor()->CommitOperation(true);
    // What was saved is what the layer holds: nothing left to save.
    EXPECT_EQ(fx.table().PendingChanges().size(), 0u);
    // The step still takes the change back, and then the save is what differs.
    EXPECT_EQ(fx.editor()->UndoCount(), 1);
    ASSERT_TRUE(fx.editor()->Undo());
    EXPECT_EQ(WktOf(fx.table().PeekFeature(1)->GetGeometry()), "LINESTRING (0 0, 10 0)");
    EXPECT_EQ(fx.table().PendingChanges().size(), 1u);
}

}  // namespace
}  // namespace TMObjects::testing
