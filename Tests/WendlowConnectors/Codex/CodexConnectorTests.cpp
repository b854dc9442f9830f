#include "CodexHome.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::CodexHome;
using ::testing::ElementsAre;
using testing::put;
using Result = ConnectorOutcome::Result;
namespace fs = std::filesystem;

constexpr const char* copied = "a copy of the file was made here first";
constexpr const char* written = "the Wendlow entry was written to this file";
constexpr const char* removed = "the Wendlow entry was removed from this file";
constexpr const char* asItWas = "nothing in this file needed changing";

const std::string ours = R"({"hooks":{"UserPromptSubmit":[{"hooks":[@ours]}]}})";
const std::string serverTable = "[mcp_servers.wendlow]\n@server";
/// The table that records the trust of our entry at this position.
std::string trustTable(const std::string& position) {
    return "[hooks.state.\"@slot:" + position + "\"]\ntrusted_hash = \"@hash\"\n";
}

class Codex : public ::testing::Test {
protected:
    /// The observations with this home's paths and hashes written as in `CodexHome::filled`.
    void expectOutcome(const ConnectorOutcome& outcome, Result result,
                       const Observations& observations) const {
        EXPECT_EQ(outcome.result, result);
        EXPECT_EQ(texts(outcome.observations), texts(home.filled(observations)));
    }
    void expectScan(ConnectorState state, const Observations& observations) const {
        const ScanReport report = home.connector().scan();
        EXPECT_EQ(report.state, state);
        EXPECT_EQ(texts(report.observations), texts(home.filled(observations)));
    }
    void expectFiles(const std::optional<std::string>& hooks,
                     const std::optional<std::string>& config) const {
        const auto filled = [&](const std::optional<std::string>& bytes) {
            return bytes ? std::optional(home.filled(*bytes)) : bytes;
        };
        EXPECT_EQ(home.hooks(), filled(hooks));
        EXPECT_EQ(home.config(), filled(config));
    }
    static std::vector<std::string> texts(const Observations& observations) {
        std::vector<std::string> lines;
        for (const auto& [subject, text] : observations)
            lines.push_back(subject + ": " + text);
        return lines;
    }

    const CodexHome home;
    const std::string hooksName = "@home/.codex/hooks.json";
    const std::string configName = "@home/.codex/config.toml";
    const std::string hooksCopy = hooksName + ".wendlow-backup-20270115-080000";
    const std::string configCopy = configName + ".wendlow-backup-20270115-080000";
    const Observation hookRuns{hooksName, "the Wendlow hook entry here runs "
                                          "@home/Wendlow.app/Contents/MacOS/wendlow-hook "
                                          "--harness codex"};
    const Observation serverRuns{configName, "the Wendlow MCP server entry here runs "
                                             "@home/Wendlow.app/Contents/MacOS/wendlow-mcp"};
    const Observation trusted{configName,
                              "the trusted hash recorded here matches the Wendlow hook entry"};
};

TEST_F(Codex, connectsAToolThatHasNoFilesYet) {
    expectScan(ConnectorState::found,
               {{hooksName, "there is no file here"}, {configName, "there is no file here"}});
    const auto connector = home.connector();
    expectOutcome(connector.install(), Result::changed,
                  {{hooksName, written}, {configName, written}});
    expectFiles(R"({
  "hooks": {
    "UserPromptSubmit": [
      {
        "hooks": [
          {
            "type": "command",
            "command": "@home/Wendlow.app/Contents/MacOS/wendlow-hook --harness codex",
            "statusMessage": "Loading Wendlow rules and memory",
            "timeout": 3,
            "additionalContextLimit": 7500
          }
        ]
      }
    ]
  }
}
)",
                serverTable + "\n" + trustTable("0:0"));
    EXPECT_EQ(home.receipt(), (ConnectorReceipt{{Created::codexHooksFile, Created::codexHooksObject,
                                                 Created::codexEventArray, Created::codexHookGroup,
                                                 Created::codexConfigFile, Created::codexMCPTable,
                                                 Created::codexTrustTable},
                                                {},
                                                {home.filled("@slot:0:0")},
                                                {}}));
    expectScan(ConnectorState::connected, {hookRuns, serverRuns, trusted});
    EXPECT_FALSE(connector.staleOwnWiring());
    expectOutcome(connector.install(), Result::unchanged,
                  {{hooksName, asItWas}, {configName, asItWas}});

    const std::string gone = "this file was created when Wendlow connected and was removed";
    expectOutcome(connector.remove(), Result::changed,
                  {{hooksCopy, copied},
                   {configCopy, copied},
                   {hooksName, gone},
                   {configName, gone},
                   {hooksName, removed},
                   {configName, removed}});
    expectFiles({}, {});
    EXPECT_FALSE(fs::exists(home.paths().receiptFile));
    expectOutcome(connector.remove(), Result::unchanged,
                  {{hooksName, asItWas}, {configName, asItWas}});
}

