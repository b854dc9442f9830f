#include "ClientLineage.h"
#include "DiagnosticRelay.h"
#include "DoorFault.h"
#include "DoorRedial.h"
#include "GatewayResponse.h"
#include "MCPGatewayName.h"
#include "MenuHeaderTitle.h"
#include "MenuHealth.h"
#include "RefusalNotice.h"
#include "TemporaryHome.h"
#include "WireCodec.h"
#include "XPCRoundTrip.h"
#include "XPCWire.h"

#include <QTest>

#include <fstream>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using namespace std::chrono_literals;
using LineageCase::Foreign;
using LineageCase::Stale;

const std::string absent = "Wendlow isn't running — start it to access your memory.";

TEST(DoorFault, IsTerminalAndSpokenOfInMenusByItsKind) {
    const std::string silent = "Wendlow is running but did not answer in 3s — it may be busy "
                               "starting up; try again in a moment.";
    const std::string skew = "Wendlow is finishing an update — this window will reconnect by "
                             "itself.";
    const std::tuple<DoorFault, std::string_view, bool, std::string, std::string> rows[] = {
        {DoorFault::absent, "absent", false, absent, absent},
        {DoorFault::refused, "refused", true,
         "Wendlow is running but this menu needs a restart to reconnect.",
         "Wendlow is running but refused this connection — this binary isn't signed with the "
         "daemon's expected identity (sign it: Scripts/sign.sh)."},
        {DoorFault::silent, "silent", false, silent, silent},
        {DoorFault::skew, "skew", false, skew, skew}};
    for (const auto& [fault, text, terminal, production, dev] : rows) {
        EXPECT_EQ(DoorFaults::text(fault), text);
        EXPECT_EQ(DoorFaults::isTerminalForThisProcess(fault), terminal);
        EXPECT_EQ(DoorFaults::menuLine(fault, ClientProfile::production), production);
        EXPECT_EQ(DoorFaults::menuLine(fault, ClientProfile::dev), dev);
    }
}

TEST(DoorRedial, TellsItsBudgetInWholeSeconds) {
    for (const auto& [budget, seconds] : {std::pair<std::chrono::nanoseconds, int>{3s, 3},
                                          {1500ms, 1},
                                          {2999ms, 2},
                                          {500ms, 1},
                                          {0s, 1},
                                          {-5s, 1}})
        EXPECT_EQ((DoorRedial{.budget = budget, .pause = 0s}.budgetSeconds()), seconds);
    for (const auto& [limit, timer] :
         {std::pair<std::chrono::nanoseconds, int>{1999us, 1}, {3s, 3000}, {0s, 1}, {-1s, 1}})
        EXPECT_EQ(XPCRoundTrip::timerMilliseconds(limit).count(), timer);
}

TEST(ClientLineage, ReadsTheBundleAroundAPath) {
    const testing::TemporaryHome home;
    const auto folder = home / "Contents/MacOS";
    std::filesystem::create_directories(folder);
    std::filesystem::create_directories(home / "Contents/bin");
    const auto plist = [&](const std::string& body) {
        std::ofstream(home / "Contents/Info.plist") << body;
    };
    const auto program = folder / "program";
    using Occupant = ClientLineage::Occupant;
    EXPECT_EQ(ClientLineage::occupantBundle(program), Occupant{});
    for (const char* body :
         {"", "no list", "<plist version=\"1.0\"><array/></plist>",
          "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><true/></dict></plist>"}) {
        plist(body);
        EXPECT_EQ(ClientLineage::occupantBundle(program), Occupant{}) << body;
    }
    plist("<plist version=\"1.0\"><dict>"
          "<key>CFBundleIdentifier</key><string>works.fenmoor.wendlow</string>"
          "<key>CFBundleShortVersionString</key><integer>3</integer>"
          "<key>CFBundleVersion</key><string>3.1</string></dict></plist>");
    EXPECT_EQ(ClientLineage::occupantBundle(program), (Occupant{"works.fenmoor.wendlow", "3.1"}));
    EXPECT_EQ(ClientLineage::occupantBundle(home / "Contents/bin/program"), Occupant{});

    EXPECT_EQ(ClientLineage::judge(true, {std::nullopt, "2.0"}), ClientLineage(Foreign{}));
    EXPECT_EQ(ClientLineage::probe(std::nullopt), ClientLineage(Foreign{}));
    EXPECT_EQ(ClientLineage::probe(program), ClientLineage(Foreign{})); // nothing lies there
    std::ofstream(program) << "new";
    EXPECT_EQ(ClientLineage::probe(program), ClientLineage(Stale{"3.1"}));
    std::filesystem::last_write_time(program, std::filesystem::file_time_type::clock::now() - 24h);
    EXPECT_EQ(ClientLineage::probe(program), ClientLineage(Foreign{}));
    EXPECT_EQ(ClientLineage::executablePath(), std::filesystem::canonical("/proc/self/exe"));
}

