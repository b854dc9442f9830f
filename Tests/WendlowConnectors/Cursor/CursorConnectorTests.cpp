#include "CursorHome.h"

#include "Cursor/CursorVersion.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::CursorHome;
using ::testing::ElementsAre;
using testing::put;
using testing::versionList;
namespace fs = std::filesystem;

/// The result, then each sentence behind the name of its file; copies are left out.
std::vector<std::string> said(const ConnectorOutcome& outcome) {
    std::vector<std::string> result{std::string(text(outcome.result))};
    for (const auto& [subject, text] : outcome.observations)
        if (!subject.contains(".wendlow-backup-"))
            result.push_back(fs::path(subject).filename().string() + ": " + text);
    return result;
}

const std::string written = ": the Wendlow entry was written to this file";
const std::string removed = ": the Wendlow entry was removed from this file";
const std::string nothing = ": nothing in this file needed changing";
const std::string gone = ": this file was created when Wendlow connected and was removed";

TEST(CursorConnector, connectsAndDisconnectsTwoRealFiles) {
    const CursorHome home;
    const std::string hooks = "{\r\n  \"version\": 1,\r\n  \"hooks\": {\r\n    \"stop\": "
                              "[@theirs],\r\n    \"preToolUse\": [@theirs]";
    const std::string servers = R"({"mcpServers":{"x":{"url":"https:\/\/x","args":[ ]})";
    home.fill(hooks + "\r\n  }\r\n}", servers + R"(},"é":1.0})");
    home.fillVersion(versionList(" 2.1.4\n"));
    const auto connector = home.connector();
    EXPECT_THAT(said(connector.install()),
                ElementsAre("changed", "hooks.json" + written, "mcp.json" + written));
    EXPECT_EQ(home.hooks(),
              home.filled(testing::replaced(
                              hooks, {{"[@theirs]", "[@theirs,@pretool]"},
                                      {"\"stop\": [@theirs,@pretool]", "\"stop\": [@theirs]"}}) +
                          ",\r\n    \"beforeSubmitPrompt\": [\r\n      {\r\n        \"command\": "
                          "\"@hook --harness cursor\"\r\n      }\r\n    ]\r\n  }\r\n}"));
    EXPECT_EQ(home.servers(), servers + R"(,"wendlow":{"type":"stdio","command":")" +
                                  home.paths().mcpCommand() + R"(","args":[],"env":{}}},"é":1.0})");
    const ConnectorReceipt record{{Created::cursorEventArray}, {}, {}, "2.1.4"};
    EXPECT_EQ(home.receipt(), record);
    EXPECT_EQ(connector.scan().state, ConnectorState::connected);
    home.fillVersion(versionList("2.2"));
    EXPECT_THAT(said(connector.install()),
                ElementsAre("unchanged", "hooks.json" + nothing, "mcp.json" + nothing));
    EXPECT_EQ(home.receipt(), record);
    EXPECT_THAT(said(connector.remove()),
                ElementsAre("changed", "hooks.json" + removed, "mcp.json" + removed));
    EXPECT_EQ(home.hooks(), home.filled(hooks + "\r\n  }\r\n}"));
    EXPECT_EQ(home.servers(), servers + R"(},"é":1.0})");
    EXPECT_FALSE(fs::exists(home.paths().receiptFile));
}

