// wendlow-ask against the practice gateway: what a script sees of every way in which that goes.

#include "Files.h"
#include "GatewayProcess.h"
#include "PrivateBus.h"
#include "RunProgram.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace wendlow {
namespace {

using namespace testing;
using namespace std::chrono_literals;

const std::string health = R"({"read":{"_0":{"health":{}}}})";
const std::string names = R"({"notes":{"_0":{"selfNames":{}}}})";
const std::string written =
    R"({"notes":{"_0":{"write":{"text":"Releases go out on Tuesdays.","why":"said so",)"
    R"("writer":"claude-code","type":"decision","path":"/work/atlas"}}}})";
const std::string decisions = R"({"read":{"_0":{"getByType":{"type":"decision"}}}})";

class Ask : public ::testing::Test {
protected:
    std::unique_ptr<GatewayProcess> gateway(std::vector<std::string> options = {}) const {
        options.insert(options.end(), {"--database", database.string()});
        return std::make_unique<GatewayProcess>(WENDLOW_PRACTICE_GATEWAY, options);
    }
    static ProgramRun ask(const std::string& request) { return runProgram(WENDLOW_ASK, {request}); }
    /// Without what the clock had to say.
    static std::string said(const ProgramRun& run) {
        const auto at = run.out.find(R"(,"served_ms":)");
        if (at == std::string::npos)
            return run.out;
        return run.out.substr(0, at) + run.out.substr(run.out.find_first_of(",}", at + 1));
    }

    PrivateBus m_bus;
    TemporaryHome home;
    const std::filesystem::path database = home / "support/practice.db";
};

TEST_F(Ask, SaysTheAnswerOrWhyThereIsNone) {
    const std::tuple<const char*, std::string, int> rows[] = {
        {"answer", R"({"response":{"noteID":{"_0":"self-names","echo":[]}}})", 0},
        {"empty", R"({"response":{"failure":{"message":"bad reply"}}})", 1},
        {"wire-2",
         R"({"response":{"failure":{"message":"Wendlow updated; this session's bridge is older than the daemon, restart the session"}},"fault":"skew"})",
         1},
        {"huge", R"({"response":{"text":{"_0":")" + std::string(20'000'000, 'x') + "\"}}}", 0},
    };
    for (const auto& [replies, document, status] : rows) {
        SCOPED_TRACE(replies);
        const auto running = gateway({"--replies", replies});
        const ProgramRun run = ask(names);
        EXPECT_TRUE(said(run) == document + "\n") << said(run).substr(0, 1000);
        EXPECT_EQ(run.status, status);
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(run.out.contains(R"(,"served_ms":)"), status == 0);
    }
}

TEST_F(Ask, SendsNothingThatDoesNotRead) {
    const auto running = gateway({"--replies", "die"});
    const std::string usage = "usage: wendlow-ask 'REQUEST JSON'\n";
    const std::pair<std::vector<std::string>, std::string> rows[] = {
        {{}, usage},
        {{""}, usage},
        {{"--health"}, usage},
        {{health, health}, usage},
        {{"health"}, "wendlow-ask: this is not JSON: syntax error at byte 0\n"},
        {{R"({"read":{"_0":{"nonsense":{}}}})"},
         "wendlow-ask: Unknown ReadRequest case: nonsense (in read._0)\n"},
    };
    for (const auto& [words, error] : rows) {
        const ProgramRun run = runProgram(WENDLOW_ASK, words);
        EXPECT_EQ(run.err, error);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.status, 2);
    }
    EXPECT_EQ(ask("--help").status, 0);
    EXPECT_TRUE(running->isRunning());
}

TEST_F(Ask, FindsWhatWasWrittenBeforeTheGatewayWasKilled) {
    auto running = gateway();
    ASSERT_EQ(said(ask(written)), "{\"response\":{\"noteID\":{\"_0\":\"m1\"}}}\n");
    for (const char* command :
         {R"({"setDiagnosticLogging":{"_0":true}})", R"({"connectApp":{"_0":"codex"}})",
          R"({"connectApp":{"_0":"b"}})", R"({"disconnectApp":{"_0":"b"}})"})
        EXPECT_EQ(ask(fmt::format(R"({{"control":{{"_0":{}}}}})", command)).status, 0);
    running->kill();
    EXPECT_EQ(ask(decisions).status, 1);
    running = gateway();
    EXPECT_EQ(said(ask(R"({"read":{"_0":{"diagnosticLoggingState":{}}}})")),
              "{\"response\":{\"flag\":{\"_0\":true}}}\n");
    EXPECT_EQ(said(ask(R"({"read":{"_0":{"connectedApps":{}}}})")),
              "{\"response\":{\"text\":{\"_0\":\"codex\"}}}\n");
    const ProgramRun found = ask(decisions);
    EXPECT_EQ(found.status, 0);
    EXPECT_NE(found.out.find(R"("snippet":"Releases go out on Tuesdays.")"), std::string::npos);
    EXPECT_EQ(modeOf(database), 0600U);
    EXPECT_EQ(modeOf(database.parent_path()), 0700U);
}

TEST_F(Ask, SeesTheGatewayEndInOrderWhenItIsToldTo) {
    auto running = gateway();
    EXPECT_EQ(said(ask(R"({"control":{"_0":{"shutdown":{}}}})")), "{\"response\":{\"ok\":{}}}\n");
    EXPECT_EQ(running->waitForEnd(), 0);
    running = gateway();
    EXPECT_EQ(running->end(), 0); // by SIGTERM
    EXPECT_EQ(namesIn(database.parent_path()), std::vector<std::string>{"practice.db"});
}

TEST_F(Ask, LearnsInWordsWhyTheGatewayDoesNotStart) {
    const auto running = gateway();
    const std::string program = "wendlow-practice-gateway: ";
    const auto start = [&](std::vector<std::string> options, const std::string& path) {
        options.insert(options.end(), {"--database", path});
        return runProgram(WENDLOW_PRACTICE_GATEWAY, options);
    };
    const std::tuple<std::vector<std::string>, std::string, int> rows[] = {
        {{}, "the name works.fenmoor.wendlow.gateway is taken: another gateway is running\n", 1},
        {{"--name", "no name"}, "the bus does not give the name no name: ", 1},
        {{"--fill", "week"}, "--fill cannot be \"week\"\n", 2},
        {{"--replies", "answer,+wire-2"}, "--replies cannot be \"\"\n", 2},
        {{"--replies", "wire-"}, "--replies cannot be \"wire-\"\n", 2},
        {{"--knocks", "late"}, "--knocks cannot be \"late\"\n", 2},
        {{"--flood", "-1"}, "--flood cannot be \"-1\"\n", 2},
        {{"soon"}, "there is no use for soon\n", 2},
        {{"--soon"}, "Unknown option 'soon'.\n", 2},
    };
    for (const auto& [options, error, status] : rows) {
        const ProgramRun run = start(options, (home / "other/practice.db").string());
        EXPECT_EQ(run.err.substr(0, (program + error).size()), program + error);
        EXPECT_EQ(run.status, status);
    }
    EXPECT_EQ(start({}, home.path().string()).err,
              program + home.path().string() + " could not be opened — Is a directory\n");
    m_bus.stop();
    EXPECT_EQ(start({}, (home / "other/practice.db").string()).err,
              program + "there is no session bus here\n");
    EXPECT_EQ(running->waitForEnd(), 0); // a gateway does not outlive its bus
}

} // namespace
} // namespace wendlow
