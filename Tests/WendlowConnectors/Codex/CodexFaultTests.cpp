// What goes wrong in people's files, each caused for real.

#include "CodexHome.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::CodexHome;
using testing::put;
using Result = ConnectorOutcome::Result;
namespace fs = std::filesystem;

const std::string person = R"({"hooks":{"UserPromptSubmit":[{"hooks":[@theirs]}]}})";
const std::string server = "[mcp_servers.wendlow]\n@server";

TEST(CodexFaults, bothFilesComeBackByteForByte) {
    const std::string slot = "[hooks.state.\"@slot:0:0\"]\ntrusted_hash = \"sha256:theirs\"\n";
    const std::pair<std::string, std::string> cases[] = {
        {person, "model = \"x\""},
        {person, "model = \"x\"\r\n# last\r\n"},
        {person, "model = \"x\"\r\n[a]\r\nb = 1"},
        {person, "# lonely\r"},
        {person, ""},
        {person, "\n"},
        {person, " \t"},
        {person, "\n\n# a\n\n"},
        {person, "\xEF\xBB\xBF"},
        {person, "\xEF\xBB\xBFmodel = 'x'"},
        {person, slot},
        {person, "[a]\nb = [1, # one\n  2]\n\n\n" + slot + "\n# the end"},
        {person,
         "[mcp_servers.other]\ncommand = \"x\" # é ' \"\n[hooks.state]\n[hooks.stateful]\n"},
        {person, "[hooks.state.\"@slot:7:7\"]\ntrusted_hash = \"sha256:gone\"\nenabled = false"},
        {person, "[hooks.state.\"@slot:1:0\"]\nenabled = true # mine\n"},
        {"{\n\t\"a\": 1\n}", "a = 1"},
        {"{\r\n  \"a\": 1,\r\n  \"hooks\": {\r\n    \"Stop\": []\r\n  }\r\n}\r\n", "a = 1"},
        {"  {\"n\":[30.0,1e3],\"s\":\"\\/ \\u00e9 é\",\"hooks\":{\"Stop\":[ { } ]}} \n", "a = 1"},
    };
    for (const auto& [hooks, config] : cases) {
        SCOPED_TRACE(hooks + config);
        const CodexHome home;
        home.fill(hooks, config);
        const auto connector = home.connector();
        for (int round = 0; round < 2; ++round) {
            EXPECT_EQ(connector.install().result, Result::changed);
            EXPECT_EQ(connector.scan().state, ConnectorState::connected);
            EXPECT_EQ(connector.install().result, Result::unchanged);
            EXPECT_EQ(connector.remove().result, Result::changed);
            EXPECT_EQ(home.hooks(), home.filled(hooks));
            EXPECT_EQ(home.config(), home.filled(config));
        }
    }
}

/// One of our tables is there already: it is written in its place, and what is around it stays.
TEST(CodexFaults, anOlderTableIsWrittenWhereItStands) {
    const std::string old = "[mcp_servers.wendlow]\ncommand = "
                            "\"/B/Wendlow.app/Contents/MacOS/wendlow-mcp\"\nargs = [\"x\"]\n";
    const std::string trust = "[hooks.state.\"@slot:0:0\"]\ntrusted_hash = \"@hash\"\n";
    const std::string hash = "trusted_hash = \"@hash\"\n";
    const std::string switched = "[hooks.state.\"@slot:0:0\"]\nenabled = true";
    const std::string left = "# above\na = 1\n";
    const std::string right = "[other]\nb = 2 # beside\n";
    struct Case {
        std::string before, installed, removed;
    };
    const Case cases[] = {
        {old + "\n" + right, server + "\n" + right + "\n" + trust, right},
        {left + "\n" + old, left + "\n" + server + "\n" + trust, left},
        {left + "\n" + old + "\n" + right, left + "\n" + server + "\n" + right + "\n" + trust,
         left + "\n" + right},
        // The line that had no end goes with our table, the end of the one above is the person's.
        {left + "\n" + old.substr(0, old.size() - 1), left + "\n" + server + "\n" + trust, left},
        // It is a person's, in a table that our trust goes into, and stays without one.
        {server + "\n" + switched, server + "\n" + switched + "\n" + hash, switched},
    };
    for (const auto& [before, installed, removed] : cases) {
        SCOPED_TRACE(before);
        const CodexHome home;
        home.fill("{}", before);
        EXPECT_EQ(home.connector().install().result, Result::changed);
        EXPECT_EQ(home.config(), home.filled(installed));
        EXPECT_EQ(home.connector().remove().result, Result::changed);
        EXPECT_EQ(home.config(), home.filled(removed));
    }
}

