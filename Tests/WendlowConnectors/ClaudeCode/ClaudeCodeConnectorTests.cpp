#include "ClaudeCodeHome.h"

#include "ConfigFile/Backup.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::ClaudeCodeHome;
using ::testing::ElementsAre;
using testing::get;
using testing::put;
using Result = ConnectorOutcome::Result;

const std::string settingsBefore = R"json({
	"permissions": { "allow": ["Bash(ls:*)"] },
	"hooks": {
		"Stop": [{ "hooks": [{ "type": "command", "command": "say done" }] }]
	},
	"model": "opus"
}
)json";
const std::string serversBefore =
    R"({"numStartups": 30.0, "url": "https:\/\/x", "mcpServers": {"files": {"args": []}}, "ä": 1})";

constexpr const char* written = "the Wendlow entry was written to this file";
constexpr const char* removedText = "the Wendlow entry was removed from this file";
constexpr const char* nothing = "nothing in this file needed changing";
constexpr const char* copied = "a copy of the file was made here first";

std::string copyOf(const std::string& file, const std::string& end = "") {
    return file + ".wendlow-backup-" +
           Backup::stamp(Transaction::Date(std::chrono::seconds(1'800'000'000))) + end;
}

TEST(ClaudeCodeConnector, connectsAndDisconnectsTwoRealFiles) {
    const ClaudeCodeHome home;
    home.fill(settingsBefore, serversBefore);
    const auto connector = home.connector();
    const std::string bundle = home.bundle().string();

    const auto installed = connector.install();
    EXPECT_EQ(installed.result, Result::changed);
    EXPECT_THAT(installed.observations, ElementsAre(Observation{copyOf(home.settings()), copied},
                                                    Observation{copyOf(home.servers()), copied},
                                                    Observation{home.settings(), written},
                                                    Observation{home.servers(), written}));
    EXPECT_THAT(installed.backups, ElementsAre(copyOf(home.settings()), copyOf(home.servers())));
    const auto entry = [&](const std::string& slot) {
        return "\n\t\t\t\t\t{\n\t\t\t\t\t\t\"type\": \"command\",\n\t\t\t\t\t\t\"command\": \"" +
               bundle + "/Contents/MacOS/wendlow-hook --harness claude-code --slot " + slot +
               "\",\n\t\t\t\t\t\t\"timeout\": 3\n\t\t\t\t\t}";
    };
    EXPECT_EQ(get(home.settings()), R"json({
	"permissions": { "allow": ["Bash(ls:*)"] },
	"hooks": {
		"Stop": [{ "hooks": [{ "type": "command", "command": "say done" }] }],
		"UserPromptSubmit": [
			{
				"hooks": [)json" +
                                        entry("rules") + "," + entry("index") + "," +
                                        entry("recall") + R"json(
				]
			}
		],
		"PreToolUse": [
			{
				"matcher": "mcp__wendlow__.*",
				"hooks": [)json" +
                                        entry("pretool") + R"json(
				]
			}
		]
	},
	"model": "opus"
}
)json");
    EXPECT_EQ(get(home.servers()),
              R"({"numStartups": 30.0, "url": "https:\/\/x", "mcpServers": {"files": {"args": [)"
              R"(]},"wendlow":{"type":"stdio","command":")" +
                  bundle + R"(/Contents/MacOS/wendlow-mcp","args":[],"env":{}}}, "ä": 1})");
    EXPECT_EQ(get(copyOf(home.settings())), settingsBefore);
    EXPECT_EQ(get(home.paths().receiptFile), R"({
  "adopted": [],
  "created": [
    "eventArray",
    "hookGroup",
    "preToolEventArray",
    "preToolGroup"
  ],
  "trustSlots": []
})");
    EXPECT_EQ(connector.scan().state, ConnectorState::connected);

    const auto removed = connector.remove();
    EXPECT_EQ(removed.result, Result::changed);
    EXPECT_THAT(removed.observations,
                ElementsAre(Observation{copyOf(home.settings(), "-02"), copied},
                            Observation{copyOf(home.servers(), "-02"), copied},
                            Observation{home.settings(), removedText},
                            Observation{home.servers(), removedText}));
    EXPECT_EQ(get(home.settings()), settingsBefore);
    EXPECT_EQ(get(home.servers()), serversBefore);
    EXPECT_FALSE(std::filesystem::exists(home.paths().receiptFile));
}

