// Symbol library files: written whole, read back style by style, appended to, and refused with
// a message when they are no library this host can read.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "StyleSamples.h"
#include "tlsymbol/TLStyleLibraryFile.h"
#include "tlsymbol/TLStyleSimpleLine.h"
#include "tlsymbol/TLStyleSystem.h"

namespace TMObjects {
namespace {

namespace fs = std::filesystem;

class StyleLibrary : public ::testing::Test {
protected:
    void SetUp() override {
        mDir = fs::temp_directory_path() /
               ("tl-style-" + std::to_string(::getpid()) + "-" +
                ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(mDir);
        fs::create_directories(mDir);
    }
    void TearDown() override { fs::remove_all(mDir); }

    TLString path(const char* name) const { return TLString((mDir / name).string()); }
    std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(mDir))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    // Writes a library of `styles` at `name` through the style system.
    void writeLibrary(const char* name, const std::vector<TLRefPtr<TLStyle>>& styles) {
        TLStyleSystem* system = TLStyleSystem::instance();
        TLStyleDB* library = system->AddNewStyleDB(path(name));
        ASSERT_NE(library, nullptr) << system->GetLastError().toStdString();
        for (const TLRefPtr<TLStyle>& style : styles)
            ASSERT_TRUE(library->AddStyleTakeOwnership(style));
        ASSERT_TRUE(system->SaveStyleDB(path(name))) << system->GetLastError().toStdString();
        system->CloseStyleDB(path(name));
    }
    void sql(const char* name, const char* statement) {
        sqlite3* db = nullptr;
        ASSERT_EQ(sqlite3_open((mDir / name).c_str(), &db), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(db, statement, nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(db);
    }
    std::string refusal(const char* name) {
        TLStyleSystem* system = TLStyleSystem::instance();
        EXPECT_EQ(system->AddNewStyleDB(path(name)), nullptr);
        return system->GetLastError().toStdString();
    }

    fs::path mDir;
};

TEST_F(StyleLibrary, WrittenLibraryReopensWithEveryStyleInOrder) {
    const std::vector<TLRefPtr<TLStyle>> samples = SampleStyles();
    writeLibrary("all.style", samples);
    EXPECT_EQ(files(), std::vector<std::string>{"all.style"});

    TLStyleDB* library = TLStyleSystem::instance()->AddNewStyleDB(path("all.style"));
    ASSERT_NE(library, nullptr);
    ASSERT_EQ(library->GetStyleCount(), int(samples.size()));
    for (size_t i = 0; i < samples.size(); ++i) {
        const TLRefPtr<TLStyle> back = library->GetStyle(int(i));
        EXPECT_NE(back, samples[i]) << "a new style, read from the file";
        EXPECT_EQ(back->GetName(), samples[i]->GetName());
        EXPECT_EQ(SavedBytes(back), SavedBytes(samples[i])) << i;
    }
    EXPECT_EQ(library->FindStyle(TLString("sample 5"))->GetTypeID(), TLStyle::SimpleLineType);
    EXPECT_FALSE(library->FindStyle(TLString("sample 99")));
    TLStyleSystem::instance()->CloseStyleDB(path("all.style"));
}

TEST_F(StyleLibrary, FileIsAnSQLiteDatabaseOneRowAStyle) {
    writeLibrary("look.style", SampleStyles());
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open_v2((mDir / "look.style").c_str(), &db, SQLITE_OPEN_READONLY, nullptr),
              SQLITE_OK);
    auto text = [db](const char* query) {
        sqlite3_stmt* statement = nullptr;
        std::string rows;
        EXPECT_EQ(sqlite3_prepare_v2(db, query, -1, &statement, nullptr), SQLITE_OK);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            for (int c = 0; c < sqlite3_column_count(statement); ++c)
                rows += std::string(c ? "|" : "") +
                        reinterpret_cast<const char*>(sqlite3_column_text(statement, c));
            rows += "\n";
        }
        sqlite3_finalize(statement);
        return rows;
    };
    EXPECT_EQ(text("PRAGMA application_id"), "1414288212\n");
    EXPECT_EQ(text("PRAGMA user_version"), "1\n");
    EXPECT_EQ(text("SELECT key, value FROM library ORDER BY key"),
              "format|1\nwriter|tlpluginactionex host\n");
    EXPECT_EQ(text("SELECT name, family, type_id, kind FROM styles WHERE id <= 5 ORDER BY id"),
              "sample 1|0|4|SimplePoint\nsample 2|0|5|CharacterPoint\nsample 3|0|6|BitmapPoint\n"
              "sample 4|0|27|SVGPoint\nsample 5|1|8|SimpleLine\n");
    sqlite3_close(db);
}

TEST_F(StyleLibrary, AnExistingLibraryIsAppendedToAndANameKeptOnce) {
    std::vector<TLRefPtr<TLStyle>> samples = SampleStyles();
    writeLibrary("lib.style", {samples[0], samples[1]});

    TLStyleSystem* system = TLStyleSystem::instance();
    TLStyleDB* library = system->AddNewStyleDB(path("lib.style"));
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(library->GetStyleCount(), 2);
    TLRefPtr<TLStyleSimpleLine> newer(new TLStyleSimpleLine());
    newer->SetName(TLString("sample 2"));
    newer->SetWidth(9);
    EXPECT_TRUE(library->AddStyleTakeOwnership(newer));
    EXPECT_TRUE(library->AddStyleTakeOwnership(samples[4]));
    // What the library cannot keep.
    EXPECT_FALSE(library->AddStyleTakeOwnership(TLRefPtr<TLStyle>()));
    EXPECT_FALSE(library->AddStyleTakeOwnership(TLRefPtr<TLStyle>(new TLStyleSimpleLine())));
    ASSERT_TRUE(system->SaveStyleDB(path("lib.style")));
    system->CloseStyleDB(path("lib.style"));

    library = system->AddNewStyleDB(path("lib.style"));
    ASSERT_NE(library, nullptr);
    ASSERT_EQ(library->GetStyleCount(), 3);
    EXPECT_EQ(library->GetStyle(0)->GetName(), TLString("sample 1"));
    EXPECT_EQ(library->GetStyle(1)->GetName(), TLString("sample 2"));
    EXPECT_EQ(library->GetStyle(1)->GetTypeID(), TLStyle::SimpleLineType) << "the newer style";
    EXPECT_EQ(library->GetStyle(2)->GetName(), TLString("sample 5"));
    system->CloseStyleDB(path("lib.style"));
}

TEST_F(StyleLibrary, FilesThatAreNoLibraryAreRefusedAndLeftAsTheyAre) {
    {
        std::ofstream garbage(mDir / "garbage.style");
        garbage << "this is no database, only text that is long enough to be read as a header..";
    }
    EXPECT_EQ(refusal("garbage.style"), "\"" + (mDir / "garbage.style").string() +
                                            "\" is no symbol library: file is not a database");

    sql("other.style", "CREATE TABLE t (a)");
    EXPECT_EQ(refusal("other.style"),
              "\"" + (mDir / "other.style").string() + "\" is no symbol library");

    writeLibrary("newer.style", SampleStyles());
    sql("newer.style", "PRAGMA user_version = 2");
    EXPECT_EQ(refusal("newer.style"),
              "\"" + (mDir / "newer.style").string() +
                  "\" was written by a newer version of the symbol library (format 2); this "
                  "host reads format 1 and older");

    writeLibrary("damaged.style", SampleStyles());
    sql("damaged.style", "UPDATE styles SET body = substr(body, 1, 20) WHERE id = 3");
    EXPECT_EQ(refusal("damaged.style"), "\"" + (mDir / "damaged.style").string() +
                                            "\" is damaged: style 3 (\"sample 3\") does not "
                                            "read back");

    EXPECT_EQ(refusal("."), "\"" + (mDir / ".").string() + "\" is a folder, not a symbol library");
    EXPECT_EQ(refusal("missing/lib.style"),
              "The folder of \"" + (mDir / "missing/lib.style").string() + "\" does not exist");
    // Nothing was written beside the refused files.
    EXPECT_EQ(files(), (std::vector<std::string>{"damaged.style", "garbage.style", "newer.style",
                                                 "other.style"}));
}

TEST_F(StyleLibrary, TruncatedLibraryIsRefusedAtEveryCut) {
    writeLibrary("whole.style", SampleStyles());
    std::ifstream in(mDir / "whole.style", std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    ASSERT_GT(bytes.size(), 4096u);
    for (size_t cut :
         {size_t(0), size_t(50), size_t(100), size_t(4096), bytes.size() / 2, bytes.size() - 1}) {
        {
            std::ofstream out(mDir / "cut.style", std::ios::binary | std::ios::trunc);
            out.write(bytes.data(), std::streamsize(cut));
        }
        const std::string reason = refusal("cut.style");
        EXPECT_NE(reason.find("cut.style\" "), std::string::npos) << cut << ": " << reason;
    }
}

TEST_F(StyleLibrary, SavingWritesAllOrNothing) {
    TLStyleSystem* system = TLStyleSystem::instance();
    writeLibrary("kept.style", {SampleStyles()[0]});
    TLStyleDB* library = system->AddNewStyleDB(path("kept.style"));
    ASSERT_NE(library, nullptr);
    library->AddStyleTakeOwnership(SampleStyles()[4]);
    // The file turns into a folder under the library's feet: the save fails and leaves nothing.
    fs::rename(mDir / "kept.style", mDir / "moved.style");
    fs::create_directory(mDir / "kept.style");
    EXPECT_FALSE(system->SaveStyleDB(path("kept.style")));
    EXPECT_NE(system->GetLastError().toStdString().find("could not be written"), std::string::npos);
    EXPECT_EQ(files(), (std::vector<std::string>{"kept.style", "moved.style"}));
    EXPECT_FALSE(system->SaveStyleDB(path("never-opened.style")));
    EXPECT_EQ(system->GetLastError().toStdString(),
              "No symbol library of \"" + (mDir / "never-opened.style").string() + "\" is open");
    system->CloseStyleDB(path("kept.style"));
}

}  // namespace
}  // namespace TMObjects
