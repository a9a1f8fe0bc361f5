#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fcntl.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "PgFixture.h"

extern char** environ;

namespace TMObjects {
namespace {

// A host killed in the middle of a save of 10^4 changed features leaves the table exactly as it
// was; a host left to finish leaves it exactly as the save wants it. Either way every row is
// compared, by a checksum of the whole table.
class KilledSave : public PgFixture {
protected:
    static constexpr int kRoads = 10000;

    void SetUp() override {
        PgFixture::SetUp();
        if (HasFatalFailure()) return;
        makeRoads(kRoads);
        mDir = std::filesystem::temp_directory_path() / ("tl_killed_" + database());
        std::filesystem::create_directories(mDir);
        // A session of tlrun that renames every road, one attribute edit each, and saves.
        std::ofstream script(mDir / "rename.tls");
        script << "open \"" << connection() << "\"\n";
        for (int id = 1; id <= kRoads; ++id)
            script << "set roads " << id << " name renamed-" << id << "\n";
        script << "save roads\n";
    }
    void TearDown() override {
        std::error_code ignored;
        std::filesystem::remove_all(mDir, ignored);
        PgFixture::TearDown();
    }

    pid_t startHost() {
        const std::string tlrun = TLRUN, dir = mDir.string(),
                          script = (mDir / "rename.tls").string(),
                          out = (mDir / "transcript.txt").string();
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                         0644);
        posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
        char* const argv[] = {const_cast<char*>(tlrun.c_str()), const_cast<char*>("--workdir"),
                              const_cast<char*>(dir.c_str()), const_cast<char*>(script.c_str()),
                              nullptr};
        pid_t pid = -1;
        EXPECT_EQ(posix_spawn(&pid, tlrun.c_str(), &actions, nullptr, argv, environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        return pid;
    }

    // Waits until `query` answers something other than nothing, for as long as the test may
    // take: a loaded machine plays 10^4 edits slowly.
    std::string awaitAnswer(const std::string& query) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(14);
        for (;;) {
            const std::string answer = value(query);
            if (!answer.empty() || std::chrono::steady_clock::now() > deadline) return answer;
            std::this_thread::yield();
        }
    }

    // The table's checksum as the complete save leaves it, found in a transaction taken back.
    std::string renamedChecksum() {
        sql("BEGIN; UPDATE roads SET name = 'renamed-' || fid");
        const std::string renamed = checksum("roads");
        sql("ROLLBACK");
        return renamed;
    }

    std::filesystem::path mDir;
};

TEST_F(KilledSave, AHostKilledInTheMiddleOfASaveLeavesEveryRowAsItWas) {
    const std::string before = checksum("roads");
    // The save is held, inside its transaction, at the last of its 10^4 updates, until the
    // test lets go: there the host is killed.
    sql("CREATE FUNCTION hold() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN "
        "PERFORM pg_advisory_xact_lock_shared(4242); RETURN NEW; END $$;"
        "CREATE TRIGGER hold AFTER UPDATE ON roads FOR EACH ROW WHEN (NEW.fid = 10000) "
        "EXECUTE FUNCTION hold();"
        "SELECT pg_advisory_lock(4242);");
    const pid_t host = startHost();
    ASSERT_GT(host, 0);
    const std::string backend = awaitAnswer(
        "SELECT pid FROM pg_stat_activity WHERE datname = current_database() AND "
        "wait_event_type = 'Lock' AND wait_event = 'advisory'");
    ASSERT_FALSE(backend.empty()) << "the save never reached its last update";
    // By now 9999 rows are written, uncommitted.
    ASSERT_EQ(kill(host, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(waitpid(host, &status, 0), host);
    EXPECT_TRUE(WIFSIGNALED(status));
    sql("SELECT pg_advisory_unlock(4242)");
    // The server finds its client gone when it answers, and takes the transaction back.
    const std::string gone = awaitAnswer(
        "SELECT 'gone' WHERE NOT EXISTS (SELECT 1 FROM "
        "pg_stat_activity WHERE pid = " +
        backend + ")");
    ASSERT_EQ(gone, "gone");
    EXPECT_EQ(checksum("roads"), before);
    EXPECT_EQ(value("SELECT count(*) FROM roads WHERE name LIKE 'renamed-%'"), "0");
}

TEST_F(KilledSave, AHostLeftToFinishLeavesEveryRowAsTheSaveWants) {
    const std::string renamed = renamedChecksum();
    ASSERT_NE(renamed, checksum("roads"));
    const pid_t host = startHost();
    ASSERT_GT(host, 0);
    int status = 0;
    ASSERT_EQ(waitpid(host, &status, 0), host);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(checksum("roads"), renamed);
    std::ifstream transcript(mDir / "transcript.txt");
    const std::string said((std::istreambuf_iterator<char>(transcript)),
                           std::istreambuf_iterator<char>());
    EXPECT_NE(said.find("roads: 10000 changes written to"), std::string::npos);
}

}  // namespace
}  // namespace TMObjects
