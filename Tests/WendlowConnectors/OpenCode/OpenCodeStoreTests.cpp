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
using testing::put;
namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

const std::string newTable = "CREATE TABLE session_v2(directory TEXT, time_updated);";
const std::string oldTable = "CREATE TABLE session(id TEXT, time_updated INTEGER);";

FileDate at(std::int64_t milliseconds) {
    return FileDate(std::chrono::milliseconds(milliseconds));
}

double secondsOf(const std::function<void()>& work) {
    const auto begin = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

/// A connection that may write.
struct Connection {
    explicit Connection(const std::string& file) {
        sqlite3_open(file.c_str(), &database);
        sqlite3_busy_timeout(database, 5000);
    }
    ~Connection() { sqlite3_close(database); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void run(const std::string& sql) const {
        ASSERT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database) << sql;
    }
    sqlite3* database = nullptr;
};

class OpenCodeStore : public ::testing::Test {
protected:
    OpenCodeStore() { fs::create_directories(paths.dataDirectory); }

    void fill(const std::string& sql) const {
        fs::remove_all(file);
        Connection(file).run(sql);
    }
    /// Another process does `work` after `begin`, while this one does `beside`.
    void whileAnother(const std::string& begin, const std::function<void(const Connection&)>& work,
                      const std::function<void(pid_t)>& beside) const {
        std::array<int, 2> ready{};
        ASSERT_EQ(::pipe(ready.data()), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            const Connection connection(file);
            connection.run(begin);
            ::close(ready[1]);
            work(connection);
            ::_exit(HasFailure() ? 1 : 0);
        }
        ::close(ready[1]);
        char none = 0;
        EXPECT_EQ(::read(ready[0], &none, 1), 0);
        ::close(ready[0]);
        beside(child);
        int status = -1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    /// While another process holds the database's exclusive lock for so long.
    void whileLocked(unsigned seconds, const std::function<void(pid_t)>& beside) const {
        const auto hold = [&](const Connection&) { ::sleep(seconds); };
        whileAnother("BEGIN EXCLUSIVE", hold, beside);
    }
    std::string noteOfSilence(const std::string& reason) const {
        const auto now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
        return fmt::format("session store present ({}, latest {:%Y-%m-%d}) — its database did not "
                           "answer: {}",
                           file, fmt::gmtime(now), reason);
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
    const auto [source, found, note] = projects();
    const std::vector<std::pair<std::string, FileDate>> expected{
        {"/late", at(FileDate::max().time_since_epoch() / 1ms)},
        {"/new", at(9000)},
        {"/a", at(2000)},
        {"/b", at(2000)},
        {"/old é", at(1500)}};
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t index = 0; index < expected.size(); ++index)
        EXPECT_EQ(found[index],
                  (ConnectorProject{expected[index].first, expected[index].second, std::nullopt}));
    EXPECT_EQ(source, file);
    EXPECT_EQ(note, "8 session rows record no decodable project directory");
    EXPECT_EQ(get(file), bytes);
    EXPECT_EQ(testing::namesIn(paths.dataDirectory).size(), 1U);

    const std::pair<const char*, std::optional<std::string>> notes[] = {
        {"DELETE FROM session_v2 WHERE directory IS NOT NULL",
         "1 session row records no decodable project directory"},
        {"DELETE FROM session_v2", "the session store records no projects yet"},
        {"INSERT INTO session_v2 VALUES('/a', 1)", std::nullopt},
    };
    for (const auto& [sql, said] : notes) {
        Connection(file).run(sql);
        EXPECT_EQ(projects().note, said);
    }
}

TEST_F(OpenCodeStore, readsAMillionRows) {
    fill(newTable + R"(BEGIN; WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE
        i < 1000000) INSERT INTO session_v2 SELECT '/project/' || (i % 40), i FROM n; COMMIT)");
    const auto decoded = read(file);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->sightings.size(), 40U);
    EXPECT_EQ(decoded->sightings.front(), (Sighting{"/project/0", at(1'000'000)}));
    EXPECT_EQ(decoded->sightings.back(), (Sighting{"/project/1", at(999'961)}));
    // Spoilt behind what a first look asks for, and then cut off, which the first look sees.
    const auto size = fs::file_size(file);
    std::fstream(file, std::ios::in | std::ios::out).seekp(static_cast<std::streamoff>(size / 2))
        << std::string(8192, 'x');
    for (const Writer expected : {Writer::opencode2, Writer::unknown}) {
        EXPECT_EQ(writer(file), expected);
        EXPECT_EQ(projects().note, noteOfSilence("database disk image is malformed"));
        fs::resize_file(file, size * 2 / 3);
    }
}

TEST_F(OpenCodeStore, tellsWhichOpenCodeShapedIt) {
    EXPECT_EQ(writer(file), std::nullopt);
    const std::pair<std::string, Writer> cases[] = {
        {newTable + oldTable, Writer::opencode2},
        {"CREATE TABLE kv(key, time_updated)", Writer::unknown},
        {"CREATE VIEW session_v2 AS SELECT 1", Writer::unknown},
        {oldTable, Writer::opencode1},
    };
    for (const auto& [sql, expected] : cases) {
        fill(sql);
        EXPECT_EQ(writer(file), expected) << sql;
    }
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
}

TEST_F(OpenCodeStore, seesOpenCode1StillUsed) {
    const std::int64_t now = 2'000'000'000'999;
    const std::int64_t week = 604'800'000;
    const std::string noMigration = "CREATE TABLE kv(key, time_updated);";
    const auto kv = [&](std::int64_t migration) {
        return noMigration + fmt::format("INSERT INTO kv VALUES('migration.v1-v2', {})", migration);
    };
    const auto session = [](std::int64_t time) {
        return oldTable + fmt::format("INSERT INTO session VALUES(NULL, 1), ('s', {});", time);
    };
    const std::pair<std::string, bool> cases[] = {
        {session(now - week) + kv(1000), true},
        {session(now - week - 1) + kv(1000), false},
        {session(now) + kv(now), false},
        {session(now) + kv(now - 1), true},
        {session(now) + noMigration, false},
        {session(now), false},
        {kv(1000), false},
    };
    for (const auto& [sql, expected] : cases) {
        fill(sql);
        EXPECT_EQ(isOpenCode1StillUsed(file, at(now) + 900us), expected) << sql;
    }
}

TEST_F(OpenCodeStore, isReadBesideALiveWriter) {
    fill("PRAGMA journal_mode = WAL; " + newTable);
    const auto write = [](const Connection& connection) {
        for (int time = 3; time <= 400; ++time)
            connection.run(fmt::format("INSERT INTO session_v2 VALUES('/p', {})", time));
    };
    whileAnother("INSERT INTO session_v2 VALUES('/p', 2)", write, [&](pid_t child) {
        FileDate latest = at(2);
        siginfo_t ended{};
        while (ended.si_pid == 0) {
            ::waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOWAIT | WNOHANG);
            const auto decoded = read(file);
            ASSERT_TRUE(decoded) << decoded.error().reason;
            ASSERT_GE(decoded->sightings.at(0).lastActivity, latest);
            latest = decoded->sightings[0].lastActivity;
            EXPECT_EQ(writer(file), Writer::opencode2);
        }
        EXPECT_EQ(latest, at(400));
    });
}

TEST_F(OpenCodeStore, waitsForALockAWhileAndNoLonger) {
    fill(newTable);
    const auto askWriter = [&](Writer expected) {
        return secondsOf([&] { EXPECT_EQ(writer(file), expected); });
    };
    whileLocked(1, [&](pid_t) {
        const std::string locked = noteOfSilence("database is locked");
        EXPECT_LT(secondsOf([&] { EXPECT_EQ(projects().note, locked); }), 0.5);
        EXPECT_GT(askWriter(Writer::opencode2), 0.3);
    });
    whileLocked(3, [&](pid_t) {
        const double waited = askWriter(Writer::locked);
        EXPECT_GT(waited, 1.4);
        EXPECT_LT(waited, 2.5);
    });
}

TEST_F(OpenCodeStore, leavesNothingBesideADatabaseAtRest) {
    fill("PRAGMA journal_mode = WAL; " + newTable + "INSERT INTO session_v2 VALUES('/p', 2)");
    for (const bool hasLog : {false, true}) {
        if (hasLog)
            put(file + "-wal", ""); // as a reader that could not take it away again leaves it
        const auto names = testing::namesIn(paths.dataDirectory);
        EXPECT_EQ(writer(file), Writer::opencode2);
        EXPECT_EQ(read(file)->sightings.size(), 1U);
        EXPECT_EQ(testing::namesIn(paths.dataDirectory), names);
    }
    // What a name means in an address means nothing here.
    const fs::path odd = paths.dataDirectory / "a?b%41#c.db";
    fs::copy_file(file, odd);
    EXPECT_EQ(writer(odd), Writer::opencode2);
}

TEST_F(OpenCodeStore, isNotThere) {
    const fs::path storage = paths.dataDirectory / "storage";
    const ProjectReport none{paths.dataDirectory.string(), {}, "no session store found"};
    put(storage, "a file");
    EXPECT_EQ(projects(), none);
    fs::remove(storage);
    fs::create_directory(storage);
    EXPECT_EQ(projects().note, "legacy JSON session store present (" + storage.string() +
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