TEST(MenuHealth, IsDecidedByTheAnswerAndTheFault) {
    using namespace HealthCase;
    const auto text = [](const char* line) { return GatewayResponse(AnswerCase::Text{line}); };
    const std::tuple<GatewayResponse, std::optional<DoorFault>, MenuHealth> rows[] = {
        {AnswerCase::Failure{"no"}, DoorFault::absent, Attention{absent}},
        {AnswerCase::Failure{"no"}, std::nullopt, Attention{"no"}},
        {text("healthy"), std::nullopt, Recording{}},
        {text("stopped"), std::nullopt, Paused{}},
        {text("paused (resumes 3:00 PM)"), std::nullopt, Paused{"3:00 PM"}},
        {text("paused, resumes 3:00 PM"), std::nullopt, Paused{"3:00 PM"}},
        {text("paused (resumes )"), std::nullopt, Paused{}},
        {text("paused, resumes "), std::nullopt, Paused{}},
        {text("resumes 3:00 PM"), std::nullopt, Attention{"resumes 3:00 PM"}},
        {text("the disk is full"), DoorFault::skew, Attention{"the disk is full"}},
        {AnswerCase::Ok{}, std::nullopt, Attention{"Wendlow sent an answer we couldn't read"}}};
    for (const auto& [answer, fault, health] : rows)
        EXPECT_EQ(MenuHealth::decide(answer, fault, ClientProfile::production), health);
}

TEST(RefusalNotice, IsForAnOldRefusalAndOnce) {
    using namespace RefusalNotice;
    const std::pair<State, Action> rows[] = {
        {{DoorFault::refused, Seconds(45.0), false}, Action::report},
        {{DoorFault::refused, Seconds(44.9), false}, Action::wait},
        {{DoorFault::refused, Seconds(45.0), true}, Action::wait},
        {{DoorFault::refused, std::nullopt, false}, Action::wait},
        {{DoorFault::silent, Seconds(90), false}, Action::wait}};
    for (const auto& [state, action] : rows)
        EXPECT_EQ(decide(state), action);
}

TEST(SmallDeciders, NameTheServiceAndTheTitle) {
    const std::string product = "works.fenmoor.wendlow.gateway";
    for (const auto& [value, name] : std::map<std::string, std::string>{
             {"works.fenmoor.wendlow.test.", product},
             {" works.fenmoor.wendlow.test.\n", product},
             {"\tworks.fenmoor.wendlow.test.a \r\n", "works.fenmoor.wendlow.test.a"},
             {"org.foreign", product},
             {" ", product}})
        EXPECT_EQ(MCPGatewayName::resolve({{"WENDLOW_MCP_GATEWAY_FOR_TESTS", value}}), name);
    EXPECT_EQ(MCPGatewayName::resolve({}), product);
    EXPECT_EQ(MenuHeaderTitle::title("Wendlow", "1.2", "34"), "Wendlow (v1.2 · build 34)");
    EXPECT_EQ(MenuHeaderTitle::title("Wendlow", {}, {}), "Wendlow (v? · build ?)");
}

TEST(XPCWire, TellsAbsentFromZeroAndEmpty) {
    xpc_object_t message = xpc_dictionary_create();
    EXPECT_EQ(XPCWire::wireVersion(message), std::nullopt);
    EXPECT_EQ(XPCWire::servedDuration(message), std::nullopt);
    XPCWire::setWire(0, message);
    XPCWire::set("", "payload", message);
    EXPECT_EQ(XPCWire::wireVersion(message), 0);
    EXPECT_NE(xpc_dictionary_get_value(message, "payload"), nullptr);
    EXPECT_EQ(XPCWire::data("payload", message), nullptr);
    EXPECT_EQ(XPCWire::data("wire", message), nullptr);
    XPCWire::setWire(std::numeric_limits<std::int64_t>::max(), message);
    EXPECT_EQ(XPCWire::wireVersion(message), std::numeric_limits<std::int64_t>::max());
}

TEST(XPCWireDeathTest, EndsTheProcessForANumberThatOnlyABrokenPeerSends) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    xpc_object_t reply = xpc_dictionary_create();
    xpc_dictionary_set_uint64(reply, "wire", 1ULL << 63U);
    xpc_dictionary_set_uint64(reply, "served_ms", 1ULL << 63U);
    EXPECT_DEATH(XPCWire::wireVersion(reply), "no version and no duration");
    EXPECT_DEATH(XPCWire::servedDuration(reply), "no version and no duration");
}

/// Answers in its own time, and keeps what it was sent.
class RecordingClient final : public WendlowClient {
public:
    QCoro::Task<GatewayResponse> send(GatewayRequest request) override {
        sent->push_back(WireCodec::encode(request).value());
        co_return AnswerCase::Failure{"no log here"};
    }
    std::shared_ptr<std::vector<std::string>> sent = std::make_shared<std::vector<std::string>>();
};

TEST(DiagnosticRelay, SendsEachLineLaterAndDropsTheAnswer) {
    auto client = std::make_shared<RecordingClient>();
    const auto sent = client->sent;
    {
        const DiagnosticRelay relay(DiagnosticSource::settings, std::move(client));
        relay.note("x");
        relay.note("a second line");
        EXPECT_TRUE(sent->empty());
    } // a note outlives its relay and all who held the client
    EXPECT_TRUE(QTest::qWaitFor([&] { return sent->size() == 2; }));
    EXPECT_EQ(sent->at(0), R"({"diagnostic":{"_0":{"log":{"source":"settings","line":"x"}}}})");
}

} // namespace
} // namespace wendlow
