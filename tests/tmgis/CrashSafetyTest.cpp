// Saves that fail or are killed part-way: the data source is exactly as it was or exactly as
// saved, the user is told which, and the next open puts right what a kill left.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <iostream>
#include <random>
#include <thread>

#include "DataFixture.h"
#include "SqliteDump.h"
#include "tmgis/TLFileSwap.h"

namespace TMObjects {

namespace {

namespace fs = std::filesystem;

class CrashSafety : public DataFixture {
protected:
    // The section of a dump that holds GDAL's counts.
    static std::string counts(const std::string& dump) {
        const std::size_t from = dump.find("-- gpkg_ogr_contents");
        if (from == std::string::npos) return "no counts";
        return dump.substr(from, dump.find("-- ", from + 3) - from);
    }
    // Points east of the demo wells, enough for a save that takes a while.
    static void addPoints(TLFeatureTable& table, int count) {
        for (int i = 0; i < count; ++i) {
            const std::string wkt =
                "POINT (" + std::to_string(600000 + i) + " " + std::to_string(5100000 + i) + ")";
            table.Insert(featureWith(wkt.c_str()));
        }
    }
    static bool save(TLFeatureTable& table, std::string& error) {
        TLString why;
        const bool saved = table.Save(why);
        error = why.toStdString();
        return saved;
    }
    // What a layer holds on disk as one text a feature, to compare whole layers.
    std::map<long long, std::string> contents(const std::string& path, const char* layer) {
        std::map<long long, std::string> flat;
        for (const auto& [id, stored] : readStored(path, layer)) {
            std::string& text = flat[id];
            text = stored.wkt;
            for (const auto& [name, value] : stored.values) text += "|" + name + "=" + value;
        }
        return flat;
    }
    static std::string notes(const TMWorkspace& workspace) {
        std::string text;
        for (const TLString& note : workspace.GetNotes()) text += note.toStdString() + "\n";
        return text;
    }
    std::vector<std::string> scratchLeft() const {
        std::vector<std::string> left;
        for (const auto& entry : fs::directory_iterator(dir()))
            if (entry.path().filename().string().rfind(".tlsave-", 0) == 0)
                left.push_back(entry.path().string());
        return left;
    }
    // Runs `work` in a child process that ends without any clean-up, as a kill would leave it.
    template <typename Work>
    static void inChild(Work work) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            work();
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFEXITED(status));
    }
};

// Files may grow by no more than `room` bytes past `path`'s size while the guard lives: the disk
// is full, as far as this process can tell.
class FullDisk {
public:
    FullDisk(const std::string& path, off_t room) {
        getrlimit(RLIMIT_FSIZE, &mWas);
        mHandler = signal(SIGXFSZ, SIG_IGN);
        rlimit limit = mWas;
        limit.rlim_cur = rlim_t(fs::file_size(path) + room);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &mWas);
        signal(SIGXFSZ, mHandler);
    }

private:
    rlimit mWas{};
    sighandler_t mHandler;
};

TEST_F(CrashSafety, AGeoPackageSaveThatFailsOnAFullDiskLeavesEveryTableAsItWasAndSaysSo) {
    const std::string path = makeGeoPackage();
    auto workspace = open(path);
    TLFeatureTable& wells = tableOf(*workspace, "wells");
    addPoints(wells, 30000);
    const std::string before = SqliteDump(path);
    std::string error;
    {
        FullDisk full(path, 4096);
        EXPECT_FALSE(save(wells, error));
    }
    EXPECT_NE(error.find("Saving \"wells\" failed"), std::string::npos) << error;
    EXPECT_NE(error.find("The data source was left as it was."), std::string::npos) << error;
    EXPECT_EQ(error.find("CREATE TRIGGER"), std::string::npos) << "the cause, not its train";
    EXPECT_EQ(DumpDifference(before, SqliteDump(path)), "");
    // The edits are still pending, and go in once there is room.
    EXPECT_TRUE(wells.IsDirty());
    ASSERT_TRUE(save(wells, error)) << error;
    EXPECT_EQ(readStored(path, "wells").size(), 30002u);
}

