// What goes wrong in people's files, each caused for real.

#include "ConfigFile/Backup.h"
#include "OpenCodeHome.h"
#include "OpenCodeRoundTrip.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::get;
using testing::namesIn;
using testing::OpenCodeHome;
using testing::put;
using Result = ConnectorOutcome::Result;
namespace fs = std::filesystem;

TEST(OpenCodeFaults, theConfigurationComesBackByteForByte) {
    const char* const cases[] = {
        "{\n  // mine\n  \"$schema\": \"https://opencode.ai/config.json\"\n}\n",
        "// head\r\n{\r\n\t\"a\": 1, // 30.0\r\n\t/* \" */ \"b\": 30.0\r\n}\r\n// foot",
        "{\n  \"mcp\": {\n    \"x\": { \"command\": [\"a\", /* b */ \"c\"] } // last\n  }\n}",
        "{\"mcp\":{\"x\":{}},\"a\":[ ],\"s\":\"// \\/ \\u00e9 é\"}",
        "{ \"mcp\" /* 1 */ : /* 2 */ { /* 3 */ \"x\" : 1 /* 4 */ } /* 5 */ } // 6",
        "{\"a\":1//c\n,\"b\":2}",
        "{\"a\":1\n//c\n}",
        "{/* only */}",
        "{ // only\n}\n",
        "\n\n{\t}\n\n",
        "{\"mcp\":{}}",
        "{\"mcp\":{ // here\n}}",
        "{\"x\":{\"a\":1,\"a\":2},\"wendlow\":{},\"plugin\":[\"wendlow.js\"]}",
    };
    for (const std::string before : cases) {
        SCOPED_TRACE(before);
        const OpenCodeHome home;
        put(home.configFile(), before, 0640);
        put(home.paths().configDirectory / "opencode.json", "{}");
        const auto connector = home.connector();
        for (int round = 0; round < 2; ++round) {
            EXPECT_EQ(connector.install().result, Result::changed);
            EXPECT_EQ(connector.scan().state, ConnectorState::connected);
            EXPECT_EQ(connector.install().result, Result::unchanged);
            EXPECT_EQ(connector.remove().result, Result::changed);
            EXPECT_EQ(home.config(), before == "\n\n{\t}\n\n" ? "\n\n{}\n\n" : before);
        }
        EXPECT_EQ(testing::modeOf(home.configFile()), mode_t{0640});
        EXPECT_EQ(get(home.paths().configDirectory / "opencode.json"), "{}");
        EXPECT_EQ(testing::brokenOpenCodeRoundTrip(OpenCodeMCP(home.paths()), before),
                  std::nullopt);
    }
}

TEST(OpenCodeFaults, whatAPersonAddsAfterwardsStays) {
    const OpenCodeHome home;
    const auto connector = home.connector();
    connector.install();
    // Into the file, the object and the entry that we made, and beside the plugin.
    put(home.configFile(),
        home.filled("{ // mine\n\"mcp\":{\"x\":1,/* why */\"wendlow\":{\"timeout\""
                    ":5,\"type\":\"local\",\"command\":[\"@command\",\"-v\"]}}}"));
    put(home.paths().pluginsDirectory / "mine.js", "");
    EXPECT_EQ(connector.scan().state, ConnectorState::drifted);
    EXPECT_FALSE(connector.staleOwnWiring());
    EXPECT_EQ(connector.install().result, Result::changed);
    EXPECT_EQ(connector.scan().state, ConnectorState::connected);
    EXPECT_EQ(connector.remove().result, Result::changed);
    EXPECT_EQ(home.config(), "{ // mine\n\"mcp\":{\"x\":1/* why */}}");
    EXPECT_TRUE(fs::exists(home.paths().pluginsDirectory / "mine.js"));

    // A tool that writes its file anew, our entry set to null, is put right; what stays of it goes.
    connector.install();
    put(home.configFile(), R"({"mcp":{"wendlow":null},"x":1})");
    EXPECT_EQ(connector.install().result, Result::refused);
    EXPECT_EQ(connector.remove().result, Result::changed);
    EXPECT_EQ(home.config(), R"({"mcp":{},"x":1})");
    EXPECT_EQ(home.plugin(), std::nullopt);
}

TEST(OpenCodeFaults, linksStayLinks) {
    const OpenCodeHome home;
    const fs::path dotfiles = home.path("dotfiles");
    fs::remove(home.paths().configDirectory);
    fs::create_directories(dotfiles / "plugins");
    fs::create_directory_symlink(dotfiles, home.paths().configDirectory);
    const std::string before = "{ // shared\n}\n";
    put(dotfiles / "shared.jsonc", before);
    fs::create_symlink("shared.jsonc", home.configFile());
    fs::create_symlink("../theirs/wendlow.js", home.pluginFile());
    fs::create_directory(dotfiles / "theirs");
    EXPECT_EQ(home.connector().install().result, Result::changed);
    EXPECT_EQ(home.connector().scan().state, ConnectorState::connected);
    EXPECT_EQ(get(dotfiles / "theirs/wendlow.js"), home.source());
    EXPECT_EQ(home.connector().remove().result, Result::changed);
    EXPECT_EQ(get(dotfiles / "shared.jsonc"), before);
    EXPECT_EQ(Backup::all(dotfiles / "shared.jsonc").size(), 2);
    EXPECT_FALSE(fs::exists(dotfiles / "theirs/wendlow.js"));
    EXPECT_TRUE(fs::is_symlink(home.configFile()));
    EXPECT_TRUE(fs::is_symlink(home.pluginFile()));
    EXPECT_TRUE(fs::is_symlink(home.paths().configDirectory));
}

TEST(OpenCodeFaults, neverWritesAnEntryThatDoesNotReadBack) {
    // A folder's name may be any bytes, and the entry would carry them into the file.
    const OpenCodeHome home;
    const OpenCodePaths paths = OpenCodePaths::under(home.path(""), home.path("odd\xFF.app"));
    put(paths.configFile, "{}");
    const auto outcome = OpenCodeConnector(paths).install();
    EXPECT_EQ(outcome.result, Result::refused);
    EXPECT_EQ(outcome.observations, (Observations{{paths.configFile.string(),
                                                   "nothing was written — a string holds bytes "
                                                   "that are not UTF-8 (at byte 45)"}}));
    EXPECT_EQ(namesIn(paths.configDirectory), std::vector<std::string>{"opencode.jsonc"});
}

TEST(OpenCodeFaults, aFolderThatAnotherProgramFillsMeanwhileStays) {
    const OpenCodeHome home;
    put(home.configFile(), "{}");
    int renames = 0;
    const auto meanwhile = [&] {
        if (++renames > 1)
            return;
        put(home.paths().pluginsDirectory / "theirs.js", "");
        fs::create_directory(home.pluginFile());
    };
    EXPECT_EQ(home.connector(meanwhile).install().result, Result::refused);
    EXPECT_EQ(home.config(), "{}");
    EXPECT_TRUE(fs::exists(home.paths().pluginsDirectory / "theirs.js"));
    EXPECT_FALSE(fs::exists(home.paths().receiptFile));
}

} // namespace
} // namespace wendlow
