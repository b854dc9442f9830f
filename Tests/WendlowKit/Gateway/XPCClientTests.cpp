// The client's own order of things, on connections that do what the test says, in the test's time.

#include "GatewayTestSupport.h"

#include "WireContract.h"
#include "XPCWire.h"

#include <deque>

namespace wendlow {
namespace {

using namespace testing;

class FakeConnection final : public XPCConnection {
public:
    struct Asked {
        xpc_object_t message;
        Handler handler;
    };

    void setEventHandler(Handler) override {}
    void resume() override { ++resumed; }
    void cancel() override { ++cancelled; }
    void send(xpc_object_t) override {}
    void sendWithReply(xpc_object_t message, Handler handler) override {
        asked.push_back({std::move(message), std::move(handler)});
    }

    void fail(std::size_t index, XPCError::Extent extent = XPCError::Extent::connection) {
        asked.at(index).handler(XPCError{"gone", extent});
    }
    void answer(std::size_t index, const std::string& text, std::uint64_t wire = 1) {
        xpc_object_t reply = xpc_dictionary_create();
        XPCWire::set(R"({"text":{"_0":")" + text + R"("}})", "payload", reply);
        XPCWire::setWire(wire, reply);
        xpc_dictionary_set_uint64(reply, "served_ms", 12);
        asked.at(index).handler(std::move(reply));
    }

    int resumed = 0;
    int cancelled = 0;
    std::deque<Asked> asked;
};

struct Timer {
    std::chrono::milliseconds delay;
    std::function<void()> work;
};

struct OnFakes : public ::testing::Test {
    OnFakes() {
        // Everything that was given reaches its caller by way of the event loop.
        options.dial = [this](const std::string& name) {
            EXPECT_EQ(name, "works.fenmoor.wendlow.gateway");
            EXPECT_EQ(client ? client->knocks() : 0, 0); // no lock is held over a closure
            dialled.push_back(std::make_shared<FakeConnection>());
            return dialled.back();
        };
        options.after = [this](auto delay, auto work) {
            timers.push_back({delay, std::move(work)});
        };
    }
    static void settle() { QCoreApplication::processEvents(); }
    std::vector<std::chrono::milliseconds> delays() const {
        std::vector<std::chrono::milliseconds> all;
        for (const Timer& timer : timers)
            all.push_back(timer.delay);
        return all;
    }

    std::vector<std::shared_ptr<FakeConnection>> dialled;
    std::deque<Timer> timers;
    XPCClient::Options options;
    std::unique_ptr<XPCClient> client;
};

TEST_F(OnFakes, ABurstOfFailuresDialsOnceAndOnlyTheRetryHasALimit) {
    client = std::make_unique<XPCClient>(options);
    ASSERT_EQ(dialled.size(), 1U);
    EXPECT_EQ(dialled[0]->resumed, 1);
    const auto first = ask(*client);
    const auto second = ask(*client);
    ASSERT_EQ(dialled[0]->asked.size(), 2U);
    const auto& sent = std::get<XPCDictionary>(dialled[0]->asked[0].message);
    EXPECT_EQ(sent.size(), 2U);
    EXPECT_EQ(*XPCWire::data("payload", sent), R"({"read":{"_0":{"health":{}}}})");
    EXPECT_EQ(XPCWire::wireVersion(sent), 1);
    EXPECT_TRUE(timers.empty());

    dialled[0]->fail(0);
    dialled[0]->fail(1);
    settle();
    ASSERT_EQ(dialled.size(), 2U);
    EXPECT_EQ(dialled[0]->cancelled, 1);
    EXPECT_EQ(dialled[1]->resumed, 1);
    ASSERT_EQ(dialled[1]->asked.size(), 2U);
    EXPECT_EQ(delays(), (std::vector{3000ms, 3000ms}));

    dialled[1]->answer(0, "one");
    timers[0].work(); // too late, as is the reply after the other's time
    timers[1].work();
    dialled[1]->answer(1, "two");
    settle();
    EXPECT_EQ(first->text(), "one");
    EXPECT_EQ(first->timed.daemon, 12ms);
    EXPECT_EQ(first->resumed, 1);
    EXPECT_TRUE(second->text().starts_with("Wendlow is running but did not answer in 3s"));
    EXPECT_EQ(second->timed.daemon, std::nullopt);
    EXPECT_EQ(second->resumed, 1);
    EXPECT_EQ(client->lastDoorFault(), DoorFault::silent);
    EXPECT_EQ(client->knocks(), 0);
}

TEST_F(OnFakes, ARefusalConcernsItsOwnRequestAndSilenceTheWholeConnection) {
    client = std::make_unique<XPCClient>(options);
    const auto waiting = ask(*client);
    const auto refused = ask(*client);
    dialled[0]->fail(1, XPCError::Extent::message);
    settle();
    ASSERT_EQ(dialled.size(), 2U);
    EXPECT_EQ(dialled[0]->cancelled, 0);
    EXPECT_EQ(dialled[1]->asked.size(), 1U);
    const auto other = ask(*client); // over the new connection, as the retry
    dialled[0]->answer(0, "at last");
    settle();
    EXPECT_EQ(waiting->text(), "at last");
    timers[0].work(); // nothing was heard over the new one
    settle();
    EXPECT_EQ(client->lastDoorFault(), DoorFault::silent);
    EXPECT_EQ(refused->resumed, 1);
    EXPECT_EQ(other->resumed, 0);
    EXPECT_EQ(dialled[1]->cancelled, 1);
    ASSERT_EQ(dialled.size(), 3U);
    dialled[1]->fail(1); // as one that was cancelled ends its calls
    settle();
    timers.back().work();
    settle();
    dialled[2]->answer(0, "to the knock");
    settle();
    dialled[2]->answer(1, "again");
    settle();
    EXPECT_EQ(other->text(), "again");
}

TEST_F(OnFakes, AClientThatWasConnectedKnocksFirstAndAnnouncesASkewOnce) {
    int announced = 0;
    options.onWireMismatch = [&] { ++announced; };
    client = std::make_unique<XPCClient>(options);
    const auto first = ask(*client);
    dialled[0]->answer(0, "one");
    settle();
    const auto second = ask(*client);
    dialled[0]->fail(1);
    settle();
    EXPECT_EQ(client->knocks(), 1);
    EXPECT_EQ(delays(), std::vector{100ms});
    EXPECT_TRUE(dialled[1]->asked.empty());
    timers[0].work();
    settle();
    const auto& knock = std::get<XPCDictionary>(dialled[1]->asked.at(0).message);
    EXPECT_EQ(knock.size(), 1U);
    EXPECT_EQ(XPCWire::wireVersion(knock), 1);
    dialled[1]->answer(0, "whatever", 2);
    settle();
    EXPECT_EQ(client->lastDoorFault(), std::nullopt); // a knock decides nothing
    EXPECT_EQ(delays(), (std::vector{100ms, 3000ms, 3000ms}));
    dialled[1]->answer(1, "two", 2);
    settle();
    EXPECT_EQ(second->text(), WireContract::mismatchMessage);
    EXPECT_EQ(second->timed.daemon, std::nullopt);
    EXPECT_EQ(announced, 1);
}

} // namespace
} // namespace wendlow
