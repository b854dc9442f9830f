#include "OpenCodeHome.h"

#include <sqlite3.h>

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::get;
using testing::namesIn;
using testing::OpenCodeHome;
using testing::put;
using Result = ConnectorOutcome::Result;
namespace fs = std::filesystem;

const std::string copied = "a copy of the file was made here first";
const std::string asItWas = "nothing in this file needed changing";
const std::string serverWritten = "the Wendlow MCP server entry was written to this file";
const std::string pluginWritten = "the Wendlow plugin was written to this file";
const std::string serverRemoved = "the Wendlow MCP server entry was removed from this file";
const std::string pluginRemoved = "the Wendlow plugin was removed from this file";
const std::string created = "this file was created when Wendlow connected and was removed";
const std::string holdsCopy =
    "this folder holds the copy of the plugin that was made here first and remains";
const std::string isOff =
    "the Wendlow MCP entry here is switched off, so OpenCode does not start it";
const std::string foreignPlugin = "a file of this name is here and this build did not write it";

class OpenCode : public ::testing::Test {
protected:
    using Lines = std::vector<std::string>;

    /// Lines of "<name below ~/.config/opencode>: <text>", with this home's paths filled in.
    Lines filled(const Lines& lines) const {
        Lines result;
        for (const std::string& line : lines)
            result.push_back(home.paths().configDirectory.string() + home.filled(line));
        return result;
    }
    static Lines lines(const Observations& observations) {
        Lines result;
        for (const auto& [subject, text] : observations)
            result.push_back(subject + ": " + text);
        return result;
    }
    void expectOutcome(const ConnectorOutcome& outcome, Result result, const Lines& said) const {
        EXPECT_EQ(outcome.result, result);
        EXPECT_EQ(lines(outcome.observations), filled(said));
    }
    void expectScan(ConnectorState state, const Lines& said) const {
        const ScanReport report = home.connector().scan();
        EXPECT_EQ(report.state, state);
        EXPECT_EQ(lines(report.observations), filled(said));
    }
    void fill(const std::string& bytes) const { put(home.configFile(), home.filled(bytes)); }
    void expectConfig(const std::string& bytes) const {
        EXPECT_EQ(home.config(), home.filled(bytes));
    }
    Lines inPlugins() const { return namesIn(home.paths().pluginsDirectory); }

    const OpenCodeHome home;
    const std::string config = "/opencode.jsonc: ";
    const std::string plugin = "/plugins/wendlow.js: ";
    const std::string folder = "/plugins: ";
    const std::string copyName = ".wendlow-backup-20270115-080000";
    const std::string configCopy = "/opencode.jsonc" + copyName + ": " + copied;
    const std::string pluginCopy = "/plugins/wendlow.js" + copyName + ": " + copied;
    const std::string serverRuns = config + "the Wendlow MCP server entry here runs @command";
    const std::string pluginRuns = plugin + "the Wendlow plugin here runs @hook --harness opencode";
};

TEST_F(OpenCode, connectsAToolThatHasNoFilesYet) {
    expectScan(ConnectorState::found,
               {config + "there is no file here", plugin + "there is no file here"});
    const auto connector = home.connector();
    expectOutcome(connector.install(), Result::changed,
                  {config + serverWritten, plugin + pluginWritten});
    expectConfig(R"({
  "mcp": {
    "wendlow": {
      "type": "local",
      "command": [
        "@command"
      ],
      "enabled": true
    }
  }
}
)");
    EXPECT_EQ(home.plugin(), home.source());
    const std::set<Created> all{Created::openCodeConfigFile, Created::openCodeMCPObject,
                                Created::openCodeMCPEntry, Created::openCodePluginsDirectory,
                                Created::openCodePluginFile};
    EXPECT_EQ(home.receipt().created, all);
    expectScan(ConnectorState::connected, {serverRuns, pluginRuns});
    EXPECT_FALSE(connector.staleOwnWiring());
    expectOutcome(connector.install(), Result::unchanged, {config + asItWas, plugin + asItWas});
    EXPECT_EQ(home.receipt().created, all);

    expectOutcome(connector.remove(), Result::changed,
                  {configCopy, pluginCopy, config + created, plugin + created, folder + holdsCopy,
                   config + serverRemoved, plugin + pluginRemoved});
    EXPECT_EQ(home.config(), std::nullopt);
    EXPECT_EQ(inPlugins(), Lines{"wendlow.js" + copyName});
    EXPECT_FALSE(fs::exists(home.paths().receiptFile));
    expectOutcome(connector.remove(), Result::unchanged, {config + asItWas, plugin + asItWas});
}

