// wendlow-hook against the practice gateway: what an AI tool gets at a prompt, and of every way in
// which that goes wrong, which is nothing, in time.

#include "Files.h"
#include "GatewayProcess.h"
#include "PrivateBus.h"
#include "RunProgram.h"

#include <algorithm>
#include <chrono>

#include <fmt/format.h>
#include <gmock/gmock.h>

namespace wendlow {
namespace {

using namespace testing;
using namespace std::chrono_literals;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using Words = std::vector<std::string>;

/// Stands in every prompt here, and may stand in no log.
constexpr std::string_view secret = "tarragon";

class Hook : public ::testing::Test {
protected:
    std::unique_ptr<GatewayProcess> gateway(const std::string& replies = "answer") const {
        return std::make_unique<GatewayProcess>(
            WENDLOW_PRACTICE_GATEWAY,
            Words{"--store", (home / "support/data.db").string(), "--replies", replies});
    }
    static void note(std::string_view request) {
        runProgram(WENDLOW_ASK, {fmt::format(R"({{"notes":{{"_0":{}}}}})", request)});
    }
    static void remember(std::string_view text, std::string_view type, std::string_view scope,
                         std::string_view filters = "{}") {
        note(fmt::format(
            R"({{"write":{{"text":"{}","why":"w","writer":"w","type":"{}","path":"{}","filters":{}}}}})",
            text, type, scope, filters));
    }
    static std::string event(std::string_view prompt, std::string_view session = "s1",
                             std::string_view more = "") {
        return fmt::format(
            R"({{"session_id":"{}","cwd":"/p/atlas/src","hook_event_name":"UserPromptSubmit","prompt":"{} {}"{}}})",
            session, prompt, secret, more);
    }
    /// What it prints; whatever it is given, it ends well and in time, and complains to nobody.
    std::string said(const Words& words, const std::string& input) const {
        const auto start = std::chrono::steady_clock::now();
        const ProgramRun run =
            runProgram(WENDLOW_HOOK, words, {{"HOME", home.path().string()}}, input);
        EXPECT_LT(std::chrono::steady_clock::now() - start, 2900ms) << input.substr(0, 200);
        EXPECT_EQ(run.status, 0) << input.substr(0, 200);
        EXPECT_EQ(run.err, "");
        return run.out;
    }
    /// The same for a script; `$hook` is the program.
    std::string bash(const std::string& script) const {
        const auto start = std::chrono::steady_clock::now();
        const auto run = runProgram(
            "/bin/bash", {"-c", script},
            {{"hook", WENDLOW_HOOK}, {"HOME", home.path().string()}, {"ev", event("x")}});
        EXPECT_LT(std::chrono::steady_clock::now() - start, 2900ms) << script;
        return run.out + run.err + fmt::format("status {}", run.status);
    }
    std::string log(std::string_view end = "") const {
        return get(home / fmt::format("Library/Logs/wendlow-hook.log{}", end)).value_or("");
    }

