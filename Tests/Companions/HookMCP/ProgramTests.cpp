#include "ChildProgram.h"

#include <chrono>
#include <csignal>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace wendlow::testing {

void PrintTo(const ChildProgram::Result& result, std::ostream* out) {
    *out << "status " << result.status << ", output \"" << result.output << "\"";
}

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

const ChildProgram::Result silence{};

class Programs : public ::testing::Test {
protected:
    Programs() { std::signal(SIGPIPE, SIG_IGN); }
};

TEST_F(Programs, HookEndsWellAndSilentlyWhateverItIsGiven) {
    const std::vector<std::vector<std::string>> rows = {
        {},
        {"--harness", "claude-code"},
        {"--harness=codex", "--slot=rules"},
        {"--harness", "cursor", "--slot", "prompt"},
        {"--harness"},
        {"--help", "\xff", ""},
    };
    for (auto command : rows) {
        command.insert(command.begin(), HOOK_PROGRAM);
        ChildProgram hook(command);
        hook.closeInput();
        EXPECT_EQ(hook.finish(), silence) << command.size();
    }
    ChildProgram deaf({HOOK_PROGRAM, "--harness", "codex"}, ChildProgram::Input::closed);
    EXPECT_EQ(deaf.finish(), silence);
}

TEST_F(Programs, HookTakesAllThatAToolWrites) {
    ChildProgram hook({HOOK_PROGRAM, "--harness", "claude-code"});
    EXPECT_TRUE(hook.write(std::string(20'000'000, 'x'))) << "the tool saw a broken pipe";
    hook.closeInput();
    EXPECT_EQ(hook.finish(), silence);
}

TEST_F(Programs, HookDoesNotOutstayItsTimeWhereAToolKeepsThePipeOpen) {
    const auto start = Clock::now();
    ChildProgram hook({HOOK_PROGRAM, "--harness", "claude-code"});
    EXPECT_TRUE(hook.write("{}"));
    EXPECT_EQ(hook.finish(), silence);
    EXPECT_LT(Clock::now() - start, 2900ms);
}

TEST_F(Programs, MCPHoldsAConversationAndEndsWithItsInput) {
    ChildProgram server({MCP_PROGRAM});
    EXPECT_TRUE(server.write(
        R"({"jsonrpc":"2.0","id":0,"method":"initialize","params":{"protocolVersion":"2025-06-18"}})"
        "\r\n"));
    EXPECT_EQ(
        server.readLine(),
        R"({"jsonrpc":"2.0","id":0,"result":{"protocolVersion":"2025-06-18",)"
        R"("capabilities":{"tools":{}},"serverInfo":{"name":"wendlow","version":")" PRODUCT_VERSION
        "\"}}}\n");
    EXPECT_TRUE(server.write("{\"jsonrpc\":\"2.0\",\"method\":\"notifications/initialized\"}\n\n"
                             "{\"jsonrpc\":\"2.0\",\"id\":\"a\","));
    EXPECT_TRUE(server.write("\"method\":\"tools/list\"}\n"));
    EXPECT_EQ(server.readLine(), "{\"jsonrpc\":\"2.0\",\"id\":\"a\",\"result\":{\"tools\":[]}}\n");
    EXPECT_TRUE(server.write("{\"jsonrpc\":\"2.0\",\"id\":2,\"method\":\"ping\"}"));
    server.closeInput();
    EXPECT_EQ(server.finish(),
              (ChildProgram::Result{"{\"jsonrpc\":\"2.0\",\"id\":2,\"result\":{}}\n", 0}));
}

TEST_F(Programs, MCPEndsWellWhenNobodyListens) {
    ChildProgram server({MCP_PROGRAM});
    server.closeOutput();
    while (server.write("{\"jsonrpc\":\"2.0\",\"id\":2,\"method\":\"ping\"}\n")) {
    }
    EXPECT_EQ(server.finish(), silence);

    ChildProgram deaf({MCP_PROGRAM}, ChildProgram::Input::closed);
    EXPECT_EQ(deaf.finish(), silence);
}

} // namespace
} // namespace wendlow::testing