TEST_F(OpenCode, isNotConjuredUp) {
    fs::remove(home.paths().configDirectory);
    expectScan(ConnectorState::notFound, {": there is no directory here"});
    expectOutcome(home.connector().install(), Result::refused,
                  {": there is no OpenCode configuration here, so nothing was written"});
    expectOutcome(home.connector().remove(), Result::unchanged,
                  {config + asItWas, plugin + asItWas});
    EXPECT_EQ(namesIn(home.path("")), (Lines{".config", "Wendlow.app"}));
    EXPECT_TRUE(fs::is_empty(home.path(".config")));
}

TEST_F(OpenCode, asksTheSessionStoreWhichOpenCodeThisIs) {
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
    put(home.pluginFile(), home.filled(home.source() + "\n"));
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
    run("INSERT INTO session VALUES ('s', 1800000000000)");
    EXPECT_EQ(seen(), still);
    fs::remove_all(home.paths().configDirectory);
    EXPECT_EQ(seen(), still);
    fs::create_directory(home.paths().configDirectory);
    EXPECT_EQ(home.connector().install().result, Result::changed);
}

TEST_F(OpenCode, saysWhatIsInItsWayAndTouchesNothing) {
    const std::string unread =
        "this file did not read as JSON with comments, so nothing was written — ";
    const std::string none = "nothing was written — ";
    const std::pair<std::string, std::string> cases[] = {
        {"", unread + "the document ended where a value was expected (at byte 0)"},
        {"\xEF\xBB\xBF{}", unread + "a value was expected (at byte 0)"},
        {"{} /* open", unread + "the document ended inside a comment (at byte 3)"},
        {"{\"a\":1,} // trailing", unread + "a member name was expected (at byte 7)"},
        {"{'a':1}", unread + "a member name was expected (at byte 1)"},
        {R"({"mcp":{"a":1,/**/"a":2}})",
         unread + "the name \"a\" appears twice in one object (at byte 18)"},
        {R"({"mcp":{"wendlow":{"command":["npx","wendlow"]}}})",
         none + "the mcp.wendlow entry here was written by hand and is not one this build wrote"},
        {R"({"mcp":{"wendlow":{"type":"local","command":["@command"],"timeout":5}}})",
         none + "the mcp.wendlow entry here carries a key this build does not write: timeout"},
    };
    const std::string still = plugin + "the Wendlow plugin here is still in place and still runs "
                                       "@hook --harness opencode";
    for (const auto& [bytes, text] : cases) {
        SCOPED_TRACE(bytes);
        fill(bytes);
        fs::remove_all(home.paths().pluginsDirectory);
        expectOutcome(home.connector().install(), Result::refused, {config + text});
        EXPECT_FALSE(fs::exists(home.paths().pluginsDirectory));
        expectOutcome(home.connector().remove(), Result::refused, {config + text});
        put(home.pluginFile(), OpenCodeHome::otherSource());
        expectOutcome(home.connector().remove(), Result::refused, {config + text, still});
        put(home.pluginFile(), "// mine");
        expectOutcome(home.connector().remove(), Result::refused, {config + text});
        expectConfig(bytes);
    }
    expectScan(ConnectorState::found,
               {config + "the entry carries a key this build does not write: timeout",
                plugin + foreignPlugin});
    fill("{\"a\":");
    expectScan(ConnectorState::found,
               {config + "this file did not read as JSON with comments — the document ended where "
                         "a value was expected (at byte 5)",
                plugin + foreignPlugin});

    // What a plan cannot put anywhere.
    fs::remove(home.pluginFile());
    fill(R"({"mcp":[]})");
    expectOutcome(home.connector().install(), Result::refused,
                  {config + none + "mcp is not an object"});
    fs::remove(home.configFile());
    fs::create_symlink("nowhere/opencode.jsonc", home.configFile());
    fs::remove(home.paths().pluginsDirectory);
    EXPECT_EQ(home.connector().install().result, Result::refused);
    EXPECT_FALSE(fs::exists(home.paths().pluginsDirectory)) << "made, and not taken away again";
    fs::remove(home.configFile());
    fs::create_symlink("nowhere", home.paths().pluginsDirectory);
    expectOutcome(home.connector().install(), Result::refused,
                  {folder + "this folder was not made, so nothing was written — File exists"});
    EXPECT_EQ(namesIn(home.paths().configDirectory), Lines{"plugins"});
    EXPECT_FALSE(fs::exists(home.paths().receiptFile));
}

