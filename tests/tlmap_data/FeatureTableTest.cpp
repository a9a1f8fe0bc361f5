#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "DataTestSupport.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlsde/TLFeatureStore.h"

namespace TMObjects::testing {
namespace {

// A store that keeps what it was given and can be told to refuse the next commit.
class TestStore : public TLFeatureStore {
public:
    struct Log {
        int commits = 0;
        bool fail = false;
        std::vector<std::string> written;  // "id new|old wkt" or "id deleted"
    };
    explicit TestStore(std::shared_ptr<Log> log) : mLog(std::move(log)) {}
    TLString GetWorkspaceType() const override { return "OGR"; }
    TLString GetPath() const override { return "/tmp/roads.gpkg"; }
    bool Commit(const TLFeatureTable&, const std::vector<TLFeatureChange>& changes,
                TLString& error) override {
        ++mLog->commits;
        if (mLog->fail) {
            error = "disk full";
            return false;
        }
        for (const TLFeatureChange& c : changes) {
            std::string line = std::to_string(c.id);
            if (!c.after)
                line += " deleted";
            else
                line += (c.isNew ? " new " : " old ") + WktOf(c.after->GetGeometry());
            mLog->written.push_back(line);
        }
        return true;
    }

private:
    std::shared_ptr<Log> mLog;
};

struct StoredLayer {
    std::shared_ptr<TestStore::Log> log = std::make_shared<TestStore::Log>();
    TLRefPtr<TLFeatureLayer> layer;
    TLRefPtr<TLMap> map{new TLMap()};
    StoredLayer() {
        TLRefPtr<TLFeatureTable> table(
            new TLFeatureTable("roads", SampleFields(), std::make_unique<TestStore>(log)));
        table->Load(MakeFeature("LINESTRING (0 0, 1 0)", "a", 1, 1));
        table->Load(MakeFeature("LINESTRING (0 1, 1 1)", "b", 2, 2));
        table->Load(MakeFeature("LINESTRING (0 2, 1 2)", "c", 3, 3));
        layer = new TLFeatureLayer("roads", TLLayer::LineLayer, table, nullptr);
        layer->SetEditable(true);
        map->InsertLayer(0, layer.get(), false);
    }
    TLFeatureTable& table() { return *layer->GetDatasource(); }
    TLLayerEditBuffer* buffer() { return layer->layer_edit_buffer(); }
};

std::vector<std::string> Pending(const TLFeatureTable& table) {
    std::vector<std::string> out;
    for (const TLFeatureChange& c : table.PendingChanges())
        out.push_back(std::to_string(c.id) + (c.after ? (c.isNew ? " new" : " old") : " deleted"));
    return out;
}

TEST(FeatureTable, PendingChangesFollowTheEditsAgainstTheStore) {
    StoredLayer s;
    EXPECT_FALSE(s.table().IsDirty());
    EXPECT_TRUE(Pending(s.table()).empty());
    EXPECT_EQ(s.table().GetWorkspaceType(), TLString("OGR"));

    TLFeature added = MakeFeature("LINESTRING (5 5, 6 6)", "new", 4);
    s.buffer()->AddFeature(added, false, true);
    TLFeature transient = MakeFeature("LINESTRING (5 5, 7 7)", "gone", 5);
    s.buffer()->AddFeature(transient, false, true);
    s.buffer()->DeleteFeature(transient.GetId(), false, true);
    s.buffer()->ChangeAttribute(1, "NAME", TLVariant(TLString("renamed")), false);
    s.buffer()->DeleteFeature(3, false, true);

    EXPECT_TRUE(s.table().IsDirty());
    EXPECT_EQ(Pending(s.table()), (std::vector<std::string>{"1 old", "3 deleted", "4 new"}));
    const std::vector<TLFeatureChange> changes = s.table().PendingChanges();
    EXPECT_EQ(changes[0].after->GetValue("NAME"), TLVariant(TLString("renamed")));
    EXPECT_TRUE(s.table().IsDeleted(3));
    EXPECT_FALSE(s.table().IsDeleted(2));
}

TEST(FeatureTable, FailedSaveKeepsEveryPendingChangeAndTheErrorText) {
    StoredLayer s;
    TLFeature added = MakeFeature("LINESTRING (5 5, 6 6)", "new", 4);
    s.buffer()->AddFeature(added, false, true);
    s.buffer()->changeGeometry(2, Wkt("LINESTRING (0 1, 3 1)"), false);
    s.buffer()->DeleteFeature(3, false, true);
    const auto pending = Pending(s.table());
    const auto contents = Contents(s.table());

    s.log->fail = true;
    EXPECT_FALSE(s.layer->SaveEdits());
    EXPECT_EQ(s.layer->LastSaveError(), TLString("disk full"));
    EXPECT_EQ(Pending(s.table()), pending);
    EXPECT_EQ(Contents(s.table()), contents);
    EXPECT_TRUE(s.log->written.empty());

    s.log->fail = false;
    EXPECT_TRUE(s.layer->SaveEdits());
    EXPECT_TRUE(s.layer->LastSaveError().isEmpty());
    EXPECT_EQ(s.log->commits, 2);  // all changes in one transaction each time
    EXPECT_EQ(s.log->written, (std::vector<std::string>{"2 old LINESTRING (0 1, 3 1)", "3 deleted",
                                                        "4 new LINESTRING (5 5, 6 6)"}));
    EXPECT_FALSE(s.table().IsDirty());

    // Once saved, the new feature is the store's: a later change of it is no longer new, and an
    // empty save does not bother the store.
    s.buffer()->ChangeAttribute(4, "CODE", TLVariant(9.0), false);
    EXPECT_EQ(Pending(s.table()), (std::vector<std::string>{"4 old"}));
    EXPECT_TRUE(s.layer->SaveEdits());
    EXPECT_TRUE(s.layer->SaveEdits());
    EXPECT_EQ(s.log->commits, 3);

    // Undoing after a save makes the undone features pending again.
    ASSERT_TRUE(s.map->editor()->Undo());
    EXPECT_EQ(Pending(s.table()), (std::vector<std::string>{"4 old"}));
}

TEST(FeatureTable, AfterASaveUndoAndRedoAreWeighedAgainstWhatWasSaved) {
    StoredLayer s;
    TLEditor* editor = s.map->editor();
    s.buffer()->ChangeAttribute(1, "NAME", TLVariant(TLString("renamed")), false);
    TLFeature added = MakeFeature("LINESTRING (5 5, 6 6)", "new", 4);
    s.buffer()->AddFeature(added, false, true);
    s.buffer()->DeleteFeature(3, false, true);
    ASSERT_TRUE(s.layer->SaveEdits());
    EXPECT_FALSE(s.table().IsDirty());

    // The file holds every edit; taking them back is a change to it, each as the opposite write.
    ASSERT_TRUE(editor->Undo());
    EXPECT_EQ(Pending(s.table()), std::vector<std::string>{"3 new"});
    ASSERT_TRUE(editor->Undo());
    EXPECT_EQ(Pending(s.table()), (std::vector<std::string>{"3 new", "4 deleted"}));
    ASSERT_TRUE(editor->Undo());
    const std::vector<TLFeatureChange> changes = s.table().PendingChanges();
    ASSERT_EQ(Pending(s.table()), (std::vector<std::string>{"1 old", "3 new", "4 deleted"}));
    EXPECT_EQ(changes[0].after->GetValue("NAME"), TLVariant(TLString("a")));

    // Redone, the edits are what the file holds again.
    ASSERT_TRUE(editor->Redo());
    ASSERT_TRUE(editor->Redo());
    ASSERT_TRUE(editor->Redo());
    EXPECT_FALSE(s.table().IsDirty());
    EXPECT_TRUE(s.layer->SaveEdits());
    EXPECT_EQ(s.log->commits, 1);
}

TEST(FeatureTable, ListenersHearEveryChange) {
    StoredLayer s;
    struct Recorder : TLFeatureTableListener {
        std::vector<std::string> heard;
        TLFeatureTable* leaveOn = nullptr;
        void OnFeatureChanged(TLFeatureTable* t, Change c, int id) override {
            static const char* names[] = {"added", "deleted", "geometry", "attributes"};
            heard.push_back(std::string(names[c]) + " " + std::to_string(id));
            if (leaveOn && c == Deleted) leaveOn->RemoveListener(this);
        }
    } first, second;
    s.table().AddListener(&first);
    s.table().AddListener(&second);
    s.table().AddListener(&first);  // once is enough
    first.leaveOn = &s.table();

    TLFeature added = MakeFeature("LINESTRING (5 5, 6 6)", "new", 4);
    s.buffer()->AddFeature(added, false, true);
    s.buffer()->changeGeometry(4, Wkt("LINESTRING (5 5, 6 7)"), false);
    s.buffer()->ChangeAttribute(4, "NAME", TLVariant(TLString("x")), false);
    s.buffer()->DeleteFeature(4, false, true);
    s.map->editor()->Undo();  // the delete: the feature comes back

    const std::vector<std::string> all = {"added 4", "geometry 4", "attributes 4", "deleted 4",
                                          "added 4"};
    EXPECT_EQ(second.heard, all);
    EXPECT_EQ(first.heard, std::vector<std::string>(all.begin(), all.begin() + 4));
    s.table().RemoveListener(&second);
}

TEST(FeatureTable, RestorePutsBackExactlyWhatItIsGiven) {
    TLFeatureTable table("t", SampleFields());
    TLFeature f = MakeFeature("POLYGON ((0 0, 4 0, 4 4, 0 4, 0 0))", "p", 1, 7);
    f.SetFields(table.GetFieldsPtr());
    f.SetValue("AREA", TLVariant(16.0));
    table.Restore(7, f);
    EXPECT_EQ(table.NextId(), 8);
    EXPECT_EQ(Contents(table).at(7),
              "POLYGON ((0 0, 4 0, 4 4, 0 4, 0 0)) | AREA=3:16 | CODE=1:1 | NAME=4:p");
    EXPECT_EQ(table.GetFeature(7)->GetValue("FID").GetInt32(), 7);
    EXPECT_EQ(table.SearchBounds(TLRect(3, 5, 3, 5)), std::vector<int>{7});
    table.Restore(7, std::nullopt);
    EXPECT_FALSE(table.HasFeature(7));
    EXPECT_TRUE(table.SearchBounds(TLRect(3, 5, 3, 5)).empty());
    table.Restore(-3, f);  // no such id can exist
    EXPECT_EQ(table.GetFeatureCount(), 0);
    EXPECT_TRUE(table.GetFeature(7).IsNull());
    EXPECT_EQ(table.GetWorkspaceType(), TLString("Memory"));
}

}  // namespace
}  // namespace TMObjects::testing