TEST_F(CrashSafety, AKillRightAfterAGeoPackageCommitLeavesItsRecordsComplete) {
    const std::string path = makeGeoPackage();
    inChild([&] {
        TLString error;
        auto workspace = TMWorkspace::Open(TLString(path), true, error);
        TLFeatureTable& wells = tableOf(*workspace, "wells");
        addPoints(wells, 5000);
        TLString why;
        if (wells.Save(why)) _exit(0);  // no closing, no clean-up: as if killed right here
        _exit(3);
    });
    const std::string dump = SqliteDump(path);
    EXPECT_NE(dump.find("'wells'|5002"), std::string::npos) << counts(dump);
    EXPECT_NE(dump.find("trigger_insert_feature_count_wells"), std::string::npos);
    auto workspace = open(path);
    EXPECT_EQ(notes(*workspace).find("interrupted"), std::string::npos) << notes(*workspace);
}

TEST_F(CrashSafety, TheNextOpenRepairsAGeoPackageLeftBetweenGdalsCommitsAndSaysSo) {
    const std::string path = makeGeoPackage();
    // GDAL left alone writes the count, the extent and the count triggers after the rows, in
    // transactions of their own: killed in between, the file holds the rows and nothing else.
    inChild([&] {
        GDALAllRegister();
        GDALDataset* dataset = GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE);
        OGRLayer* wells = dataset->GetLayerByName("wells");
        dataset->StartTransaction(FALSE);
        for (int i = 0; i < 2000; ++i) {
            OGRFeature feature(wells->GetLayerDefn());
            feature.SetGeometryDirectly(new OGRPoint(700000 + i, 5200000 + i));
            if (wells->CreateFeature(&feature) != OGRERR_NONE) _exit(3);
        }
        dataset->CommitTransaction();
        _exit(0);
    });
    ASSERT_NE(SqliteDump(path).find("'wells'|NULL"), std::string::npos) << counts(SqliteDump(path));

    auto workspace = open(path, false);
    ASSERT_TRUE(workspace);
    EXPECT_NE(notes(*workspace).find("the records of layer wells"), std::string::npos)
        << notes(*workspace);
    const std::string dump = SqliteDump(path);
    EXPECT_NE(dump.find("'wells'|2002"), std::string::npos);
    EXPECT_NE(dump.find("trigger_insert_feature_count_wells"), std::string::npos);
    EXPECT_NE(dump.find("trigger_delete_feature_count_wells"), std::string::npos);
    GDALDatasetUniquePtr dataset(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR));
    OGREnvelope extent;
    ASSERT_EQ(dataset->GetLayerByName("wells")->GetExtent(&extent, FALSE), OGRERR_NONE);
    EXPECT_EQ(extent.MaxX, 700000 + 1999);
    EXPECT_EQ(dataset->GetLayerByName("wells")->GetFeatureCount(FALSE), 2002);
}

TEST_F(CrashSafety, TheNextOpenTakesBackAGeoPackageSaveKilledBeforeItsCommit) {
    const std::string path = makeGeoPackage();
    const std::string before = SqliteDump(path);
    // A transaction whose pages spilled into the file, then a kill: a hot journal is left.
    inChild([&] {
        sqlite3* db = nullptr;
        sqlite3_open(path.c_str(), &db);
        sqlite3_exec(db,
                     "PRAGMA cache_size = 1; BEGIN; "
                     "CREATE TABLE filler(x); "
                     "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                     "WHERE i < 20000) INSERT INTO filler SELECT randomblob(100) FROM n; "
                     "DELETE FROM gpkg_ogr_contents;",
                     nullptr, nullptr, nullptr);
        _exit(0);
    });
    ASSERT_TRUE(fs::exists(path + "-journal"));
    GDALAllRegister();
    EXPECT_FALSE(
        GDALDatasetUniquePtr(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY)))
        << "a read-only open fails on a hot journal";

    auto workspace = open(path, false);
    ASSERT_TRUE(workspace);
    EXPECT_NE(notes(*workspace).find("was interrupted; it was taken back"), std::string::npos)
        << notes(*workspace);
    EXPECT_EQ(DumpDifference(before, SqliteDump(path)), "");
}