TEST_F(OpenCode, leavesAPersonsOwnPluginAlone) {
    put(home.pluginFile(), "export default {}\n");
    expectOutcome(home.connector().install(), Result::refused,
                  {plugin + foreignPlugin + ", so nothing was written"});
    EXPECT_EQ(home.config(), std::nullopt);
    fill(R"({"mcp":{"wendlow":@entry}})");
    expectScan(ConnectorState::drifted, {serverRuns, plugin + foreignPlugin});
    expectOutcome(home.connector().remove(), Result::changed,
                  {configCopy,
                   config + "an empty mcp object remains here, which Wendlow did not "
                            "create",
                   plugin + foreignPlugin + ", and it was left as it is", config + serverRemoved,
                   plugin + asItWas});
    EXPECT_EQ(home.plugin(), "export default {}\n");
    fs::remove(home.pluginFile());
    fs::create_directory(home.pluginFile());
    for (const auto& outcome : {home.connector().install(), home.connector().remove()})
        expectOutcome(
            outcome, Result::refused,
            {plugin + "this file could not be read, so nothing was written — Is a directory"});
}

TEST_F(OpenCode, replacesAnotherBuildsPluginWhole) {
    fill(R"({"mcp":{"wendlow":@entry}})");
    put(home.pluginFile(), OpenCodeHome::otherSource());
    expectScan(ConnectorState::drifted,
               {serverRuns, plugin + "the Wendlow plugin here — the plugin file here is not the "
                                     "one this build writes"});
    EXPECT_FALSE(home.connector().staleOwnWiring()) << "it runs another copy of the application";
    expectOutcome(home.connector().install(), Result::changed,
                  {pluginCopy,
                   plugin + "the plugin file here was written by another Wendlow build and was "
                            "replaced",
                   plugin + pluginWritten, config + asItWas});
    EXPECT_EQ(home.plugin(), home.source());
    EXPECT_EQ(home.receipt(), ConnectorReceipt{});
    EXPECT_EQ(home.connector().remove().result, Result::changed);
    // The folder is the person's as far as anybody knows, and gets no word.
    EXPECT_EQ(inPlugins(), (Lines{"wendlow.js" + copyName, "wendlow.js" + copyName + "-02"}));
    expectConfig(R"({"mcp":{}})");
}

TEST_F(OpenCode, takesItsFolderAwayWhenNothingElseIsInIt) {
    const std::pair<std::string, std::string> cases[] = {
        {"", "this folder was created when Wendlow connected and was removed"},
        {"wendlow.js.wendlow-backup-mine", holdsCopy},
        {"mine.js", "this folder holds other files and remains"},
        {"wendlow.js.bak", "this folder holds other files and remains"},
    };
    for (const auto& [other, text] : cases) {
        SCOPED_TRACE(other);
        fs::remove_all(home.paths().configDirectory);
        fs::create_directory(home.paths().configDirectory);
        home.connector().install();
        fs::remove(home.pluginFile()); // by the person, so that no copy of it is made
        if (!other.empty())
            put(home.paths().pluginsDirectory / other, "");
        expectOutcome(home.connector().remove(), Result::changed,
                      {configCopy, config + created, folder + text, config + serverRemoved,
                       plugin + asItWas});
        EXPECT_EQ(fs::exists(home.paths().pluginsDirectory), !other.empty());
    }
}

