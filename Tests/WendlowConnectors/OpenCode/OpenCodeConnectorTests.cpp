#include "OpenCodeHome.h"

#include <sqlite3.h>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using testing::namesIn;
using testing::OpenCodeHome;
using testing::put;
using Result = ConnectorOutcome::Result;
namespace fs = std::filesystem;

TEST(OpenCodeConnector, asksTheSessionStoreWhichOpenCodeThisIs) {
    const OpenCodeHome home;
    const std::string usual = "The OpenCode desktop app and terminal.";
    const std::string update = "Update OpenCode and open it once to use it with Wendlow.";
    const std::string still =
        "OpenCode 1 is still being used on this Mac. Update it to use it with Wendlow.";
    const auto database = home.paths().sessionDatabase();
    const auto seen = [&] { return home.connector().scan().identity.detail; };
    const auto run = [&](const std::string& statements) {
        fs::create_directories(database.parent_path());
        sqlite3* connection = nullptr;
        ASSERT_EQ(sqlite3_open(database.c_str(), &connection), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(connection, statements.c_str(), nullptr, nullptr, nullptr), 0);
        sqlite3_close(connection);
    };
    EXPECT_EQ(seen(), usual);
    const ConnectorOutcome refused{
        Result::refused,
        {{database.string(), "this is OpenCode 1's session store; update OpenCode and open it "
                             "once, then tick it again. Nothing was written"}},
        {}};

    home.connector().install();
    put(home.pluginFile(), home.source() + "\n");
    EXPECT_TRUE(home.connector().staleOwnWiring());
    put(database, "not a database at all");
    EXPECT_EQ(seen(), update);
    EXPECT_EQ(home.connector().install(), refused);
    fs::remove(database);
    run("CREATE TABLE session (id, time_updated)");
    EXPECT_EQ(seen(), update);
    EXPECT_EQ(home.connector().install(), refused);
    EXPECT_FALSE(home.connector().staleOwnWiring());
    EXPECT_EQ(home.connector().remove().result, Result::changed);
    EXPECT_EQ(home.config(), std::nullopt);

    run("CREATE TABLE session_v2 (directory, time_updated); CREATE TABLE kv (key, time_updated);"
        "INSERT INTO kv VALUES ('migration.v1-v2', 1)");
    EXPECT_EQ(seen(), usual);
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(database.c_str(), &other), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(seen(), usual);
    EXPECT_EQ(home.connector().install().observations,
              (Observations{{database.string(),
                             "another program is keeping this session store to itself just now, so "
                             "that it cannot be told which OpenCode it is. Nothing was written"}}));
    sqlite3_close(other);
    run("INSERT INTO session VALUES ('s', 1800000000000)");
    EXPECT_EQ(seen(), still);
    fs::remove_all(home.paths().configDirectory);
    EXPECT_EQ(seen(), still);
    fs::create_directory(home.paths().configDirectory);
    EXPECT_EQ(home.connector().install().result, Result::changed);
}

TEST(OpenCodeConnector, neverWritesAnEntryThatDoesNotReadBack) {
    // A folder's name may be any bytes, and the entry would carry them into the file.
    const OpenCodeHome home;
    const OpenCodePaths paths = OpenCodePaths::under(home.path(""), home.path("odd\xFF.app"));
    put(paths.serversFile, "{}");
    const auto outcome = OpenCodeConnector(paths).install();
    EXPECT_EQ(outcome.result, Result::refused);
    EXPECT_EQ(outcome.observations, (Observations{{paths.serversFile.string(),
                                                   "nothing was written — a string holds bytes "
                                                   "that are not UTF-8 (at byte 45)"}}));
    EXPECT_EQ(namesIn(paths.configDirectory), std::vector<std::string>{"opencode.jsonc"});
}

} // namespace
} // namespace wendlow
