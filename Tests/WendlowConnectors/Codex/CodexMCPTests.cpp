#include "CodexHome.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::CodexHome;
using Ownership = CodexMCP::Ownership;

const std::string header = "[mcp_servers.wendlow]\n";

TEST(CodexMCP, saysWhoseTheTableIsAndWhatItFinds) {
    const CodexHome home;
    const CodexMCP mcp(home.paths());
    const auto drifted = [](std::vector<std::string> reasons) {
        return BlockFinding{BlockFinding::Drifted{std::move(reasons)}};
    };
    const auto other = [&](const std::string& command) {
        return drifted({"the command is not the one this build writes: " + command});
    };
    const BlockFinding byHand{BlockFinding::Foreign{{"the Wendlow MCP entry here was written by "
                                                     "hand and is not the one this build writes"}}};
    const BlockFinding shape = drifted({"the entry's shape is not the one this build writes"});
    const std::string moved = "/B/Wendlow.app/Contents/MacOS/wendlow-mcp";
    const std::string built = "/u/fenmoor/wendlow/dist-dev/x/wendlow-mcp";
    struct Case {
        std::string body;
        Ownership ownership;
        BlockFinding finding;
    };
    const Case cases[] = {
        {"@server", Ownership::ours, {BlockFinding::Connected{}}},
        {"args = [] # none\ncommand = '@home/Wendlow.app/Contents/MacOS/wendlow-mcp'\n",
         Ownership::ours,
         {BlockFinding::Connected{}}},
        {"", Ownership::ours, shape},
        {"@server\nenv = {}\n", Ownership::ours, shape},
        {"command = \"@home/Wendlow.app/Contents/MacOS/wendlow-mcp\"\n", Ownership::ours, shape},
        {"command = \"" + moved + "\"\nargs = []\n", Ownership::ours, other(moved)},
        {"command = \"" + built + "\"\n", Ownership::ours,
         drifted({"the command points into a source checkout: " + built,
                  "the command points at a development build: " + built})},
        {"command = \"/u/fenmoor/wendlow/.build/wendlow-mcp2\"\n", Ownership::handWritten, byHand},
        {"command = \"/usr/local/bin/x\"\nargs = []\n", Ownership::handWritten, byHand},
        {"command = 7\n", Ownership::handWritten, byHand},
        {"url = \"https://x\"\n", Ownership::handWritten, byHand},
    };
    for (const auto& [body, ownership, finding] : cases) {
        const std::string bytes = home.filled(header + body);
        const auto document = *TOMLText::scan(bytes);
        const auto entries = document.entries(*document.table(CodexMCP::tableName()));
        EXPECT_EQ(mcp.ownership(entries, {}), ownership) << body;
        EXPECT_EQ(mcp.ownership(entries, {Created::codexMCPTable}), Ownership::ours) << body;
        EXPECT_EQ(mcp.find(&document, {}), finding) << body;
        const auto refusal = mcp.refusalReason(document, {}, CodexMCP::Verb::remove);
        if (ownership == Ownership::ours) {
            EXPECT_EQ(refusal, std::nullopt) << body;
        } else {
            EXPECT_EQ(refusal, "the [mcp_servers.wendlow] entry here was written by hand and is "
                               "not one this build wrote");
        }
    }
    const auto empty = *TOMLText::scan("");
    EXPECT_EQ(mcp.find(nullptr, {}), BlockFinding{BlockFinding::FileAbsent{}});
    EXPECT_EQ(mcp.find(&empty, {}), BlockFinding{BlockFinding::Absent{}});
}

TEST(CodexMCP, isNeverLeftWithoutACommandAboveASubTable) {
    const CodexHome home;
    const CodexMCP mcp(home.paths());
    const std::string below = "[mcp_servers.wendlow.\"e.v\"]\nA = 1\n";
    const std::string reason = "the [mcp_servers.wendlow.\"e.v\"] hangs under the Wendlow MCP "
                               "entry, and writing this file would leave it holding an entry with "
                               "no command";
    const BlockFinding foreign{BlockFinding::Foreign{
        {"the table [mcp_servers.wendlow.\"e.v\"] is here with no Wendlow MCP table above it"}}};
    const BlockFinding drifted{
        BlockFinding::Drifted{{"the table [mcp_servers.wendlow.\"e.v\"] hangs under the Wendlow "
                               "MCP entry here, and this build did not write it"}}};
    struct Case {
        std::string config;
        BlockFinding finding;
        std::optional<std::string> install;
    };
    const Case cases[] = {{below, foreign, reason},
                          {header + below, drifted, reason},
                          {header + "@server" + below, drifted, std::nullopt},
                          {below + header + "@server", drifted, std::nullopt}};
    for (const auto& [config, finding, install] : cases) {
        const std::string bytes = home.filled(config);
        const auto document = *TOMLText::scan(bytes);
        EXPECT_EQ(mcp.find(&document, {}), finding) << config;
        EXPECT_EQ(mcp.refusalReason(document, {}, CodexMCP::Verb::install), install) << config;
        EXPECT_EQ(mcp.refusalReason(document, {}, CodexMCP::Verb::remove), reason) << config;
    }
}

} // namespace
} // namespace wendlow