TEST(ClaudeCodeConnector, saysWhatItFinds) {
    const ClaudeCodeHome home;
    const auto connector = home.connector();
    const std::string hook = (home.bundle() / "Contents/MacOS/wendlow-hook").string();
    const std::string server = (home.bundle() / "Contents/MacOS/wendlow-mcp").string();
    const auto expectScan = [&](ConnectorState state, const Observations& observations) {
        EXPECT_EQ(connector.scan(), (ScanReport{connector.identity(), state, observations}));
    };
    expectScan(ConnectorState::notFound,
               {{home.path(".claude").string(), "there is no directory here"},
                {home.servers(), "there is no file here"}});
    home.fill({}, "{}");
    expectScan(ConnectorState::found, {{home.settings(), "there is no file here"},
                                       {home.servers(), "this file holds no Wendlow MCP server "
                                                        "entry"}});
    connector.install();
    expectScan(
        ConnectorState::connected,
        {{home.settings(), "the Wendlow hook entry here runs " + hook + " --harness claude-code"},
         {home.servers(), "the Wendlow MCP server entry here runs " + server}});
    std::filesystem::remove(server);
    expectScan(
        ConnectorState::drifted,
        {{home.settings(), "the Wendlow hook entry here runs " + hook + " --harness claude-code"},
         {home.servers(), "the Wendlow MCP server entry here — the file the command names "
                          "is not on disk: " +
                              server}});
    home.fill("{", R"({"mcpServers":[]})");
    expectScan(ConnectorState::found,
               {{home.settings(), "this file did not read as JSON — a member name was expected "
                                  "(at byte 1)"},
                {home.servers(), "the mcpServers value in this file is not an object, so no entry "
                                 "can be put in it"}});
}

TEST(ClaudeCodeConnector, takesItsOwnFilesAwayAgain) {
    const ClaudeCodeHome home;
    const auto connector = home.connector();
    EXPECT_THAT(connector.install().observations,
                ElementsAre(Observation{
                    home.path(".claude").string(),
                    "there is no Claude Code configuration here, so nothing was written"}));
    EXPECT_FALSE(std::filesystem::exists(home.path(".claude")));

    std::filesystem::create_directory(home.path(".claude"));
    EXPECT_EQ(connector.install().result, Result::changed);
    EXPECT_EQ(connector.remove().observations.back(), (Observation{home.servers(), removedText}));
    EXPECT_EQ(get(home.settings()), std::nullopt);
    EXPECT_EQ(get(home.servers()), std::nullopt);

    // A key that the person put into a file of ours keeps that file.
    connector.install();
    std::string theirs = get(home.servers()).value();
    theirs.replace(0, 1, "{\n  \"theirs\": 1,");
    put(home.servers(), theirs);
    EXPECT_THAT(
        connector.remove().observations,
        ElementsAre(Observation{copyOf(home.settings(), "-02"), copied},
                    Observation{copyOf(home.servers(), "-02"), copied},
                    Observation{home.settings(),
                                "this file was created when Wendlow connected and was removed"},
                    Observation{home.settings(), removedText},
                    Observation{home.servers(), removedText}));
    EXPECT_EQ(get(home.servers()), "{\n  \"theirs\": 1\n}\n");
}

TEST(ClaudeCodeConnector, makesTheToolsFolderWhenItsUserFileShowsThatItIsHere) {
    const ClaudeCodeHome home;
    put(home.servers(), "{}");
    const auto connector = home.connector();
    EXPECT_EQ(connector.install().result, Result::changed);
    EXPECT_TRUE(get(home.paths().receiptFile)->contains("settingsFile"));
    EXPECT_TRUE(get(home.settings()).has_value());
    EXPECT_EQ(connector.remove().observations[3],
              (Observation{home.servers(), "this file is now empty and remains, because Wendlow "
                                           "did not create it"}));
    EXPECT_EQ(get(home.settings()), std::nullopt);
    EXPECT_EQ(get(home.servers()), "{}");
}

TEST(ClaudeCodeConnector, leavesEverythingAloneTheSecondTime) {
    const ClaudeCodeHome home;
    home.fill(settingsBefore, "{}");
    const auto connector = home.connector();
    connector.install();
    const auto receipt = get(home.paths().receiptFile);
    const ConnectorOutcome unchanged{
        Result::unchanged, {{home.settings(), nothing}, {home.servers(), nothing}}, {}};
    EXPECT_EQ(connector.install(), unchanged);
    EXPECT_EQ(get(home.paths().receiptFile), receipt);
    EXPECT_EQ(Backup::all(home.settings()).size(), 1);

    // One file is repaired, the other is not touched, and the receipt keeps what it had.
    put(home.settings(), "{}");
    EXPECT_THAT(connector.install().observations,
                ElementsAre(Observation{copyOf(home.settings(), "-02"), copied},
                            Observation{home.settings(), written},
                            Observation{home.servers(), nothing}));
    EXPECT_TRUE(get(home.paths().receiptFile)->contains("hooksObject"));
    EXPECT_TRUE(get(home.paths().receiptFile)->contains("mcpServersObject"));
    connector.remove();
    EXPECT_EQ(connector.remove(), unchanged);
}