TEST(CursorConnector, takesItsOwnFilesAwayAgainAndNoFolder) {
    const CursorHome home;
    const auto connector = home.connector();
    connector.install();
    EXPECT_EQ(home.receipt().created,
              (std::set{Created::cursorHooksFile, Created::cursorHooksObject,
                        Created::cursorEventArray, Created::cursorPreToolEventArray,
                        Created::cursorMCPFile, Created::cursorMCPServersObject}));
    EXPECT_THAT(said(connector.remove()),
                ElementsAre("changed", "hooks.json" + gone, "mcp.json" + gone,
                            "hooks.json" + removed, "mcp.json" + removed));
    EXPECT_FALSE(home.hooks() || home.servers());

    home.fill("{}", "{}");
    connector.install();
    const std::string remains = " and remains, because Wendlow did not create it";
    EXPECT_THAT(said(connector.remove()),
                ElementsAre("changed", "hooks.json: this file now holds no hooks" + remains,
                            "mcp.json: this file is now empty" + remains, "hooks.json" + removed,
                            "mcp.json" + removed));

    fs::remove_all(home.paths().configDirectory);
    EXPECT_EQ(connector.scan(),
              (ScanReport{connector.identity(),
                          ConnectorState::notFound,
                          {{home.path(".cursor").string(), "there is no directory here"}}}));
    EXPECT_THAT(said(connector.install()),
                ElementsAre("refused", ".cursor: there is no Cursor configuration here, so nothing "
                                       "was written"));
    EXPECT_EQ(said(connector.remove()).front(), "unchanged");
    EXPECT_FALSE(fs::exists(home.paths().configDirectory));
}

TEST(CursorConnector, tellsWhatItWroteOverAndOfEachFileInItsOrder) {
    const CursorHome home;
    home.fill(
        R"({"hooks":{"beforeSubmitPrompt":[{"command":"@hook --harness cursor","a":1,"b":2}],)"
        R"("preToolUse":[{"command":"@hook --harness cursor --slot pretool","c":[3 , 4]}]}})",
        {});
    put(home.path("Library"), "a file where the record's folder would be");
    EXPECT_THAT(said(home.connector().install()),
                ElementsAre("changed",
                            "hooks.json: a 1, b 2 and c [3 , 4] on the Wendlow entry here were "
                            "replaced with the proven shape",
                            ::testing::StartsWith("cursor.json: the record of what was created was "
                                                  "not written here — "),
                            "hooks.json" + written, "mcp.json" + written));
    home.fill(home.hooks(), "{}");
    EXPECT_THAT(said(home.connector().install()),
                ElementsAre("changed", ::testing::_, "hooks.json" + nothing, "mcp.json" + written));
}

TEST(CursorConnector, refusesToAddWhereItMayStillTakeOut) {
    const CursorHome home;
    for (const std::string version : {"2", "\"1\"", "1.0", "null"}) {
        const std::string start = "{\"version\":" + version;
        const std::string states = "hooks.json: this file states hooks configuration version ";
        home.fill(start + "}", "{}");
        EXPECT_THAT(said(home.connector().install()),
                    ElementsAre("refused", states + version +
                                               ", which this build has not read, so "
                                               "nothing was written"));
        home.fill(start + R"(,"hooks":{"stop":[@theirs,@old],"preToolUse":[@pretool]}})", {});
        EXPECT_EQ(said(home.connector().remove())[1],
                  states + version + ", and only the Wendlow entry was taken out of it");
        EXPECT_EQ(home.hooks(),
                  home.filled(start + R"(,"hooks":{"stop":[@theirs],"preToolUse":[]}})"));
    }
    const std::string comment = "// mine\n{}";
    const std::string twice = R"({"mcpServers":{"wendlow":{"a":1,"a":2}}})";
    const std::string reason = ": this file did not read as JSON, so nothing was written — ";
    home.fill(comment, twice);
    for (const auto& outcome : {home.connector().install(), home.connector().remove()})
        EXPECT_THAT(said(outcome),
                    ElementsAre("refused",
                                "hooks.json" + reason + "a value was expected (at byte 0)",
                                "mcp.json" + reason +
                                    "the name \"a\" appears twice in one object (at byte 32)"));
    home.fill("{}", R"({"mcpServers":[]})");
    EXPECT_THAT(
        said(home.connector().install()),
        ElementsAre("refused", "mcp.json: nothing was written — mcpServers is not an object"));
    home.fill(R"({"hooks":1})", "{}");
    EXPECT_THAT(said(home.connector().install()),
                ElementsAre("refused", "hooks.json: nothing was written — hooks is not an object"));
    EXPECT_EQ(home.servers(), "{}");
}