TEST_F(Codex, isNotConjuredUp) {
    fs::remove(home.paths().configDirectory);
    expectScan(ConnectorState::notFound, {{"@home/.codex", "there is no directory here"},
                                          {configName, "there is no file here"}});
    expectOutcome(
        home.connector().install(), Result::refused,
        {{"@home/.codex", "there is no Codex configuration here, so nothing was written"}});
    EXPECT_FALSE(fs::exists(home.paths().configDirectory));
    EXPECT_FALSE(fs::exists(home.path("Library")));
}

TEST_F(Codex, leavesWhatItDidNotCreate) {
    home.fill(R"({"hooks":{"UserPromptSubmit":[{"hooks":[]}]}})", "\n");
    const auto connector = home.connector();
    connector.install();
    expectOutcome(connector.remove(), Result::changed,
                  {{hooksCopy + "-02", copied},
                   {configCopy + "-02", copied},
                   {configName, "this file is now empty and remains, because Wendlow did not "
                                "create it"},
                   {hooksName, removed},
                   {configName, removed}});
    expectFiles(R"({"hooks":{"UserPromptSubmit":[{"hooks":[]}]}})", "\n");
}

TEST_F(Codex, saysWhichFileIsInItsWay) {
    const std::string notJSON = "this file did not read as JSON, so nothing was written — ";
    const std::string notTOML = "this file did not read as TOML, so nothing was written — ";
    const std::string stated = " states the Wendlow block outside a table of its own, which is not "
                               "a shape this build can edit";
    const std::string table = "the table ";
    enum class Refused { both, installOnly };
    const struct {
        std::string hooks, config, text;
        Refused refused = Refused::both;
    } cases[] = {
        {"{", "= 1", notJSON + "a member name was expected (at byte 1)"},
        {R"({"hooks":[]})", "a = 1\n", "nothing was written — hooks is not an object",
         Refused::installOnly},
        {R"({"hooks":{"UserPromptSubmit":5}})", "a = 1\n",
         "nothing was written — hooks.UserPromptSubmit is not an array", Refused::installOnly},
        {"{}", "a = [", notTOML + "a value was left open at the end of the file (at byte 4)"},
        {"{}", serverTable + serverTable,
         notTOML + table + "[mcp_servers.wendlow] is declared twice in this file"},
        {"{}", "[[mcp_servers.wendlow]]\n",
         notTOML + table +
             "[[mcp_servers.wendlow]] is an array of tables, which is not a shape "
             "this build can edit"},
        {"{}", "mcp_servers.wendlow.command = \"x\"\n",
         notTOML + "the key mcp_servers.wendlow.command" + stated},
        {"{}", serverTable + "args = [1]\n",
         notTOML + "the key args appears twice in [mcp_servers.wendlow] (at byte " +
             std::to_string(home.filled(serverTable).size()) + ")"},
        // The table that the trust lands in counts too, once it is known which one that is.
        {R"({"hooks":{"UserPromptSubmit":[{"hooks":[@theirs]}]}})",
         "[hooks.state]\n\"@slot:1:0\" = { trusted_hash = \"x\" }\n",
         notTOML + "the key \"@slot:1:0\"" + stated, Refused::installOnly},
        {"{}", "[mcp_servers.wendlow]\ncommand = \"/usr/local/bin/x\"\n",
         "nothing was written — the [mcp_servers.wendlow] entry here was written by hand and is "
         "not one this build wrote"},
        {"{}", "[mcp_servers.wendlow.env]\n",
         "nothing was written — the [mcp_servers.wendlow.env] hangs under the Wendlow MCP entry, "
         "and writing this file would leave it holding an entry with no command"},
    };
    for (const auto& [hooks, config, text, refused] : cases) {
        SCOPED_TRACE(text);
        const bool isHooks = text.starts_with(notJSON) || text.contains("— hooks");
        const Observation refusal{isHooks ? hooksName : configName, text};
        home.fill(hooks, config);
        expectOutcome(home.connector().install(), Result::refused, {refusal});
        if (refused == Refused::both)
            expectOutcome(home.connector().remove(), Result::refused, {refusal});
        expectFiles(hooks, config);
        EXPECT_NE(home.connector().scan().state, ConnectorState::connected);
    }
    EXPECT_FALSE(fs::exists(home.paths().receiptFile));
    home.fill("{}", "a = [");
    expectScan(ConnectorState::found,
               {{hooksName, "this file holds no Wendlow hook entry"},
                {configName, "this file did not read as TOML — a value was left open at the end of "
                             "the file (at byte 4)"}});
}

