#include "ClaudeCode/ClaudeCodeMCP.h"
#include "ClaudeCodeTestSupport.h"
#include "Drift.h"

#include "Found.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::found;
const ClaudeCodeMCP mcp(testing::paths());
const std::string entry =
    R"({"type":"stdio","command":"/A/Wendlow.app/Contents/MacOS/wendlow-mcp","args":[],"env":{}})";

/// A file whose servers are these members.
std::string servers(const std::string& members) {
    return R"({"mcpServers":{)" + members + "}}";
}

TEST(ClaudeCodeMCP, installsAndRemovesItsEntry) {
    const std::string ours = R"("wendlow":)" + entry;
    const std::string other = R"("x":{"args":[],"env":{}})";
    const std::vector<std::string> nothing;
    const std::vector<std::string> leftover{
        "an empty mcpServers object remains here, which Wendlow did not create"};
    const std::set<Created> none;
    const std::set made{Created::mcpServersObject};
    const struct {
        std::string before, installed;
        std::set<Created> created;
        std::string removed;
    } cases[] = {
        {"{}", servers(ours), made, "{}"},
        {R"({"a":1})", R"({"a":1,"mcpServers":{)" + ours + "}}", made, R"({"a":1})"},
        {servers(""), servers(ours), none, servers("")},
        {servers(other), servers(other + "," + ours), none, servers(other)},
        {servers(R"("wendlow":null,)" + other), servers(ours + "," + other), none, servers(other)},
    };
    for (const auto& [before, after, created, without] : cases) {
        const auto installed = mcp.installed(before);
        ASSERT_TRUE(installed) << before;
        EXPECT_EQ(installed->bytes, after);
        EXPECT_EQ(installed->created, created);
        const auto again = mcp.installed(after);
        EXPECT_TRUE(again && !again->bytes && again->created.empty()) << before;
        const auto removed = mcp.removed(after, installed->created);
        ASSERT_TRUE(removed) << before;
        EXPECT_EQ(removed->bytes, without);
        EXPECT_EQ(removed->leftovers, without == servers("") ? leftover : nothing);
        EXPECT_EQ(mcp.removed(servers(""), installed->created)->bytes, std::nullopt);
    }
}

TEST(ClaudeCodeMCP, findsAndSaysWhatIsWrong) {
    const std::string binary = "/A/Wendlow.app/Contents/MacOS/wendlow-mcp";
    const std::string gone = "the file the command names is not on disk: " + binary;
    const std::string shape(Drift::otherShape);
    const auto drifted = [](const std::vector<std::string>& reasons) {
        return BlockFinding{BlockFinding::Drifted{reasons}};
    };
    const auto repeats = [](const std::string& name, int at) {
        return BlockFinding{BlockFinding::Unreadable{
            fmt::format("the name {} appears twice in one object (at byte {})", name, at)}};
    };
    const BlockFinding absent{BlockFinding::Absent{}};
    const std::pair<std::string, BlockFinding> cases[] = {
        {"{}", absent},
        {R"({"mcpServers":{"x":{"a":1,"a":2}},"y":{"b":1,"b":2}})", absent},
        {servers(R"("wendlow":)" + entry), drifted({gone})},
        {servers(R"("wendlow":{"command":")" + binary + R"("})"), drifted({gone, shape})},
        {servers(R"("wendlow":{"command":"x"})"),
         drifted({"the command is not the one this build writes: x", gone})},
        {servers(R"("wendlow":{"command":7})"), drifted({shape})},
        {servers(R"("wendlow":null)"), drifted({shape})},
        {servers(R"("wendlow":{"a":1,"a":2})"), repeats("\"a\"", 32)},
        {servers(R"("x":1,"x":2)"), repeats("\"x\"", 21)},
    };
    for (const auto& [bytes, expected] : cases)
        EXPECT_EQ(found(mcp, bytes), expected) << bytes;
    EXPECT_EQ(description(mcp.installed("7").error()), "the top-level value is not an object");
}

} // namespace
} // namespace wendlow
