#include "CursorHome.h"

#include "ConfigFile/Backup.h"
#include "Cursor/CursorVersion.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::CursorHome;
using ::testing::ElementsAre;
using testing::put;
using testing::versionList;
using Result = ConnectorOutcome::Result;

const std::string hooksBefore = "{\r\n  \"version\": 1,\r\n  \"hooks\": {\r\n    \"stop\": "
                                "[@theirs],\r\n    \"preToolUse\": [@theirs]\r\n  }\r\n}";
const std::string serversBefore =
    R"({"mcpServers":{"x":{"url":"https:\/\/x","args":[ ]}},"é":1.0})";

constexpr const char* written = "the Wendlow entry was written to this file";
constexpr const char* removedText = "the Wendlow entry was removed from this file";
constexpr const char* nothing = "nothing in this file needed changing";
constexpr const char* copied = "a copy of the file was made here first";

std::string copyOf(const std::string& file, const std::string& end = "") {
    return file + ".wendlow-backup-" +
           Backup::stamp(Transaction::Date(std::chrono::seconds(1'800'000'000))) + end;
}

TEST(CursorConnector, connectsAndDisconnectsTwoRealFiles) {
    const CursorHome home;
    home.fill(hooksBefore, serversBefore);
    home.fillVersion(versionList(" 2.1.4\n"));
    const auto connector = home.connector();
    const auto installed = connector.install();
    EXPECT_EQ(installed.result, Result::changed);
    EXPECT_THAT(installed.observations, ElementsAre(Observation{copyOf(home.hooksFile()), copied},
                                                    Observation{copyOf(home.mcpFile()), copied},
                                                    Observation{home.hooksFile(), written},
                                                    Observation{home.mcpFile(), written}));
    EXPECT_THAT(installed.backups, ElementsAre(copyOf(home.hooksFile()), copyOf(home.mcpFile())));
    EXPECT_EQ(home.hooks(),
              home.filled("{\r\n  \"version\": 1,\r\n  \"hooks\": {\r\n    \"stop\": "
                          "[@theirs],\r\n    \"preToolUse\": [@theirs,@pretool],\r\n    "
                          "\"beforeSubmitPrompt\": [\r\n      {\r\n        \"command\": \"@hook "
                          "--harness cursor\"\r\n      }\r\n    ]\r\n  }\r\n}"));
    EXPECT_EQ(home.servers(),
              R"({"mcpServers":{"x":{"url":"https:\/\/x","args":[ ]},"wendlow":{"type":"stdio",)"
              R"("command":")" +
                  home.paths().mcpCommand() + R"(","args":[],"env":{}}},"é":1.0})");
    EXPECT_EQ(home.receipt(), (ConnectorReceipt{{Created::cursorEventArray}, {}, {}, "2.1.4"}));
    EXPECT_EQ(connector.scan().state, ConnectorState::connected);
    const auto record = testing::get(home.paths().receiptFile);
    home.fillVersion(versionList("2.2"));
    EXPECT_EQ(connector.install(),
              (ConnectorOutcome{Result::unchanged,
                                {{home.hooksFile(), nothing}, {home.mcpFile(), nothing}},
                                {}}));
    EXPECT_EQ(testing::get(home.paths().receiptFile), record);

    EXPECT_THAT(connector.remove().observations,
                ElementsAre(Observation{copyOf(home.hooksFile(), "-02"), copied},
                            Observation{copyOf(home.mcpFile(), "-02"), copied},
                            Observation{home.hooksFile(), removedText},
                            Observation{home.mcpFile(), removedText}));
    EXPECT_EQ(home.hooks(), home.filled(hooksBefore));
    EXPECT_EQ(home.servers(), serversBefore);
    EXPECT_FALSE(std::filesystem::exists(home.paths().receiptFile));
}