TEST_F(Codex, neverWritesAConfigurationThatDoesNotReadBack) {
    // A folder's name may be any bytes, and the slot's key would carry them into the file.
    const fs::path odd = home.path("odd\xFF");
    const CodexPaths paths = CodexPaths::under(odd, home.path("Wendlow.app"));
    put(paths.configFile, "a = 1\n");
    const auto outcome = CodexConnector(paths).install();
    EXPECT_EQ(outcome.result, Result::refused);
    EXPECT_EQ(outcome.observations,
              (Observations{{paths.configFile.string(), "the planned edit did not read back as "
                                                        "TOML, so nothing was written"}}));
    EXPECT_EQ(testing::namesIn(paths.configDirectory), std::vector<std::string>{"config.toml"});
}

TEST_F(Codex, leavesTheSwitchAndSaysSo) {
    home.fill(ours, serverTable + "\n" + trustTable("0:0") + "enabled = false # not now\n");
    const Observation off{configName, "the hook switch recorded here is off, so Codex does not "
                                      "call the Wendlow hook entry in @home/.codex/hooks.json"};
    expectScan(ConnectorState::drifted, {hookRuns, serverRuns, off});
    expectOutcome(home.connector().install(), Result::unchanged,
                  {{hooksName, asItWas}, {configName, asItWas}, off});
    home.connector().remove();
    expectFiles(R"({"hooks":{"UserPromptSubmit":[{"hooks":[]}]}})",
                "[hooks.state.\"@slot:0:0\"]\nenabled = false # not now\n");
}

