#include "PgFixture.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMap.h"

namespace TMObjects {
namespace {

// Two editors of one table, each with its own map, editor and connection, as two hosts on two
// desks would be.
class TwoEditors : public PgFixture {
protected:
    struct Editor {
        std::unique_ptr<TMWorkspace> workspace;
        TLRefPtr<TLMap> map;
        TLFeatureLayer* layer = nullptr;
        TLLayerEditBuffer* buffer() const { return layer->layer_edit_buffer(); }
        TLFeatureTable& roads() const { return *layer->GetDatasource(); }
        TLEditor* editor() const { return map->editor(); }
        bool save() const { return layer->SaveEdits(); }
        std::string error() const { return layer->LastSaveError().toStdString(); }
        void rename(int id, const char* name) const {
            editor()->StartOperation(TLString("rename"));
            buffer()->ChangeAttribute(id, TLString("name"), TLVariant(TLString(name)), false);
            editor()->CommitOperation(true);
        }
    };

    void SetUp() override {
        PgFixture::SetUp();
        if (HasFatalFailure()) return;
        makeRoads(10);
        mAnn = editor();
        mBob = editor();
    }
    Editor editor() {
        Editor e;
        e.workspace = open();
        e.map = TLRefPtr<TLMap>(new TLMap());
        e.layer = dynamic_cast<TLFeatureLayer*>(e.workspace->GetLayer(TLString("roads")).get());
        e.map->InsertLayer(0, e.layer, false);
        e.map->editor()->set_edit_layer(e.layer);
        return e;
    }
    std::string nameOf(int id) {
        return value("SELECT coalesce(name, '(null)') FROM roads WHERE fid = " +
                     std::to_string(id));
    }