TEST(CursorConnector, saysWhatIsNewAndWhatRunsTwice) {
    const CursorHome home;
    home.fillVersion(versionList("2.1.4"));
    put(home.paths().claudeSettingsFile,
        home.filled(R"({"hooks":{"UserPromptSubmit":[{"hooks":[@prompt]}]}})"));
    const auto connector = home.connector();
    EXPECT_EQ(connector.scan().observations.size(), 2U) << "nothing of ours is here yet";
    connector.install();
    const Observation twice{home.paths().claudeSettingsFile.string(),
                            "a Wendlow hook entry is under UserPromptSubmit in this file too, "
                            "which Cursor maps onto its own beforeSubmitPrompt event"};
    EXPECT_EQ(connector.scan().observations[2], twice);
    home.fillVersion(versionList("2.2"));
    const Observation newer{home.paths().cursorApp.string(),
                            "Cursor is now 2.2; the Wendlow hook entry on this Mac was proven "
                            "against 2.1.4"};
    const std::string run = "the Wendlow hook entry here runs " + home.paths().hookCommand();
    EXPECT_THAT(connector.scan().observations,
                ElementsAre(Observation{home.hooksFile(), run}, ::testing::_, newer, twice));
    // No version at all proves nothing, and takes nothing back.
    for (const auto& [list, recorded] : {std::pair("", "2.1.4"), {"2.2", "2.2"}}) {
        home.fillVersion(versionList(list));
        fs::remove(home.mcpFile());
        EXPECT_EQ(connector.scan().state, ConnectorState::drifted);
        connector.install();
        EXPECT_EQ(home.receipt().appVersion, recorded);
        EXPECT_EQ(connector.scan().observations.size(), 3U);
    }
}

TEST(CursorVersion, readsBothFormatsAndNothingElse) {
    const CursorHome home;
    const auto version = [&](const std::string& list) {
        home.fillVersion(list);
        return CursorVersion::read(home.paths().cursorApp);
    };
    EXPECT_EQ(CursorVersion::read(home.paths().cursorApp), std::nullopt);
    EXPECT_EQ(version(versionList("\t 2.1.4 beta \n")), "2.1.4 beta");
    using namespace std::string_literals;
    const std::string binary =
        "bplist00\xD1\x01\x02_\x10\x1A"s
        "CFBundleShortVersionString"
        "S2.0"
        "\x08\x0B\x28\0\0\0\0\0\0\x01\x01\0\0\0\0\0\0\0\x03\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x2C"s;
    EXPECT_EQ(version(binary), "2.0");
    for (std::size_t size = 0; size < binary.size(); ++size)
        EXPECT_EQ(version(binary.substr(0, size)), std::nullopt) << size;
    for (const std::string& text : {""s, " \n"s, "2\xFF"s, std::string(2'000'000, '2')})
        EXPECT_EQ(version(versionList(text)), std::nullopt) << text.substr(0, 9);
}

TEST(CursorConnector, repairsUnaskedOnlyWiringOfThisVeryInstallation) {
    const CursorHome home;
    const auto connector = home.connector();
    EXPECT_FALSE(connector.staleOwnWiring());
    connector.install();
    EXPECT_FALSE(connector.staleOwnWiring()) << "connected";
    put(home.hooksFile(), testing::replaced(*home.hooks(), {{"\"timeout\": 3", "\"timeout\": 5"}}));
    EXPECT_TRUE(connector.staleOwnWiring());
    fs::remove(home.paths().hookBinary);
    EXPECT_FALSE(connector.staleOwnWiring()) << "the program is gone";
    put(home.paths().hookBinary, "program");
    home.fill(R"({"hooks":{"beforeSubmitPrompt":[@prompt,@old]}})", "{}");
    EXPECT_FALSE(connector.staleOwnWiring()) << "another copy's";
}

} // namespace
} // namespace wendlow