TEST(CursorConnector, takesItsOwnFilesAwayAgainAndNoFolder) {
    const CursorHome home;
    const auto connector = home.connector();
    EXPECT_EQ(connector.install().result, Result::changed);
    EXPECT_EQ(home.receipt().created,
              (std::set{Created::cursorHooksFile, Created::cursorHooksObject,
                        Created::cursorEventArray, Created::cursorPreToolEventArray,
                        Created::cursorMCPFile, Created::cursorMCPServersObject}));
    const std::string gone = "this file was created when Wendlow connected and was removed";
    EXPECT_THAT(connector.remove().observations,
                ElementsAre(::testing::_, ::testing::_, Observation{home.hooksFile(), gone},
                            Observation{home.mcpFile(), gone},
                            Observation{home.hooksFile(), removedText},
                            Observation{home.mcpFile(), removedText}));
    EXPECT_FALSE(home.hooks() || home.servers());

    // Ours is not what the person had before.
    home.fill("{\"hooks\":{}}", "{}");
    connector.install();
    put(home.paths().receiptFile,
        R"({"created":["cursorHooksObject","cursorEventArray","cursorPreToolEventArray",)"
        R"("cursorMCPServersObject"]})");
    const std::string remains = " and remains, because Wendlow did not create it";
    EXPECT_THAT(connector.remove().observations,
                ElementsAre(::testing::_, ::testing::_,
                            Observation{home.hooksFile(), "this file now holds no hooks" + remains},
                            Observation{home.mcpFile(), "this file is now empty" + remains},
                            Observation{home.hooksFile(), removedText},
                            Observation{home.mcpFile(), removedText}));
    EXPECT_EQ(home.hooks(), "{}");

    std::filesystem::remove_all(home.paths().configDirectory);
    const std::string folder = home.paths().configDirectory.string();
    EXPECT_EQ(connector.scan(), (ScanReport{connector.identity(),
                                            ConnectorState::notFound,
                                            {{folder, "there is no directory here"}}}));
    EXPECT_EQ(connector.install(),
              (ConnectorOutcome{
                  Result::refused,
                  {{folder, "there is no Cursor configuration here, so nothing was written"}},
                  {}}));
    EXPECT_EQ(connector.remove().result, Result::unchanged);
    EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST(CursorConnector, tellsWhatItWroteOverAndOfEachFileInItsOrder) {
    const CursorHome home;
    home.fill(
        R"({"hooks":{"beforeSubmitPrompt":[{"command":"@hook --harness cursor","a":1,"b":2}],)"
        R"("preToolUse":[{"command":"@hook --harness cursor --slot pretool","c":[3 , 4]}]}})",
        {});
    put(home.path("Library"), "a file where the record's folder would be");
    const auto said = home.connector().install().observations;
    ASSERT_EQ(said.size(), 5U);
    EXPECT_EQ(said[1], (Observation{home.hooksFile(), "a 1, b 2 and c [3 , 4] on the Wendlow entry "
                                                      "here were replaced with the proven shape"}));
    EXPECT_EQ(said[2].subject, home.paths().receiptFile.string());
    EXPECT_EQ(said[3], (Observation{home.hooksFile(), written}));
    home.fill(home.hooks(), "{}");
    EXPECT_THAT(home.connector().install().observations,
                ElementsAre(Observation{copyOf(home.mcpFile()), copied}, ::testing::_,
                            Observation{home.hooksFile(), nothing},
                            Observation{home.mcpFile(), written}));
    home.fill(R"({"hooks":{"beforeSubmitPrompt":[{"command":"@hook --harness cursor","a":1}]}})",
              "{}");
    EXPECT_EQ(home.connector().install().observations[2].text,
              "a 1 on the Wendlow entry here was replaced with the proven shape");
}

TEST(CursorConnector, refusesToAddWhereItMayStillTakeOut) {
    const CursorHome home;
    const std::pair<const char*, const char*> versions[] = {
        {"2", "2"}, {"\"1\"", "\"1\""}, {"1.0", "1.0"}, {"null", "null"}};
    for (const auto& [version, text] : versions) {
        const std::string states =
            "this file states hooks configuration version " + std::string(text);
        const std::string before = "{\"version\":" + std::string(version) + "}";
        home.fill(before, "{}");
        EXPECT_EQ(home.connector().install(),
                  (ConnectorOutcome{Result::refused,
                                    {{home.hooksFile(), states + ", which this build has not read, "
                                                                 "so nothing was written"}},
                                    {}}));
        home.fill("{\"version\":" + std::string(version) +
                      R"(,"hooks":{"stop":[@theirs,@old],"preToolUse":[@pretool]}})",
                  {});
        const auto said = home.connector().remove().observations;
        ASSERT_EQ(said.size(), 5U);
        EXPECT_EQ(said[1], (Observation{home.hooksFile(),
                                        states + ", and only the Wendlow entry was taken out of "
                                                 "it"}));
        EXPECT_EQ(home.hooks(), home.filled("{\"version\":" + std::string(version) +
                                            R"(,"hooks":{"stop":[@theirs],"preToolUse":[]}})"));
    }

    const std::string notJSON = "this file did not read as JSON, so nothing was written — ";
    const Observation hooks{home.hooksFile(), notJSON + "a value was expected (at byte 0)"};
    const Observation servers{home.mcpFile(),
                              notJSON + "the name \"command\" appears twice in one object (at "
                                        "byte 41)"};
    home.fill("// mine\n{}", R"({"mcpServers":{"wendlow":{"command":"x", "command":"y"}}})");
    for (const auto& outcome : {home.connector().install(), home.connector().remove()})
        EXPECT_EQ(outcome, (ConnectorOutcome{Result::refused, {hooks, servers}, {}}));
    home.fill("// mine\n{}", "{}");
    EXPECT_THAT(home.connector().install().observations, ElementsAre(hooks));
    home.fill("{}", R"({"mcpServers":[]})");
    EXPECT_EQ(
        home.connector().install(),
        (ConnectorOutcome{Result::refused,
                          {{home.mcpFile(), "nothing was written — mcpServers is not an object"}},
                          {}}));
    home.fill(R"({"hooks":1})", "{}");
    EXPECT_EQ(home.connector().install().observations.front().text,
              "nothing was written — hooks is not an object");
    EXPECT_EQ(home.hooks(), R"({"hooks":1})");
    EXPECT_TRUE(Backup::all(home.mcpFile()).empty());
}

TEST(CursorConnector, saysWhatIsNewAndWhatRunsTwice) {
    const CursorHome home;
    home.fillVersion(versionList("2.1.4"));
    put(home.paths().claudeSettingsFile,
        home.filled(R"({"hooks":{"UserPromptSubmit":[{"hooks":[@prompt]}]}})"));
    const auto connector = home.connector();
    EXPECT_EQ(connector.scan().observations.size(), 2U) << "nothing of ours is here yet";
    connector.install();
    const Observation twice{
        home.paths().claudeSettingsFile.string(),
        "a Wendlow hook entry is under UserPromptSubmit in this file too, which "
        "Cursor maps onto its own beforeSubmitPrompt event"};
    EXPECT_EQ(connector.scan().observations[2], twice);
    home.fillVersion(versionList("2.2"));
    const Observation newer{home.paths().cursorApp.string(),
                            "Cursor is now 2.2; the Wendlow hook entry on this Mac was proven "
                            "against 2.1.4"};
    const std::string run = "the Wendlow hook entry here runs " + home.paths().hookCommand();
    EXPECT_THAT(connector.scan().observations,
                ElementsAre(Observation{home.hooksFile(), run}, ::testing::_, newer, twice));
    // Only what is written is proven, and no version at all proves nothing.
    home.fill(home.hooks(), {});
    EXPECT_EQ(connector.scan().state, ConnectorState::drifted);
    home.fillVersion("");
    connector.install();
    EXPECT_EQ(home.receipt().appVersion, "2.1.4");
    home.fillVersion(versionList("2.2"));
    put(home.mcpFile(), "{}");
    connector.install();
    EXPECT_EQ(home.receipt().appVersion, "2.2");
    EXPECT_EQ(connector.scan().observations.size(), 3U);
}

TEST(CursorVersion, readsBothFormatsAndNothingElse) {
    const CursorHome home;
    const auto version = [&](const std::string& list) {
        home.fillVersion(list);
        return CursorVersion::read(home.paths().cursorApp);
    };
    EXPECT_EQ(CursorVersion::read(home.paths().cursorApp), std::nullopt);
    EXPECT_EQ(version(versionList("\t 2.1.4 beta \n")), "2.1.4 beta");
    // {"CFBundleShortVersionString": "2.0"}, in binary.
    using namespace std::string_literals;
    const std::string binary =
        "bplist00\xD1\x01\x02_\x10\x1A"s
        "CFBundleShortVersionString"
        "S2.0"
        "\x08\x0B\x28\0\0\0\0\0\0\x01\x01\0\0\0\0\0\0\0\x03\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x2C"s;
    EXPECT_EQ(version(binary), "2.0");
    for (std::size_t size = 0; size < binary.size(); ++size)
        EXPECT_EQ(version(binary.substr(0, size)), std::nullopt) << size;
    for (const std::string& text : {""s, " \n"s, "2\xFF"s})
        EXPECT_EQ(version(versionList(text)), std::nullopt) << text;
    EXPECT_EQ(version(versionList("2").replace(42, 4, "data")), std::nullopt);
    EXPECT_EQ(version(versionList(std::string(2'000'000, '2'))), std::nullopt);
}

TEST(CursorConnector, repairsUnaskedOnlyWiringOfThisVeryInstallation) {
    const CursorHome home;
    const auto connector = home.connector();
    EXPECT_FALSE(connector.staleOwnWiring());
    connector.install();
    const std::string right = *home.hooks();
    EXPECT_FALSE(connector.staleOwnWiring()) << "connected";
    put(home.hooksFile(), testing::replaced(right, {{"\"timeout\": 3", "\"timeout\": 5"}}));
    EXPECT_TRUE(connector.staleOwnWiring());
    std::filesystem::rename(home.paths().hookBinary, home.path("away"));
    EXPECT_FALSE(connector.staleOwnWiring()) << "the program is gone";
    std::filesystem::rename(home.path("away"), home.paths().hookBinary);
    home.fill(R"({"hooks":{"beforeSubmitPrompt":[@prompt,@old]}})", "{}");
    EXPECT_FALSE(connector.staleOwnWiring()) << "another copy's";
    home.fill("{}", home.servers());
    EXPECT_FALSE(connector.staleOwnWiring()) << "no entry";
}

} // namespace
} // namespace wendlow
