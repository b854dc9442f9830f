#include "ClaudeCode/ClaudeCodeMCP.h"
#include "ClaudeCodeTestSupport.h"
#include "Drift.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

const ClaudeCodeMCP mcp(testing::paths());
const std::string entry =
    R"({"type":"stdio","command":"/A/Wendlow.app/Contents/MacOS/wendlow-mcp","args":[],"env":{}})";

TEST(ClaudeCodeMCP, installsAndRemovesItsEntry) {
    struct Case {
        std::string before;
        std::string installed;
        bool createsServers;
        std::string removed;
        std::vector<std::string> leftovers;
    };
    const std::string leftover =
        "an empty mcpServers object remains here, which Wendlow did not create";
    const Case cases[] = {
        {"{}", R"({"mcpServers":{"wendlow":)" + entry + "}}", true, "{}", {}},
        {R"({"a":1})", R"({"a":1,"mcpServers":{"wendlow":)" + entry + "}}", true, R"({"a":1})", {}},
        {R"({"mcpServers":{}})",
         R"({"mcpServers":{"wendlow":)" + entry + "}}",
         false,
         R"({"mcpServers":{}})",
         {leftover}},
        {R"({"mcpServers":{"x":{"args":[],"env":{}}}})",
         R"({"mcpServers":{"x":{"args":[],"env":{}},"wendlow":)" + entry + "}}",
         false,
         R"({"mcpServers":{"x":{"args":[],"env":{}}}})",
         {}},
        {R"({"mcpServers":{"wendlow":null,"x":{}}})",
         R"({"mcpServers":{"wendlow":)" + entry + R"(,"x":{}}})",
         false,
         R"({"mcpServers":{"x":{}}})",
         {}},
    };
    for (const Case& each : cases) {
        const auto installed = mcp.installed(each.before);
        ASSERT_TRUE(installed) << each.before;
        EXPECT_EQ(installed->bytes, each.installed);
        EXPECT_EQ(installed->created.contains(Created::mcpServersObject), each.createsServers);
        const auto again = mcp.installed(each.installed);
        EXPECT_TRUE(again && !again->bytes && again->created.empty()) << each.before;
        const auto removed = mcp.removed(each.installed, installed->created);
        ASSERT_TRUE(removed) << each.before;
        EXPECT_EQ(removed->bytes, each.removed);
        EXPECT_EQ(removed->leftovers, each.leftovers);
        EXPECT_EQ(mcp.removed(R"({"mcpServers":{}})", installed->created)->bytes, std::nullopt);
    }
}

TEST(ClaudeCodeMCP, findsAndSaysWhatIsWrong) {
    const std::string gone = "the file the command names is not on disk: "
                             "/A/Wendlow.app/Contents/MacOS/wendlow-mcp";
    const std::string shape(Drift::otherShape);
    const std::pair<std::string, BlockFinding> cases[] = {
        {"{}", {BlockFinding::Absent{}}},
        {R"({"mcpServers":{"x":{"a":1,"a":2}},"y":{"b":1,"b":2}})", {BlockFinding::Absent{}}},
        {R"({"mcpServers":{"wendlow":)" + entry + "}}", {BlockFinding::Drifted{{gone}}}},
        {R"({"mcpServers":{"wendlow":{"command":"/A/Wendlow.app/Contents/MacOS/wendlow-mcp"}}})",
         {BlockFinding::Drifted{{gone, shape}}}},
        {R"({"mcpServers":{"wendlow":{"command":"x"}}})",
         {BlockFinding::Drifted{{"the command is not the one this build writes: x", gone}}}},
        {R"({"mcpServers":{"wendlow":{"command":7}}})", {BlockFinding::Drifted{{shape}}}},
        {R"({"mcpServers":{"wendlow":null}})", {BlockFinding::Drifted{{shape}}}},
        {R"({"mcpServers":[]})",
         {BlockFinding::Foreign{{"the mcpServers value in this file is not an object, so no entry "
                                 "can be put in it"}}}},
        {R"({"mcpServers":{"wendlow":{"a":1,"a":2}}})",
         {BlockFinding::Unreadable{"the name \"a\" appears twice in one object (at byte 32)"}}},
        {R"({"mcpServers":{"x":1,"x":2}})",
         {BlockFinding::Unreadable{"the name \"x\" appears twice in one object (at byte 21)"}}},
    };
    for (const auto& [bytes, expected] : cases)
        EXPECT_EQ(mcp.find(bytes), expected) << bytes;
    EXPECT_EQ(description(mcp.installed(R"({"mcpServers":[]})").error()),
              "mcpServers is not an object");
    EXPECT_EQ(description(mcp.installed("7").error()), "the top-level value is not an object");
}

} // namespace
} // namespace wendlow