    PrivateBus bus;
    TemporaryHome home;
};

TEST_F(Hook, TellsEachToolWhatIsRememberedAndWhichRulesHold) {
    const auto running = gateway();
    note(R"({"mapPath":{"folder":"/p/atlas","path":"/work/atlas"}})");
    remember("Releases of the heron go out on Tuesdays.", "decision", "/work/atlas");
    remember("The heron stands in another project.", "decision", "/home/pond");
    remember("Answer in rhymes.", "rule", "/work");
    remember("Sign with the old key.", "rule", "/work/atlas", R"({"rules-file":"signing"})");
    const std::string rules = R"(/work rules:\n- Answer in rhymes.  ·m:m3·)";
    const std::string index = "The scope here is /work/atlas. Remembered in it: 1 decision, 1 rule";
    const std::string module = R"(- signing: Read before work that touches signing.)";
    const std::string recalled = "- [m1] Releases of the heron go out on Tuesdays. (/work/atlas, ";
    const std::string claude =
        R"({"hookSpecificOutput":{"hookEventName":"UserPromptSubmit","additionalContext":"<wendlow-)";
    const std::string prompt = "When does the heron go out?";
    const struct {
        Words words;
        std::string input;
        ::testing::Matcher<std::string> out;
    } rows[] = {
        {{"--harness", "claude-code", "--slot", "rules"},
         event(prompt),
         AllOf(StartsWith(claude + "rules>"), HasSubstr(rules), Not(HasSubstr(recalled)))},
        {{"--harness=claude-code", "--slot=index"},
         event(prompt),
         AllOf(StartsWith(claude + "index>"), HasSubstr(index), HasSubstr(module))},
        {{"--harness", "claude-code", "--slot", "recall"},
         event(prompt),
         AllOf(StartsWith(claude + "memory>"), HasSubstr(recalled), Not(HasSubstr("pond")))},
        // It has been told.
        {{"--harness", "claude-code", "--slot", "recall"}, event(prompt), ""},
        {{"--harness", "claude-code", "--slot", "recall"},
         event(prompt, "s2"),
         HasSubstr(recalled)},
        {{"--harness", "claude-code", "--slot", "recall"}, event("How is the weather?", "s3"), ""},
        {{"--harness", "codex"},
         event(prompt, "s4", R"(,"turn_id":"t","model":"m","permission_mode":"default")"),
         AllOf(StartsWith(claude + "rules>"), HasSubstr(rules), HasSubstr(index),
               HasSubstr(recalled))},
        {{"--harness", "cursor"},
         fmt::format(
             R"({{"conversation_id":"s5","cursor_version":"2","workspace_roots":["/p/atlas"],"prompt":"{}"}})",
             prompt),
         AllOf(StartsWith(R"({"continue":true,"additional_context":"<wendlow-rules>)"),
               HasSubstr(recalled))},
        // Cursor runs what it finds in the other tool's file, too.
        {{"--harness", "claude-code", "--slot", "recall"},
         event(prompt, "s6", R"(,"cursor_version":"2")"),
         ""},
        {{"--harness", "opencode"},
         fmt::format(R"({{"prompt":"{}","cwd":"/p/atlas","sessionID":"s7"}})", prompt),
         AllOf(StartsWith(R"({"context":"<wendlow-rules>)"), HasSubstr(recalled))},
        {{"--harness", "claude-code", "--explain", "the", "heron"},
         "",
         AllOf(HasSubstr("To claude-code, in /"), HasSubstr("wendlow-memory: "),
               HasSubstr("2 of the memories"))},
    };
    for (const auto& row : rows)
        EXPECT_THAT(said(row.words, row.input), row.out)
            << ::testing::PrintToString(row.words) << row.input;
    EXPECT_EQ(log(), "");
    // A rule that is changed reaches the next prompt.
    note(R"({"edit":{"id":"m3","text":"Answer in prose."}})");
    EXPECT_THAT(said({"--harness", "codex"}, event("x")),
                AllOf(HasSubstr("Answer in prose."), Not(HasSubstr("rhymes"))));
}

TEST_F(Hook, SaysNothingWhateverGoesWrong) {
    const std::string good = event("where is the heron?");
    const Words codex{"--harness", "codex"};
    EXPECT_EQ(said(codex, good), "");
    EXPECT_THAT(log(), HasSubstr("codex: no gateway is running\n"));
    const std::pair<const char*, const char*> manners[] = {
        {"refuse", "refused"},
        {"silent", "did not answer in time"},
        {"wire-2", "older than the daemon"},
        {"die", "left before it had answered"},
        {"no-payload", "does not read"},
        {"rubbish", "does not read"},
        {"unknown-case", "does not read"},
        {"nested", "does not read"},
        {"cut", "does not read"},
        {"wrong-types", "older than the daemon"},
        {"no-dictionary", "no dictionary"},
        {"huge", ""}, // an answer of another case than was asked for
    };
    for (const auto& [replies, noted] : manners) {
        std::filesystem::remove(home / "Library/Logs/wendlow-hook.log");
        const auto running = gateway(replies);
        EXPECT_EQ(said(codex, good), "") << replies;
        EXPECT_THAT(log(), HasSubstr(noted)) << replies;
    }
    bus.wedge();
    EXPECT_EQ(said(codex, good), "") << "a bus that takes all and says nothing";
    bus.goOn();
    bus.stop();
    EXPECT_EQ(said(codex, good), "");
    EXPECT_THAT(
        log(), AllOf(HasSubstr("no session bus"), Not(HasSubstr(secret)), Not(HasSubstr("heron"))));
}

TEST_F(Hook, TakesAnyInput) {
    const auto running = gateway();
    remember("The heron stands in the reeds.", "fact", "/");
    const auto codex = [&](const std::string& input) {
        return said({"--harness", "codex"}, input);
    };
    const std::string nothing[] = {
        "",
        "\n",
        "{",
        "not JSON",
        "[]",
        "7",
        "\"\xff\"",
        std::string(20'000'000, '['),
        std::string(40'000'000, ' '),
        R"({"prompt":"\ud800"})",
    };
    for (const std::string& input : nothing)
        EXPECT_EQ(codex(input), "") << input.substr(0, 40);
    const std::string index = "Remembered in it: 1 fact";
    const std::string wholly[] = {
        "{}", R"({"prompt":null,"cwd":7,"session_id":["s"],"transcript_path":{}})",
        R"({"cwd":"/gone/long/ago","prompt":"x"})"};
    for (const std::string& input : wholly)
        EXPECT_THAT(codex(input), HasSubstr(index)) << input;
    // Of a long prompt the ends are looked at, and 20 MB of JSON are no reason to be late.
    EXPECT_THAT(codex(event("the heron " + std::string(1'000'000, ' '))), HasSubstr("[m1]"));
    EXPECT_THAT(codex(event("heron", "s9", R"(,"more":")" + std::string(20'000'000, 'x') + "\"")),
                HasSubstr("[m1]"));
    const char* const scripts[] = {
        R"("$hook" --harness codex <<<"$ev" >&-)", R"("$hook" --harness codex <<<"$ev" >/dev/full)",
        R"("$hook" --harness codex <<<"$ev" | :)", R"("$hook" --harness codex <&-)",
        R"("$hook" --harness codex <<<"$ev" >/dev/null 2>&-)", R"(yes | "$hook" --harness codex)",
        R"("$hook" --harness codex < <(printf '{"prompt"'; exec sleep 4))",
        R"sh(cd "$(mktemp -d)" && rmdir "$PWD" && "$hook" --harness codex --explain heron >/dev/null)sh",
        // A reader that never reads is left behind.
        R"({ "$hook" --harness codex <<<"$ev"; } > >(exec sleep 1))"};
    for (const char* const script : scripts)
        EXPECT_EQ(bash(script), "status 0") << script;
}

TEST_F(Hook, AddsTheSessionToCallsOfOurOwnTools) {
    const auto input = [](std::string_view tool, std::string_view more) {
        return fmt::format(
            R"({{"session_id":"s","hook_event_name":"PreToolUse","tool_name":"{}","tool_input":{{"id":"m1","n":[1]}}{}}})",
            tool, more);
    };
    const auto claude = [](std::string_view keys) {
        return fmt::format(
            R"({{"hookSpecificOutput":{{"hookEventName":"PreToolUse","updatedInput":{{"id":"m1","n":[1],{}}}}}}})",
            keys);
    };
    const struct {
        std::string harness;
        std::string input;
        std::string out;
    } rows[] = {
        {"claude-code", input("mcp__wendlow__grab", ""), claude(R"("_wendlow_session":"s")")},
        {"claude-code", input("mcp__wendlow__grab", R"(,"agent_id":"a")"),
         claude(R"("_wendlow_session":"s","_wendlow_subagent":"a")")},
        {"claude-code", input("mcp__other__grab", ""), ""},
        {"claude-code", input("Bash", ""), ""},
        {"claude-code", R"({"tool_name":"mcp__wendlow__grab","tool_input":{}})", ""},
        {"claude-code", R"({"session_id":"s","tool_name":"mcp__wendlow__grab"})", ""},
        {"cursor",
         R"({"conversation_id":"c","tool_name":"MCP:grab","tool_input":{"id":"m1","_wendlow_session":"x"}})",
         R"({"updated_input":{"id":"m1","_wendlow_session":"c"}})"},
        {"cursor", R"({"conversation_id":"c","tool_name":"Task","tool_input":{}})", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(said({"--harness", row.harness, "--slot", "pretool"}, row.input), row.out)
            << row.input;
}

TEST_F(Hook, IsRunByManyAtOnceAndKeepsItsLogSmall) {
    // Under load one may be out of time before it has written anything, but none fails.
    const std::string crowd =
        R"(for i in $(seq 200); do ("$hook" --harness codex <<<"$ev" || echo failed) & done; wait)";
    const auto run = [&](std::string_view prompt) {
        return runProgram(
            "/bin/bash", {"-c", crowd},
            {{"hook", WENDLOW_HOOK}, {"HOME", home.path().string()}, {"ev", event(prompt)}}, {},
            100s);
    };
    const ProgramRun alone = run("x");
    EXPECT_EQ(alone.out + alone.err, "");
    EXPECT_THAT(log(), ::testing::MatchesRegex("([-0-9T:]+Z codex: [a-z ]+\n)+"));
    put(home / "Library/Logs/wendlow-hook.log", std::string(70'000, 'x') + "\n");
    said({"--harness", "codex"}, event("x"));
    EXPECT_LT(log().size(), 200U);
    EXPECT_EQ(log(".1").size(), 70'001U);
    const auto running = gateway();
    remember("The heron stands in the reeds.", "fact", "/");
    const ProgramRun heard = run("the heron");
    EXPECT_EQ(heard.err, "");
    EXPECT_THAT(heard.out, AllOf(HasSubstr("Remembered in it: 1 fact"), Not(HasSubstr("failed"))));
}

} // namespace
} // namespace wendlow