class ShapefileSwap : public CrashSafety {
protected:
    // The parcels Shapefile before and after a save that adds a square, each kept in a folder.
    void SetUp() override {
        CrashSafety::SetUp();
        mPath = makeParcels("parcels.shp", "ESRI Shapefile");
        mOld = readStored(mPath, "parcels");
        keep(dir() / "old");
        auto workspace = open(mPath);
        TLFeatureTable& parcels = tableOf(*workspace, "parcels");
        parcels.Insert(featureWith("POLYGON ((0 0, 0 1, 1 1, 1 0, 0 0))"));
        std::string error;
        ASSERT_TRUE(save(parcels, error)) << error;
        mNew = readStored(mPath, "parcels");
        ASSERT_NE(mNew.size(), mOld.size());
        keep(dir() / "new");
    }
    void keep(const fs::path& folder) {
        fs::create_directory(folder);
        for (const char* ext : {".shp", ".shx", ".dbf", ".prj"})
            fs::copy_file(dir() / (std::string("parcels") + ext),
                          folder / (std::string("parcels") + ext),
                          fs::copy_options::overwrite_existing);
    }
    void put(const fs::path& from, const fs::path& to, const char* ext) {
        fs::copy_file(from / (std::string("parcels") + ext), to / (std::string("parcels") + ext),
                      fs::copy_options::overwrite_existing);
    }
    // A swap killed at `step`: the new files in a scratch folder, decided or not, and the first
    // `moved` of them already in place.
    void killedSwap(bool decided, int moved) {
        for (const char* ext : {".shp", ".shx", ".dbf", ".prj"}) put(dir() / "old", dir(), ext);
        const fs::path scratch = dir() / ".tlsave-killed";
        fs::create_directory(scratch);
        const std::vector<const char*> exts = {".shp", ".shx", ".dbf", ".prj"};
        for (const char* ext : exts) put(dir() / "new", scratch, ext);
        if (decided) {
            std::ofstream list(scratch / "swap");
            for (const char* ext : exts) list << "new parcels" << ext << "\n";
            list << "end\n";
        }
        for (int i = 0; i < moved; ++i)
            fs::rename(scratch / (std::string("parcels") + exts[i]),
                       dir() / (std::string("parcels") + exts[i]));
    }
    std::string mPath;
    std::map<long long, Stored> mOld, mNew;
};

TEST_F(ShapefileSwap, ASwapKilledBeforeItWasDecidedIsThrownAwayAndTheLayerIsAsBefore) {
    killedSwap(false, 0);
    auto workspace = open(mPath);
    EXPECT_NE(notes(*workspace).find("interrupted before it changed anything"), std::string::npos);
    EXPECT_EQ(readStored(mPath, "parcels").size(), mOld.size());
    EXPECT_TRUE(scratchLeft().empty());
}

TEST_F(ShapefileSwap, ASwapKilledHalfWayIsFinishedWhateverFilesItHadMoved) {
    for (int moved = 0; moved <= 4; ++moved) {
        killedSwap(true, moved);
        auto workspace = open(mPath);
        ASSERT_TRUE(workspace);
        EXPECT_NE(notes(*workspace).find("it was finished"), std::string::npos) << moved;
        EXPECT_EQ(readStored(mPath, "parcels").size(), mNew.size()) << moved;
        for (const char* ext : {".shp", ".shx", ".dbf"})
            EXPECT_EQ(bytesOf(mPath.substr(0, mPath.size() - 4) + ext),
                      bytesOf((dir() / "new" / (std::string("parcels") + ext)).string()))
                << moved << ext;
        EXPECT_TRUE(scratchLeft().empty()) << moved;
    }
}

TEST_F(ShapefileSwap, ALayerOpenedFromItsIndexFileSavesToItsOwnFiles) {
    const std::string shx = mPath.substr(0, mPath.size() - 4) + ".shx";
    auto workspace = open(shx);
    TLFeatureTable& parcels = tableOf(*workspace, "parcels");
    parcels.Insert(featureWith("POLYGON ((5 5, 5 6, 6 6, 6 5, 5 5))"));
    std::string error;
    ASSERT_TRUE(save(parcels, error)) << error;
    EXPECT_EQ(readStored(mPath, "parcels").size(), mNew.size() + 1);
    EXPECT_TRUE(scratchLeft().empty());
}

