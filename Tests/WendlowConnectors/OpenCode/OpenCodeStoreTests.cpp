// OpenCode's session store as OpenCode writes it: real databases, damaged ones, and ones that
// another process is writing or has locked.

#include "OpenCode/OpenCodeInventory.h"
#include "OpenCode/OpenCodeSessionStore.h"

#include "Files.h"
#include "TemporaryHome.h"

#include <fmt/chrono.h>
#include <gmock/gmock.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

namespace wendlow {
namespace {

using namespace OpenCodeSessionStore;
using testing::get;
using ::testing::HasSubstr;
using testing::put;
namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

const std::string newTable = "CREATE TABLE session_v2(directory TEXT, time_updated);";
const std::string oldTable = "CREATE TABLE session(id TEXT, time_updated INTEGER);";

FileDate at(std::int64_t milliseconds) {
    return FileDate(std::chrono::milliseconds(milliseconds));
}

class OpenCodeStore : public ::testing::Test {
protected:
    OpenCodeStore() { fs::create_directories(paths.dataDirectory); }

    void exec(const std::string& sql) const {
        sqlite3* connection = nullptr;
        EXPECT_EQ(sqlite3_open(file.c_str(), &connection), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(connection);
        sqlite3_close(connection);
    }
    void fill(const std::string& sql) const {
        fs::remove_all(file);
        exec(sql);
    }
    /// Another process, which does `work` with its own connection while the rest of `beside` runs.
    template<class Work, class Beside> void whileAnother(Work work, Beside beside) const {
        int ready[2];
        ASSERT_EQ(::pipe(ready), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            sqlite3* connection = nullptr;
            const bool isOpen = sqlite3_open(file.c_str(), &connection) == SQLITE_OK;
            const auto run = [&](const std::string& sql) {
                if (sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
                    ::_exit(2);
            };
            work(run, [&] { (void)!::write(ready[1], "x", 1); });
            ::_exit(isOpen ? 0 : 1);
        }
        char byte = 0;
        ::close(ready[1]);
        ASSERT_EQ(::read(ready[0], &byte, 1), 1) << "the other process failed";
        ::close(ready[0]);
        beside(child);
        int status = -1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    /// While another process holds the database's exclusive lock for so long.
    template<class Beside> void whileLocked(std::chrono::seconds duration, Beside beside) const {
        whileAnother(
            [&](auto run, auto ready) {
                run("BEGIN EXCLUSIVE");
                ready();
                ::sleep(static_cast<unsigned>(duration.count()));
                run("COMMIT");
            },
            [&](pid_t) { beside(); });
    }
    std::string noteOfSilence(const std::string& reason) const {
        const auto day = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
        return fmt::format("session store present ({}, latest {:%Y-%m-%d}) — its database did not "
                           "answer: {}",
                           file, fmt::gmtime(std::chrono::system_clock::to_time_t(day)), reason);
    }
    ProjectReport projects() const { return OpenCodeInventory::projects(paths); }

    const testing::TemporaryHome home;
    const OpenCodePaths paths = OpenCodePaths::under(home.path(), home / "Wendlow.app");
    const std::string file = paths.sessionDatabase().string();
};

TEST_F(OpenCodeStore, listsFoldersWithTheirLatestTime) {
    fill(newTable + R"(INSERT INTO session_v2 VALUES('/old é', 1500), ('/new', 9000), ('/old é', 1),
        ('/late', 9223372036854775807), ('/b', 2000), ('/a', 2000), (NULL, 5), ('', 5),
        (x'2f61', 5), ('/no', NULL), ('/no', '5'), ('/no', 5.5), ('/no', 0), ('/no', -1))");
    const auto bytes = get(file);
    const Decoded expected{{{"/late", at(FileDate::max().time_since_epoch() / 1ms)},
                            {"/new", at(9000)},
                            {"/a", at(2000)},
                            {"/b", at(2000)},
                            {"/old é", at(1500)}},
                           8};
    EXPECT_EQ(read(file), expected);
    const auto report = projects();
    EXPECT_EQ(report.source, file);
    EXPECT_EQ(report.note, "8 session rows record no decodable project directory");
    ASSERT_EQ(report.projects.size(), 5U);
    EXPECT_EQ(report.projects[4], (ConnectorProject{"/old é", at(1500), std::nullopt}));
    EXPECT_EQ(get(file), bytes);
    EXPECT_EQ(testing::namesIn(paths.dataDirectory).size(), 1U);

    const std::pair<const char*, std::optional<std::string>> notes[] = {
        {"DELETE FROM session_v2 WHERE directory IS NOT NULL",
         "1 session row records no decodable project directory"},
        {"DELETE FROM session_v2", "the session store records no projects yet"},
        {"INSERT INTO session_v2 VALUES('/a', 1)", std::nullopt},
    };
    for (const auto& [sql, note] : notes) {
        exec(sql);
        EXPECT_EQ(projects().note, note);
    }
}

TEST_F(OpenCodeStore, readsAMillionRows) {
    fill(newTable + R"(BEGIN; WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n
        WHERE i < 1000000) INSERT INTO session_v2 SELECT '/project/' || (i % 40), i FROM n; COMMIT)");
    const auto decoded = read(file);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->sightings.size(), 40U);
    EXPECT_EQ(decoded->sightings.front(), (Sighting{"/project/0", at(1'000'000)}));
    EXPECT_EQ(decoded->sightings.back(), (Sighting{"/project/1", at(999'961)}));
    // Spoilt behind what a first look asks for, and then cut off, which the first look sees.
    const auto size = fs::file_size(file);
    {
        std::fstream middle(file, std::ios::in | std::ios::out | std::ios::binary);
        middle.seekp(static_cast<std::streamoff>(size / 2));
        middle << std::string(8192, 'x');
    }
    for (const Writer expected : {Writer::opencode2, Writer::unknown}) {
        EXPECT_EQ(writer(file), expected);
        EXPECT_EQ(projects().note, noteOfSilence("database disk image is malformed"));
        fs::resize_file(file, size * 2 / 3);
    }
}

TEST_F(OpenCodeStore, tellsWhichOpenCodeShapedIt) {
    EXPECT_EQ(writer(file), std::nullopt);
    const std::pair<std::string, Writer> cases[] = {
        {newTable, Writer::opencode2},
        {newTable + oldTable, Writer::opencode2},
        {oldTable, Writer::opencode1},
        {"CREATE TABLE kv(key, time_updated)", Writer::unknown},
        {"CREATE VIEW session_v2 AS SELECT 1", Writer::unknown},
    };
    for (const auto& [sql, expected] : cases) {
        fill(sql);
        EXPECT_EQ(writer(file), expected) << sql;
    }
    fill(oldTable);
    EXPECT_EQ(projects(), (ProjectReport{file, {}, noteOfSilence("no such table: session_v2")}));

    const std::string whole = *get(file);
    const std::pair<std::string, const char*> damaged[] = {
        {"", "no such table: session_v2"},
        {std::string(8192, 'x'), "file is not a database"},
        {whole.substr(0, 50), "database disk image is malformed"},
        {whole.substr(0, 4096), "database disk image is malformed"},
    };
    for (const auto& [bytes, reason] : damaged) {
        put(file, bytes);
        EXPECT_EQ(writer(file), Writer::unknown);
        EXPECT_EQ(projects().note, noteOfSilence(reason));
        EXPECT_FALSE(isOpenCode1StillUsed(file, at(0)));
        EXPECT_EQ(get(file), bytes);
    }
    fs::remove(file);
    fs::create_directory(file);
    EXPECT_EQ(writer(file), Writer::unknown);
    EXPECT_EQ(read(file), std::unexpected(Refusal{"disk I/O error"}));
}

TEST_F(OpenCodeStore, seesOpenCode1StillUsed) {
    const std::int64_t now = 2'000'000'000'999;
    const std::int64_t week = 604'800'000;
    const auto kv = [](std::int64_t migration) {
        return fmt::format("CREATE TABLE kv(key, time_updated); INSERT INTO kv VALUES"
                           "('migration.v1-v2', {}), ('other', 1);",
                           migration);
    };
    const auto session = [](std::int64_t time) {
        return oldTable + fmt::format("INSERT INTO session VALUES(NULL, 1), ('s', {});", time);
    };
    const std::pair<std::string, bool> cases[] = {
        {session(now - week) + kv(1000), true},
        {session(now - week - 1) + kv(1000), false},
        {session(now) + kv(now), false},
        {session(now) + kv(now - 1), true},
        {session(now), false},
        {session(now) + "CREATE TABLE kv(key, time_updated)", false},
        {kv(1000), false},
    };
    for (const auto& [sql, expected] : cases) {
        fill(sql);
        EXPECT_EQ(isOpenCode1StillUsed(file, at(now) + 900us), expected) << sql;
    }
}

TEST_F(OpenCodeStore, isReadBesideALiveWriter) {
    fill("PRAGMA journal_mode = WAL; " + newTable + "INSERT INTO session_v2 VALUES('/p', 1)");
    const auto write = [](auto run, auto ready) {
        run("INSERT INTO session_v2 VALUES('/p', 2)");
        ready();
        for (int time = 3; time <= 400; ++time)
            run(fmt::format("BEGIN; INSERT INTO session_v2 VALUES('/p', {}); COMMIT", time));
    };
    whileAnother(write, [&](pid_t child) {
        FileDate latest = at(2);
        int reads = 0;
        siginfo_t ended{};
        for (; ended.si_pid == 0; ++reads) {
            ASSERT_EQ(
                ::waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOWAIT | WNOHANG), 0);
            const auto decoded = read(file);
            ASSERT_TRUE(decoded) << decoded.error().reason;
            ASSERT_GE(decoded->sightings.at(0).lastActivity, latest);
            latest = decoded->sightings[0].lastActivity;
            EXPECT_EQ(writer(file), Writer::opencode2);
        }
        EXPECT_EQ(latest, at(400));
        EXPECT_GT(reads, 5);
    });
}

TEST_F(OpenCodeStore, waitsForALockAWhileAndNoLonger) {
    fill(newTable);
    const auto seconds = [](auto work) {
        const auto begin = Clock::now();
        work();
        return std::chrono::duration<double>(Clock::now() - begin).count();
    };
    whileLocked(1s, [&] {
        EXPECT_LT(seconds([&] { EXPECT_EQ(projects().note, noteOfSilence("database is locked")); }),
                  0.5);
        EXPECT_GT(seconds([&] { EXPECT_EQ(writer(file), Writer::opencode2); }), 0.3);
    });
    whileLocked(3s, [&] {
        const double waited = seconds([&] { EXPECT_EQ(writer(file), Writer::unknown); });
        EXPECT_GT(waited, 1.4);
        EXPECT_LT(waited, 2.5);
    });
    EXPECT_EQ(writer(file), Writer::opencode2);
}

TEST_F(OpenCodeStore, isNotThere) {
    const ProjectReport none{paths.dataDirectory.string(), {}, "no session store found"};
    EXPECT_EQ(projects(), none);
    put(paths.dataDirectory / "storage", "");
    EXPECT_EQ(projects(), none);
    fs::remove(paths.dataDirectory / "storage");
    fs::create_directory(paths.dataDirectory / "storage");
    EXPECT_EQ(projects().note, "legacy JSON session store present (" +
                                   (paths.dataDirectory / "storage").string() +
                                   ") — a pre-1.x layout this connector does not decode");
    fill(newTable);
    EXPECT_EQ(projects().note, "the session store records no projects yet");
    fs::remove_all(paths.dataDirectory);
    EXPECT_EQ(projects(), none);

    put(home / "AGENTS.md", "1");
    put(home / ".config/opencode/AGENTS.md", "12");
    const auto files = OpenCodeInventory::memoryFiles(paths).files;
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[0].path, (home / ".config/opencode/AGENTS.md").string());
    EXPECT_EQ(files[1].bytes, 1);
}

} // namespace
} // namespace wendlow