    Editor mAnn, mBob;
};

TEST_F(TwoEditors, EditsOfDifferentFeaturesAreBothSaved) {
    mAnn.rename(1, "ann's");
    mBob.rename(2, "bob's");
    mBob.buffer()->changeGeometry(3, geometry("LINESTRING (500030 5000010, 500040 5000010)"),
                                  false);
    ASSERT_TRUE(mAnn.save()) << mAnn.error();
    ASSERT_TRUE(mBob.save()) << mBob.error();
    EXPECT_EQ(nameOf(1), "ann's");
    EXPECT_EQ(nameOf(2), "bob's");
    EXPECT_EQ(value("SELECT ST_AsText(geom) FROM roads WHERE fid = 3"),
              "LINESTRING(500030 5000010,500040 5000010)");
    // Each sees the other's work once it refreshes.
    TLString why;
    ASSERT_TRUE(refresh(mAnn.roads(), why)) << why.toStdString();
    EXPECT_EQ(text(mAnn.roads().PeekFeature(2), "name"), "bob's");
    EXPECT_EQ(wktOf(mAnn.roads().PeekFeature(3)), "LINESTRING (500030 5000010, 500040 5000010)");
    EXPECT_FALSE(mAnn.roads().IsDirty());
}

TEST_F(TwoEditors, TheSecondSaveOfOneFeatureIsRefusedNamingItAndNothingIsLost) {
    mAnn.rename(4, "ann's");
    ASSERT_TRUE(mAnn.save()) << mAnn.error();
    const std::string saved = checksum("roads");

    mBob.rename(4, "bob's");
    mBob.rename(5, "bob's too");
    TLFeature added;
    added.SetGeometry(geometry("LINESTRING (500000 5000200, 500050 5000200)"));
    mBob.editor()->StartOperation(TLString("add feature"));
    mBob.buffer()->AddFeature(added, true, true);
    mBob.editor()->CommitOperation(true);
    EXPECT_FALSE(mBob.save());
    EXPECT_EQ(mBob.error(),
              "Saving \"roads\" was refused: another editor changed feature 4 since it was "
              "read. Nothing was written and every edit is kept; reload that feature and save "
              "again.");
    EXPECT_EQ(conflicts(mBob.roads()), std::vector<int>{4});
    EXPECT_EQ(checksum("roads"), saved);
    // Every edit is still pending, and undo still takes them back one by one.
    EXPECT_EQ(mBob.roads().PendingChanges().size(), 3u);
    EXPECT_EQ(mBob.editor()->UndoCount(), 3);
    ASSERT_TRUE(mBob.editor()->Undo());
    EXPECT_FALSE(mBob.roads().HasFeature(added.GetId()));
    ASSERT_TRUE(mBob.editor()->Redo());
    EXPECT_TRUE(mBob.roads().HasFeature(added.GetId()));
    EXPECT_EQ(text(mBob.roads().PeekFeature(4), "name"), "bob's");

    // Reloading shows Ann's feature 4; the save of the rest then goes through.
    TLString why;
    ASSERT_TRUE(reloadConflicts(mBob.roads(), why)) << why.toStdString();
    EXPECT_EQ(text(mBob.roads().PeekFeature(4), "name"), "ann's");
    EXPECT_TRUE(conflicts(mBob.roads()).empty());
    ASSERT_TRUE(mBob.save()) << mBob.error();
    EXPECT_EQ(nameOf(4), "ann's");
    EXPECT_EQ(nameOf(5), "bob's too");
    EXPECT_EQ(value("SELECT count(*) FROM roads"), "11");
    // Bob may now make his change over Ann's, knowingly.
    mBob.rename(4, "bob's after all");
    ASSERT_TRUE(mBob.save()) << mBob.error();
    EXPECT_EQ(nameOf(4), "bob's after all");
}

TEST_F(TwoEditors, ADeleteMeetsAnEditAsAConflictEitherWayRound) {
    // Ann changed 6 and saved; Bob's delete of it would lose her change.
    mAnn.rename(6, "ann's");
    ASSERT_TRUE(mAnn.save()) << mAnn.error();
    mBob.buffer()->DeleteFeature(6, false, true);
    EXPECT_FALSE(mBob.save());
    EXPECT_NE(mBob.error().find("another editor changed feature 6 since"), std::string::npos)
        << mBob.error();
    EXPECT_EQ(nameOf(6), "ann's");

    // Ann deleted 7 and saved; Bob's change of it has nothing left to change.
    mAnn.buffer()->DeleteFeature(7, false, true);
    ASSERT_TRUE(mAnn.save()) << mAnn.error();
    mBob.rename(7, "bob's");
    EXPECT_FALSE(mBob.save());
    EXPECT_NE(mBob.error().find("another editor changed feature 6 and deleted feature 7 since "
                                "they were read"),
              std::string::npos)
        << mBob.error();
    EXPECT_EQ(conflicts(mBob.roads()), (std::vector<int>{6, 7}));

    // Both deleting one feature is no conflict.
    mAnn.buffer()->DeleteFeature(8, false, true);
    ASSERT_TRUE(mAnn.save()) << mAnn.error();
    TLString why;
    ASSERT_TRUE(reloadConflicts(mBob.roads(), why)) << why.toStdString();
    EXPECT_EQ(text(mBob.roads().PeekFeature(6), "name"), "ann's");
    EXPECT_FALSE(mBob.roads().HasFeature(7));
    mBob.buffer()->DeleteFeature(8, false, true);
    ASSERT_TRUE(mBob.save()) << mBob.error();
    EXPECT_EQ(value("SELECT string_agg(fid::text, ',' ORDER BY fid) FROM roads"),
              "1,2,3,4,5,6,9,10");
}

TEST_F(TwoEditors, ARefreshShowsOthersSavedWorkAndKeepsPendingEdits) {
    mAnn.rename(1, "ann's");
    mAnn.buffer()->DeleteFeature(2, false, true);
    TLFeature added;
    added.SetGeometry(geometry("LINESTRING (500000 5000300, 500050 5000300)"));
    mAnn.buffer()->AddFeature(added, false, true);
    ASSERT_TRUE(mAnn.save()) << mAnn.error();

    mBob.rename(1, "bob's");
    TLString why;
    ASSERT_TRUE(refresh(mBob.roads(), why)) << why.toStdString();
    EXPECT_FALSE(mBob.roads().HasFeature(2));
    ASSERT_TRUE(mBob.roads().HasFeature(added.GetId()));
    EXPECT_EQ(wktOf(mBob.roads().PeekFeature(added.GetId())),
              "LINESTRING (500000 5000300, 500050 5000300)");
    // Bob's own edit of 1 stays, and still meets Ann's as a conflict.
    EXPECT_EQ(text(mBob.roads().PeekFeature(1), "name"), "bob's");
    EXPECT_FALSE(mBob.save());
    EXPECT_EQ(conflicts(mBob.roads()), std::vector<int>{1});
}

TEST_F(TwoEditors, ALostServerGivesAClearMessageKeepsTheEditsAndASaveLaterGoesThrough) {
    mAnn.rename(9, "ann's");
    // The server goes away under Ann: her connection is cut and no new one is let in.
    serverSql("ALTER DATABASE \"" + database() + "\" ALLOW_CONNECTIONS false");
    sql("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = "
        "current_database() AND pid <> pg_backend_pid()");
    EXPECT_FALSE(mAnn.save());
    EXPECT_EQ(mAnn.error().rfind("Cannot reach the database of \"roads\": ", 0), 0u)
        << mAnn.error();
    EXPECT_NE(mAnn.error().find("Nothing was written and every edit is kept"), std::string::npos);
    EXPECT_EQ(mAnn.roads().PendingChanges().size(), 1u);
    EXPECT_EQ(mAnn.editor()->UndoCount(), 1);

    serverSql("ALTER DATABASE \"" + database() + "\" ALLOW_CONNECTIONS true");
    ASSERT_TRUE(mAnn.save()) << mAnn.error();
    EXPECT_EQ(nameOf(9), "ann's");
}

}  // namespace
}  // namespace TMObjects
