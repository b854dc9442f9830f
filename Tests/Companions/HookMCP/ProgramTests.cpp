// The two programs as a tool starts them: on pipes, which a shell lays.

#include "RunProgram.h"
#include "TemporaryHome.h"

#include <string>

#include <gtest/gtest.h>

namespace wendlow::testing {
namespace {

/// What a bash script wrote, and "status N" with what it ended with. `$hook` and `$mcp` are ours.
std::string bash(const std::string& script) {
    const TemporaryHome home; // in which what goes wrong is noted
    const auto run =
        runProgram("/bin/bash", {"-c", "set -o pipefail\n" + script},
                   {{"hook", HOOK_PROGRAM}, {"mcp", MCP_PROGRAM}, {"HOME", home.path().string()}});
    return run.out + run.err + "status " + std::to_string(run.status);
}

TEST(Programs, EndWellAndSilentlyWhateverTheyAreGiven) {
    const char* const scripts[] = {
        R"("$hook" </dev/null)", R"("$hook" --harness=codex --slot=rules </dev/null)",
        R"("$hook" --harness cursor --slot prompt </dev/null)", R"("$hook" --harness </dev/null)",
        R"("$hook" --help $'\xff' '' </dev/null)", R"("$hook" --harness codex <&-)",
        R"("$mcp" <&-)", R"("$mcp" </dev/null)", R"("$mcp" </dev/null >&-)",
        // A notification is answered by nobody, and no bus is looked for.
        R"(DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere "$mcp" 2>&- <<<'{"jsonrpc":"2.0","method":"x"}')",
        // A tool that writes much sees no broken pipe, also of a hook that it calls by mistake.
        R"(head -c 20000000 /dev/zero | "$hook" --harness claude-code --slot x)",
        // Nobody listens to the answers.
        R"(yes '{"jsonrpc":"2.0","id":2,"method":"ping"}' 2>/dev/null | "$mcp" | :
           exit ${PIPESTATUS[1]})"};
    for (const char* script : scripts)
        EXPECT_EQ(bash(script), "status 0") << script;
}

TEST(Programs, MCPHoldsAConversationAndEndsWithItsInput) {
    // Each answer is there before the next request is.
    EXPECT_EQ(
        bash(R"(coproc "$mcp"; exec 3<&${COPROC[0]} 4>&${COPROC[1]} {COPROC[1]}>&-
say() { printf "$1" >&4; }
hear() { IFS= read -r -t 10 line <&3 && echo "$line"; }
say '{"jsonrpc":"2.0","id":0,"method":"initialize","params":{"protocolVersion":"2025-06-18"}}\r\n'
hear | grep -o '"serverInfo":{[^}]*}'
say '{"jsonrpc":"2.0","method":"notifications/initialized"}\n\n{"jsonrpc":"2.0","id":"a",'
say '"method":"no/such"}\n'
hear
say '{"jsonrpc":"2.0","id":2,"method":"ping"}'
exec 4>&-
cat <&3
wait $COPROC_PID)"),
        R"("serverInfo":{"name":"wendlow","version":")" PRODUCT_VERSION "\"}\n"
        R"({"jsonrpc":"2.0","id":"a","error":{"code":-32601,"message":"Method not found: no/such"}})"
        "\n"
        R"({"jsonrpc":"2.0","id":2,"result":{}})"
        "\nstatus 0");
}

} // namespace
} // namespace wendlow::testing
