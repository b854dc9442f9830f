// What the client says for each way in which a real gateway can fail, on a real bus.

#include "GatewayTestSupport.h"

#include "CXPCShim.h"

#include <fstream>

namespace wendlow {
namespace {

using namespace testing;

using XPCClientFailures = OnABus;

const std::string refused =
    "Wendlow is running but refused this connection — this binary isn't signed with the daemon's "
    "expected identity (sign it: Scripts/sign.sh).";
const std::string silent = "Wendlow is running but did not answer in 3s — it may be busy starting "
                           "up; try again in a moment.";
const std::string skewed =
    "Wendlow updated; this session's bridge is older than the daemon, restart the session";

struct Row {
    const char* replies; ///< of the gateway, to the requests of as many exchanges as `texts`
    const char* knock;
    std::vector<std::string> texts;
    std::optional<DoorFault> fault; ///< after the last exchange
    const char* seen;
    int announced = 0; ///< skews
};

TEST_F(XPCClientFailures, EachSayTheirSentence) {
    const std::optional<DoorFault> none;
    const Row rows[] = {
        {"answer", "no-payload", {"healthy"}, none, "r"},
        {"no-wire", "no-payload", {"healthy"}, none, "r"},
        {"refuse,answer", "no-payload", {"healthy"}, none, "rr"}, // no knock: never connected
        {"answer,refuse,answer", "no-payload", {"healthy", "healthy"}, none, "rrkr"},
        {"answer,refuse,answer", "refuse", {"healthy", "healthy"}, none, "rrkr"},
        {"answer,refuse,answer", "silent", {"healthy", "healthy"}, none, "rrkr"},
        {"answer,refuse,answer", "wire-2", {"healthy", "healthy"}, none, "rrkr", 1},
        // Whatever cannot be read is an answer all the same: the next failure knocks.
        {"no-payload,refuse,answer", "no-payload", {"bad reply", "healthy"}, none, "rrkr"},
        {"empty,refuse,empty", "no-payload", {"bad reply", "bad reply"}, none, "rrkr"},
        {"rubbish,nested,cut,unknown-case,no-dictionary,answer",
         "no-payload",
         {"bad reply", "bad reply", "bad reply", "bad reply", "bad reply", "healthy"},
         none,
         "rrrrrr"},
        {"refuse", "no-payload", {refused}, DoorFault::refused, "rr"},
        {"refuse,refuse,answer", "no-payload", {refused, "healthy"}, none, "rrr"},
        {"refuse,silent", "no-payload", {silent}, DoorFault::silent, "rr"},
        {"answer,refuse,silent", "silent", {"healthy", silent}, DoorFault::silent, "rrkr"},
        {"wire-2", "no-payload", {skewed, skewed}, DoorFault::skew, "rr", 1},
        {"answer,refuse,wire-2", "wire-2", {"healthy", skewed}, DoorFault::skew, "rrkr", 1},
        {"wire-2+rubbish,wire-0", "no-payload", {skewed, skewed}, DoorFault::skew, "rr", 1},
        {"wrong-types,wire-2,answer", "no-payload", {skewed, skewed, "healthy"}, none, "rrr", 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.replies) + ", knock: " + row.knock);
        const auto running = gateway(row.replies, {"--knocks", row.knock});
        std::atomic<int> announced = 0;
        auto asking = options();
        asking.onWireMismatch = [&] { ++announced; };
        XPCClient client(asking);
        EXPECT_EQ(client.lastDoorFault(), none);
        for (const std::string& text : row.texts) {
            const Caller caller = answered(client);
            EXPECT_EQ(caller.text(), text);
            EXPECT_EQ(caller.failed(), text != "healthy");
            EXPECT_EQ(caller.resumed, 1);
        }
        EXPECT_EQ(client.lastDoorFault(), row.fault);
        const std::string seenNow = seen();
        EXPECT_EQ(seenNow, row.seen);
        EXPECT_EQ(client.knocks(), std::ranges::count(seenNow, 'k'));
        EXPECT_EQ(announced, row.announced);
    }
}

/// Sent again, a write beside a refused one would be done twice.
TEST_F(XPCClientFailures, LeaveTheRequestsBesideThemAlone) {
    const auto running = gateway("late-300,late-300,refuse,answer");
    XPCClient client(options());
    const std::vector callers{ask(client), ask(client), ask(client)};
    EXPECT_TRUE(comes([&] {
        return std::ranges::all_of(callers, [](auto& caller) { return caller->resumed > 0; });
    }));
    for (const auto& caller : callers)
        EXPECT_EQ(caller->text(), "healthy");
    EXPECT_EQ(seen(), "rrrr");
}

TEST_F(XPCClientFailures, WithNobodyThereTheDoorIsAbsent) {
    XPCClient client(options());
    EXPECT_EQ(answered(client).text(), absent); // a bus, and nobody on it
    EXPECT_EQ(client.lastDoorFault(), DoorFault::absent);
    // A request that cannot be encoded is not sent, and is no fault of the door.
    EXPECT_EQ(answered(client, DiagnosticRequest(DiagnosticCase::Log{"settings", "\xff"})).text(),
              "encode failed");
    EXPECT_EQ(client.lastDoorFault(), std::nullopt);
    m_bus.stop(); // a bus that died
    EXPECT_EQ(answered(client).text(), absent);
    EXPECT_EQ(client.lastDoorFault(), DoorFault::absent);
    EXPECT_EQ(client.knocks(), 0);
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS"); // and none at all
    ::unsetenv("XDG_RUNTIME_DIR");
    XPCClient unconnected(options());
    EXPECT_EQ(answered(unconnected).text(), absent);
}

TEST_F(XPCClientFailures, AskWhetherTheNameIsRegisteredWithoutStartingIt) {
    const auto registered = [] {
        return wendlow_mach_service_registered("works.fenmoor.wendlow.gateway");
    };
    EXPECT_FALSE(registered());
    auto running = gateway("answer");
    EXPECT_TRUE(registered());
    EXPECT_FALSE(wendlow_mach_service_registered("works.fenmoor.wendlow"));
    EXPECT_FALSE(wendlow_mach_service_registered("no name at all"));
    running->kill();
    EXPECT_TRUE(comes([&] { return !registered(); }));
    m_bus.stop();
    EXPECT_FALSE(registered());
}

TEST_F(XPCClientFailures, StartNoServiceThatTheBusCouldStart) {
    const TemporaryHome home;
    const auto marker = home / "started";
    std::ofstream(home / "gateway.service")
        << "[D-BUS Service]\nName=works.fenmoor.wendlow.gateway\nExec=/usr/bin/touch "
        << marker.string() << "\n";
    const PrivateBus starting(home.path().string());
    XPCClient client(options());
    client.subscribe([](const GatewayEvent&) {});
    EXPECT_EQ(answered(client).text(), absent);
    EXPECT_FALSE(wendlow_mach_service_registered("works.fenmoor.wendlow.gateway"));
    QTest::qWait(100);
    EXPECT_FALSE(std::filesystem::exists(marker));
    seen(QString::fromStdString(starting.address())); // a call without the flag would have done it
    EXPECT_TRUE(comes([&] { return std::filesystem::exists(marker); }));
}

/// A real process, refused after a newer build was put where it was started from.
TEST_F(XPCClientFailures, AreCalmWhenAnUpdateExplainsTheRefusal) {
    const auto running = gateway("refuse");
    const TemporaryHome home;
    const auto folder = home / "Wendlow.app/Contents/MacOS";
    std::filesystem::create_directories(folder);
    const auto program = folder / "wendlow-test-client";
    const auto plist = [&](const std::string& bundleID) {
        std::ofstream(folder.parent_path() / "Info.plist")
            << "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>" << bundleID
            << "</string><key>CFBundleVersion</key><string>2.0</string></dict></plist>";
    };
    const auto sentence = [&](bool replaced) {
        std::filesystem::remove(program); // the one before may still be let go of
        std::filesystem::copy_file(WENDLOW_TEST_CLIENT, program);
        GatewayProcess client(program);
        if (replaced) {
            const auto update = folder / "update";
            std::filesystem::copy_file(WENDLOW_TEST_CLIENT, update);
            std::filesystem::last_write_time(update,
                                             std::filesystem::file_time_type::clock::now() + 1s);
            std::filesystem::rename(update, program);
        }
        client.say("go\n");
        return client.line();
    };
    plist("works.fenmoor.wendlow.settings");
    EXPECT_EQ(sentence(false), refused);
    EXPECT_EQ(sentence(true), "Wendlow updated to 2.0 — this session's connector is from before "
                              "the update. Restart this session (or reconnect the MCP server) to "
                              "continue. Nothing is wrong.");
    plist("works.fenmoor.wendlowish");
    EXPECT_EQ(sentence(true), refused);
}

TEST_F(XPCClientFailures, KeepTheFaultOfARefusalThatAnUpdateExplains) {
    const auto running = gateway("refuse");
    auto asking = options();
    asking.clientLineage = [] { return LineageCase::Stale{}; };
    XPCClient client(asking);
    EXPECT_EQ(answered(client).text(),
              "Wendlow updated — this session's connector is from before the update. Restart this "
              "session (or reconnect the MCP server) to continue. Nothing is wrong.");
    EXPECT_EQ(client.lastDoorFault(), DoorFault::refused);
}

} // namespace
} // namespace wendlow