// Kills the saving process at random moments of a large save: whatever the moment, the next open
// finds the layer exactly as it was or exactly as saved.
class KilledSave : public CrashSafety {
protected:
    static constexpr std::size_t kAdded = 20000;

    void killAtRandom(const std::string& path, const char* layer, unsigned seed) {
        keepFiles(path);
        const auto old = contents(path, layer);
        const auto started = std::chrono::steady_clock::now();
        inChild([&] { saveMany(path, layer); });
        const auto took = std::chrono::steady_clock::now() - started;
        const auto saved = contents(path, layer);
        ASSERT_EQ(saved.size(), old.size() + kAdded);
        std::mt19937 random(seed);
        int oldSeen = 0, newSeen = 0;
        for (int round = 0; round < 8; ++round) {
            putBackFiles(path);
            const pid_t child = fork();
            ASSERT_GE(child, 0);
            if (child == 0) saveMany(path, layer);
            std::this_thread::sleep_for(took *
                                        std::uniform_real_distribution<double>(0.3, 1.1)(random));
            kill(child, SIGKILL);
            int status = 0;
            waitpid(child, &status, 0);
            TLString error;
            auto workspace = TMWorkspace::Open(TLString(path), false, error);
            ASSERT_TRUE(workspace) << error.toStdString();
            const auto now = contents(path, layer);
            EXPECT_TRUE(now == old || now == saved)
                << "seed " << seed << " round " << round << ": " << now.size()
                << " features, neither as before nor as saved";
            (now == old ? oldSeen : newSeen)++;
            EXPECT_TRUE(scratchLeft().empty()) << "round " << round;
        }
        std::cout << "killed saves: " << oldSeen << " found as before, " << newSeen
                  << " as saved\n";
    }

private:
    static void saveMany(const std::string& path, const char* layer) {
        TLString error;
        auto workspace = TMWorkspace::Open(TLString(path), true, error);
        if (!workspace) _exit(3);
        TLFeatureTable& table = tableOf(*workspace, layer);
        for (std::size_t i = 0; i < kAdded; ++i) {
            const std::string x = std::to_string(i), x1 = std::to_string(i + 1);
            const std::string wkt =
                "POLYGON ((" + x + " 0, " + x + " 1, " + x1 + " 1, " + x + " 0))";
            table.Insert(featureWith(wkt.c_str()));
        }
        TLString why;
        _exit(table.Save(why) ? 0 : 3);
    }
    // The data source's files (those that share its stem) kept aside and put back.
    void keepFiles(const std::string& path) {
        const std::string stem = fs::path(path).stem().string();
        fs::create_directory(dir() / "kept");
        for (const auto& entry : fs::directory_iterator(dir()))
            if (entry.is_regular_file() && entry.path().stem() == stem)
                fs::copy_file(entry.path(), dir() / "kept" / entry.path().filename());
    }
    void putBackFiles(const std::string& path) {
        const std::string stem = fs::path(path).stem().string();
        for (const auto& entry : fs::directory_iterator(dir()))
            if (entry.is_regular_file() && entry.path().stem().string().rfind(stem, 0) == 0)
                fs::remove(entry.path());
        for (const auto& entry : fs::directory_iterator(dir() / "kept"))
            fs::copy_file(entry.path(), dir() / entry.path().filename());
    }
};

TEST_F(KilledSave, AGeoPackageKilledAnywhereInALargeSaveIsExactlyOldOrExactlyNew) {
    killAtRandom(makeGeoPackage(), "parcels", 21);
}

TEST_F(KilledSave, AShapefileKilledAnywhereInALargeSaveIsExactlyOldOrExactlyNew) {
    killAtRandom(makeParcels("parcels.shp", "ESRI Shapefile"), "parcels", 21);
}

}  // namespace
}  // namespace TMObjects