TEST_F(OpenCode, leavesTheSwitchAndCountsTheCommentsItWritesOver) {
    fill("{\"mcp\":{\"wendlow\":{\"enabled\":false,\"command\":[// a\n\"/old/wendlow-mcp\"/* b */]"
         ",// c\n\"type\":\"local\"}}}");
    const std::string over = " inside the Wendlow entry here ";
    expectOutcome(home.connector().install(), Result::changed,
                  {configCopy, config + isOff,
                   config + "2 comment lines" + over + "were written over", config + serverWritten,
                   plugin + pluginWritten});
    expectConfig("{\"mcp\":{\"wendlow\":{\"enabled\":false,\"command\":[\n  \"@command\"\n],// c\n"
                 "\"type\":\"local\"}}}");
    expectScan(ConnectorState::drifted,
               {config + "the Wendlow MCP server entry here — " + isOff, pluginRuns});
    expectOutcome(home.connector().install(), Result::unchanged,
                  {config + isOff, config + asItWas, plugin + asItWas});
    fill("{\"mcp\":{\"wendlow\":{\"type\":\"local\",\"command\":[\"/old/wendlow-mcp\"/* b */]}}}");
    EXPECT_THAT(
        lines(home.connector().install().observations),
        ::testing::Contains(filled({config + "1 comment line" + over + "was written over"})[0]));
}

TEST_F(OpenCode, adoptsAnEmptyEntryAndGivesItBack) {
    const std::string shell = "{ \"mcp\": { \"wendlow\": {} } } // mine";
    fill(shell);
    EXPECT_EQ(home.connector().install().result, Result::changed);
    expectConfig(R"({ "mcp": { "wendlow": @entry } } // mine)");
    EXPECT_EQ(home.receipt().adopted, std::set{Adopted::openCodeMCPEntryShell});
    EXPECT_FALSE(home.receipt().created.contains(Created::openCodeMCPEntry));
    expectOutcome(home.connector().remove(), Result::changed,
                  {"/opencode.jsonc" + copyName + "-02: " + copied, pluginCopy,
                   config + "an empty wendlow entry remains here, which Wendlow did not create",
                   plugin + created, folder + holdsCopy, config + serverRemoved,
                   plugin + pluginRemoved});
    expectConfig(shell);
}

TEST_F(OpenCode, knowsWiringThatMayBeRefreshed) {
    const std::string entry = R"({"mcp":{"wendlow":@entry}} // mine)";
    const std::string source = home.source();
    const struct {
        std::string config, plugin;
        bool isStale;
    } cases[] = {
        {entry, source, false},
        {entry, source + "\n", true},
        {R"({"mcp":{"wendlow":{"command":["@command"],"more":1}}})", source + "\n", true},
        {entry, OpenCodeHome::otherSource(), false},
        {entry, "const HOOK = \"@hook\"\n", false},
        {R"({"mcp":{"wendlow":{"command":["/B/wendlow-mcp"]}}})", source + "\n", false},
        {"{}", source + "\n", false},
        {"{", source + "\n", false},
    };
    for (const auto& [bytes, text, isStale] : cases) {
        fill(bytes);
        put(home.pluginFile(), home.filled(text));
        EXPECT_EQ(home.connector().staleOwnWiring(), isStale) << bytes << text.substr(0, 40);
    }
    fill(entry);
    put(home.pluginFile(), source);
    fs::remove(home.paths().hookBinary);
    EXPECT_TRUE(home.connector().staleOwnWiring());
    EXPECT_EQ(home.connector().scan().observations.back().text,
              home.filled("the Wendlow plugin here — the file the command names is not on disk: "
                          "@hook"));
    fs::remove(home.paths().mcpBinary);
    EXPECT_FALSE(home.connector().staleOwnWiring());
}

} // namespace
} // namespace wendlow