TEST(CodexFaults, whatAPersonAddsAfterwardsStays) {
    const CodexHome home;
    const auto connector = home.connector();
    connector.install();
    const std::string config = *home.config();
    put(home.hooksFile(),
        home.filled(R"({"hooks":{"UserPromptSubmit":[{"hooks":[@ours]}]},"a":1})"));
    put(home.configFile(), config + "enabled = true\n\n[added]\na = 1\n");
    EXPECT_EQ(connector.remove().result, Result::changed);
    EXPECT_EQ(home.hooks(), "{\"a\":1}");
    EXPECT_EQ(home.config(),
              home.filled("[hooks.state.\"@slot:0:0\"]\nenabled = true\n\n[added]\na = 1\n"));

    // A sub-table, as another program writes it: nothing is half removed.
    home.fill({}, {});
    connector.install();
    put(home.configFile(), *home.config() + "\n[mcp_servers.wendlow.tools]\na = 1\n");
    const auto before = home.config();
    EXPECT_EQ(connector.remove().result, Result::refused);
    EXPECT_EQ(home.config(), before);
    EXPECT_TRUE(home.hooks());
}

TEST(CodexFaults, whatOlderScriptsLeftIsTakenOver) {
    const CodexHome home;
    fs::create_directories(home.path("fenmoor/wendlow/Scripts"));
    const auto legacy =
        CodexHookIdentity::legacyIdentities(home.path("fenmoor/wendlow/Scripts"), 3);
    const auto slot = [](int index, const CodexHookIdentity& identity) {
        return "[hooks.state.\"@slot:" + std::to_string(index) + ":0\"]\ntrusted_hash = \"" +
               identity.trustedHash() + "\"\n";
    };
    home.fill(R"({"hooks":{"UserPromptSubmit":[{"hooks":[@script]},{"hooks":[@script]}]}})",
              slot(0, legacy[2]) + slot(1, legacy[2]) + slot(2, legacy[0]));
    EXPECT_EQ(home.connector().install().result, Result::changed);
    EXPECT_EQ(home.hooks(), home.filled(R"({"hooks":{"UserPromptSubmit":[{"hooks":[@ours]}]}})"));
    EXPECT_EQ(home.config(), home.filled("[hooks.state.\"@slot:0:0\"]\ntrusted_hash = \"@hash\"\n"
                                         "\n" +
                                         server));
    EXPECT_EQ(home.connector().scan().state, ConnectorState::connected);
}

TEST(CodexFaults, aTimeoutThatIsNotWholeIsMended) {
    const CodexHome home;
    home.fill(R"({"hooks":{"UserPromptSubmit":[{"hooks":[@ours]}]}})", server);
    put(home.hooksFile(),
        testing::replaced(*home.hooks(), {{"\"timeout\":3,", "\"timeout\":3.5,"}}));
    const auto report = home.connector().scan();
    EXPECT_EQ(report.state, ConnectorState::drifted);
    EXPECT_EQ(report.observations.back().text,
              "the timeout on the Wendlow hook entry in " + home.hooksFile() +
                  " is not a whole number, so the identity Codex hashes cannot be computed");
    EXPECT_TRUE(home.connector().staleOwnWiring());
    home.connector().install();
    EXPECT_EQ(home.connector().scan().state, ConnectorState::connected);
}

TEST(CodexFaults, aLinkedHooksFileIsTrustedWhereItReallyLies) {
    const CodexHome home;
    fs::create_directories(home.path("dotfiles/codex"));
    // Nothing is there yet, and what the first installation records is what a scan asks for.
    fs::create_symlink("../dotfiles/hooks.json", home.hooksFile());
    fs::create_symlink("../dotfiles/codex/config.toml", home.configFile());
    EXPECT_EQ(home.connector().install().result, Result::changed);
    EXPECT_TRUE(fs::is_symlink(home.hooksFile()));
    EXPECT_EQ(home.config(),
              home.filled(server + "\n[hooks.state.\"@home/dotfiles/hooks.json:user_prompt_submit:"
                                   "0:0\"]\ntrusted_hash = \"@hash\"\n"));
    EXPECT_EQ(home.connector().scan().state, ConnectorState::connected);
    EXPECT_EQ(home.connector().remove().result, Result::changed);
    EXPECT_FALSE(fs::exists(home.path("dotfiles/hooks.json")));
    EXPECT_FALSE(fs::exists(home.path("dotfiles/codex/config.toml")));
    EXPECT_TRUE(fs::is_symlink(home.configFile()));
}

} // namespace
} // namespace wendlow