TEST(ClaudeCodeConnector, leavesContainersThatNoReceiptClaims) {
    const ClaudeCodeHome home;
    home.fill("{}", R"({"mcpServers":{}})");
    const auto connector = home.connector();
    connector.install();
    put(home.paths().receiptFile, R"({"created":["notKnown"]})");
    EXPECT_THAT(
        connector.remove().observations,
        ElementsAre(
            ::testing::_, ::testing::_,
            Observation{home.settings(),
                        "an empty hook group remains here, which Wendlow did not create"},
            Observation{home.settings(),
                        "an empty hook group remains here, which Wendlow did not create"},
            Observation{home.servers(),
                        "an empty mcpServers object remains here, which Wendlow did not create"},
            Observation{home.settings(), removedText}, Observation{home.servers(), removedText}));
    EXPECT_EQ(get(home.servers()), R"({"mcpServers":{}})");

    // Emptied by us and not ours: said. Empty all along: not our concern.
    home.fill("{}", R"({"mcpServers":{"wendlow":{}}})");
    put(home.paths().receiptFile, R"({"created":["mcpServersObject"]})");
    EXPECT_THAT(connector.remove().observations,
                ElementsAre(::testing::_,
                            Observation{home.servers(), "this file is now empty and remains, "
                                                        "because Wendlow did not create it"},
                            Observation{home.servers(), removedText},
                            Observation{home.settings(), nothing}));
}

TEST(ClaudeCodeConnector, refusesAPlanThatFailsAndABundleThatNoCommandCanName) {
    const ClaudeCodeHome home;
    home.fill("{}", R"({"mcpServers":[]})");
    EXPECT_EQ(
        home.connector().install(),
        (ConnectorOutcome{Result::refused, {{home.servers(), "mcpServers is not an object"}}, {}}));
    EXPECT_EQ(get(home.settings()), "{}");
    const ClaudeCodeConnector spaced(
        ClaudeCodePaths::under(home.path(""), home.path("My Wendlow.app")));
    EXPECT_EQ(spaced.install().observations.front().subject,
              home.path("My Wendlow.app/Contents/MacOS/wendlow-hook").string());
    EXPECT_EQ(get(home.settings()), "{}");
}

TEST(ClaudeCodeConnector, saysThatItsRecordWasNotWritten) {
    const ClaudeCodeHome home;
    home.fill("{}", "{}");
    put(home.path("Library"), "a file where the record's folder would be");
    const auto outcome = home.connector().install();
    EXPECT_EQ(outcome.result, Result::changed);
    ASSERT_EQ(outcome.observations.size(), 5);
    EXPECT_EQ(outcome.observations[2].subject, home.paths().receiptFile.string());
    EXPECT_THAT(outcome.observations[2].text,
                ::testing::StartsWith("the record of what was created was not written here — "));
    EXPECT_EQ(outcome.observations[3], (Observation{home.settings(), written}));
}

TEST(ClaudeCodeConnector, repairsUnaskedOnlyWiringOfThisVeryInstallation) {
    const ClaudeCodeHome home;
    home.fill("{}", "{}");
    const auto connector = home.connector();
    EXPECT_FALSE(connector.staleOwnWiring());
    connector.install();
    EXPECT_FALSE(connector.staleOwnWiring()) << "connected";
    const std::string right = get(home.settings()).value();
    std::string spelled = right;
    spelled.replace(spelled.find("--slot rules"), 12, "--slot=rules");
    put(home.settings(), spelled);
    EXPECT_TRUE(connector.staleOwnWiring());
    std::filesystem::rename(home.paths().hookBinary, home.path("away"));
    EXPECT_FALSE(connector.staleOwnWiring()) << "the program is gone";
    std::filesystem::rename(home.path("away"), home.paths().hookBinary);
    std::string moved = spelled;
    moved.replace(moved.find(home.bundle().string()), home.bundle().string().size(),
                  "/dist-dev/Wendlow.app");
    put(home.settings(), moved);
    EXPECT_EQ(connector.scan().state, ConnectorState::drifted);
    EXPECT_FALSE(connector.staleOwnWiring()) << "another copy's";
}

} // namespace
} // namespace wendlow