TEST_F(Codex, followsItsEntryToAnotherPosition) {
    home.fill(R"({"hooks":{"UserPromptSubmit":[{"hooks":[@theirs]}]}})", "");
    const auto connector = home.connector();
    connector.install();
    expectFiles(R"({"hooks":{"UserPromptSubmit":[{"hooks":[@theirs]},{"hooks":[@ours]}]}})",
                serverTable + "\n" + trustTable("1:0"));

    // The person takes their own hook out of the way.
    put(home.hooksFile(), home.filled(ours));
    expectScan(ConnectorState::drifted,
               {hookRuns,
                serverRuns,
                {configName, "no trusted hash is recorded here for the Wendlow hook entry in "
                             "@home/.codex/hooks.json"}});
    EXPECT_TRUE(connector.staleOwnWiring());
    expectOutcome(connector.install(), Result::changed,
                  {{configCopy + "-02", copied}, {configName, written}, {hooksName, asItWas}});
    expectFiles(ours, serverTable + "\n" + trustTable("0:0"));
    EXPECT_THAT(home.receipt().trustSlots, ElementsAre(home.filled("@slot:0:0")));

    // And puts another one in front, which Codex comes to trust.
    const std::string both =
        R"({"hooks":{"UserPromptSubmit":[{"hooks":[@theirs]},{"hooks":[@ours]}]}})";
    home.fill(both,
              "[hooks.state.\"@slot:0:0\"]\ntrusted_hash = \"sha256:theirs\"\n\n" + serverTable);
    connector.install();
    expectFiles(both, "[hooks.state.\"@slot:0:0\"]\ntrusted_hash = \"sha256:theirs\"\n\n" +
                          serverTable + "\n" + trustTable("1:0"));
    connector.remove();
    expectFiles(R"({"hooks":{"UserPromptSubmit":[{"hooks":[@theirs]}]}})",
                "[hooks.state.\"@slot:0:0\"]\ntrusted_hash = \"sha256:theirs\"\n");
}

TEST_F(Codex, saysWhatItMovesAndWhatItLeaves) {
    home.fill(
        R"({"hooks":{"UserPromptSubmit":[{"hooks":[@ours]},{"hooks":[@ours]},{"hooks":[@theirs]}]}})",
        trustTable("0:0") + trustTable("1:0") + trustTable("2:0"));
    const Observation moved{configName, "trusted hashes here are recorded by position, and 1 hook "
                                        "entries in @home/.codex/hooks.json moved position"};
    const auto left = [&](const std::string& position) {
        return Observation{configName, "a hash Wendlow's hook has carried before is recorded here "
                                       "for the slot @slot:" +
                                           position + ", which Wendlow did not write"};
    };
    expectScan(ConnectorState::drifted,
               {{hooksName, "the Wendlow hook entry here — this file holds 2 Wendlow entries where "
                            "one is expected"},
                {configName, "this file holds no Wendlow MCP server entry"},
                trusted,
                left("1:0"),
                left("2:0")});
    expectOutcome(home.connector().install(), Result::changed,
                  {{hooksCopy, copied},
                   {configCopy, copied},
                   {hooksName, written},
                   {configName, written},
                   left("1:0"),
                   moved});
    expectFiles(R"({"hooks":{"UserPromptSubmit":[{"hooks":[@ours]},{"hooks":[@theirs]}]}})",
                trustTable("0:0") + trustTable("1:0") + "\n" + serverTable);
    // Their entry stands where ours has left its hash, so that one is nobody's to take away.
    expectOutcome(home.connector().remove(), Result::changed,
                  {{hooksCopy + "-02", copied},
                   {configCopy + "-02", copied},
                   {hooksName, "an empty hook group remains here, which Wendlow did not create"},
                   left("1:0"),
                   {hooksName, removed},
                   {configName, removed}});
    expectFiles(R"({"hooks":{"UserPromptSubmit":[{"hooks":[]},{"hooks":[@theirs]}]}})",
                trustTable("1:0"));
}

TEST_F(Codex, saysThatCommentsWereReplaced) {
    home.fill(ours, "# above\n[mcp_servers.wendlow]\n# one\ncommand = "
                    "\"/B/Wendlow.app/Contents/MacOS/wendlow-mcp\" # two\n\n# three\n"
                    "args = [ # four\n]\n# below\n[x]\ny = \"# none\"\n");
    expectOutcome(home.connector().install(), Result::changed,
                  {{configCopy, copied},
                   {configName, written},
                   {hooksName, asItWas},
                   {configName, "4 comment lines inside the Wendlow MCP entry were replaced"}});
    expectFiles(ours,
                "# above\n" + serverTable + "# below\n[x]\ny = \"# none\"\n\n" + trustTable("0:0"));
}

} // namespace
} // namespace wendlow
