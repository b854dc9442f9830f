// The client beside real processes that die, hang and flood, on a bus that does so too.

#include "GatewayTestSupport.h"
#include "XPC/DispatchQueue.h"

#include <QThread>

#include <limits>
#include <thread>

#include <dlfcn.h>

namespace {

/// How many calls went out while every limit that the bus is given passes a hundred times faster;
/// below 0 they pass as they are.
std::atomic<int> hastyCalls = -1;

} // namespace

/// Stands before the bus library's own function: whoever links this program calls this one. A
/// negative limit is the library's own, of 25 seconds.
extern "C" unsigned dbus_connection_send_with_reply(void* connection, void* message, void** call,
                                                    int limit) {
    using Send = unsigned(void*, void*, void**, int);
    static auto* const send =
        reinterpret_cast<Send*>(::dlsym(RTLD_NEXT, "dbus_connection_send_with_reply"));
    if (hastyCalls >= 0) {
        ++hastyCalls;
        if (limit != std::numeric_limits<int>::max())
            limit = (limit < 0 ? 25'000 : limit) / 100;
    }
    return send(connection, message, call, limit);
}

namespace wendlow {
namespace {

using namespace testing;

constexpr int many = 200;

class XPCClientProcesses : public OnABus {
protected:
    /// Counts what it dials.
    XPCClient::Options counting() {
        auto asking = options();
        asking.dial = [this](const std::string& name) {
            ++dials;
            return xpc_connection_create_mach_service(name);
        };
        return asking;
    }
    static std::vector<std::shared_ptr<Caller>> askMany(XPCClient& client) {
        std::vector<std::shared_ptr<Caller>> callers;
        for (int index = 0; index < many; ++index)
            callers.push_back(ask(client));
        return callers;
    }
    /// Each was resumed, and no more than once, also a while later.
    static void expectAll(const std::vector<std::shared_ptr<Caller>>& callers,
                          const std::string& text) {
        EXPECT_TRUE(comes([&] {
            return std::ranges::all_of(callers, [](auto& caller) { return caller->resumed > 0; });
        }));
        QTest::qWait(50);
        for (const auto& caller : callers) {
            EXPECT_EQ(caller->resumed, 1);
            EXPECT_EQ(caller->text(), text);
        }
    }

    std::atomic<int> dials = 0;
};

TEST_F(XPCClientProcesses, AKillUnderManyExchangesRedialsOnceAndResumesEachOnce) {
    auto running = gateway("silent");
    XPCClient client(counting());
    auto callers = askMany(client);
    EXPECT_TRUE(comes([&] { return seen().size() == many; }));
    running->kill();
    expectAll(callers, absent);
    EXPECT_EQ(dials, 2);
    EXPECT_EQ(client.lastDoorFault(), DoorFault::absent);

    running = gateway("answer,silent");
    EXPECT_EQ(answered(client).text(), "healthy"); // back, without any help
    running = nullptr;                             // the name is free before another takes it
    EXPECT_EQ(answered(client).text(), absent);
    running = gateway("answer,silent");
    auto asking = counting();
    asking.redial = {.budget = 5s, .pause = 400ms};
    XPCClient patient(asking);
    dials = 1;
    EXPECT_EQ(answered(patient).text(), "healthy");
    callers = askMany(patient);
    EXPECT_TRUE(comes([&] { return seen().size() == many + 1; }));
    running->kill();
    running = gateway("answer"); // while the clients pause
    expectAll(callers, "healthy");
    EXPECT_EQ(dials, 2);
    EXPECT_EQ(patient.lastDoorFault(), std::nullopt);
}

TEST_F(XPCClientProcesses, ABusMayDieUnderManyExchangesAndAnotherTakeItsPlace) {
    const auto running = gateway("silent");
    XPCClient client(counting());
    const auto callers = askMany(client);
    EXPECT_TRUE(comes([&] { return seen().size() == many; }));
    m_bus.stop();
    expectAll(callers, absent);
    EXPECT_EQ(dials, 2);
    const PrivateBus another;
    const auto next = gateway("answer");
    EXPECT_EQ(answered(client).text(), "healthy");
}

TEST_F(XPCClientProcesses, AWedgedBusHoldsUpNeitherItsCallersNorTheirTimers) {
    const auto running = gateway("answer");
    m_bus.wedge();
    XPCClient client(options());
    const auto caller = ask(client);

    const auto queue = std::make_shared<DispatchQueue>();
    auto asking = options();
    asking.dial = [queue, first = true](const std::string& name) mutable {
        auto connection = xpc_connection_create_mach_service(name, queue);
        if (std::exchange(first, false))
            xpc_connection_cancel(connection);
        return connection;
    };
    asking.after = [queue](auto delay, auto work) { queue->after(delay, std::move(work)); };
    XPCClient redialling(asking);
    const auto limited = ask(redialling);
    EXPECT_TRUE(comes([&] { return limited->resumed == 1; }));
    EXPECT_EQ(redialling.lastDoorFault(), DoorFault::silent);

    EXPECT_EQ(caller->resumed, 0);
    m_bus.goOn();
    expectAll({caller}, "healthy");
    EXPECT_EQ(limited->resumed, 1);
}

TEST_F(XPCClientProcesses, ExchangesOutliveTheirClient) {
    auto running = gateway("silent");
    auto client = std::make_unique<XPCClient>(options());
    const auto callers = askMany(*client);
    const auto unsent = [&] { // one whose client is gone before its connection is there
        XPCClient brief(options());
        return ask(brief);
    }();
    EXPECT_TRUE(comes([&] { return seen().size() == many + 1; }));
    client = nullptr;
    running->kill();
    expectAll(callers, absent);
    expectAll({unsent}, absent);
    auto subscribed = std::make_unique<XPCClient>(options());
    subscribed->subscribe([](const GatewayEvent&) {});
    subscribed = nullptr; // a client may go before it has arrived
}

TEST_F(XPCClientProcesses, ALateReplyIsDroppedAndNoFirstAttemptIsLate) {
    const auto running = gateway("refuse,late-600,late-600");
    XPCClient client(options());
    const auto caller = ask(client);
    EXPECT_TRUE(comes([&] { return caller->resumed == 1; }));
    EXPECT_EQ(client.lastDoorFault(), DoorFault::silent);
    QTest::qWait(400); // the reply has arrived
    EXPECT_EQ(caller->resumed, 1);
    EXPECT_EQ(client.lastDoorFault(), DoorFault::silent);
    EXPECT_EQ(answered(client).text(), "healthy"); // though it took longer than the budget
}

TEST_F(XPCClientProcesses, AFirstAttemptWaitsBeyondTheLimitOfTheBus) {
    const auto running = gateway("answer,late-1000");
    XPCClient client(options());
    EXPECT_EQ(answered(client).text(), "healthy"); // it is on the bus
    hastyCalls = 0; // whose own limit is a quarter of a second from here on
    EXPECT_EQ(answered(client).text(), "healthy");
    EXPECT_GT(hastyCalls.exchange(-1), 0);
}

TEST_F(XPCClientProcesses, AnyThreadMayAskAndIsCalledBackOnItself) {
    const auto running = gateway("answer");
    XPCClient client(options());
    std::atomic<int> healthy = 0;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 8; ++thread)
        threads.emplace_back([&] {
            for (int exchange = 0; exchange < 25; ++exchange) {
                const QThread* const before = QThread::currentThread();
                const auto answer = QCoro::waitFor(client.send(health()));
                if (answer == GatewayResponse(AnswerCase::Text{"healthy"}) &&
                    QThread::currentThread() == before)
                    ++healthy;
            }
        });
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(healthy, 200);
}

/// Events on the subscriber's own queue, counted.
struct Events {
    XPCClient::EventHandler handler() {
        return [this](const GatewayEvent& event) {
            ++count;
            if (event == GatewayEvent(EventCase::FrontState{FrontRecording::none}))
                ++last;
        };
    }
    std::atomic<int> count = 0;
    std::atomic<int> last = 0; ///< how often the last of a flood has come
};

TEST_F(XPCClientProcesses, AFloodOfEventsArrivesWholeAndWhatIsNoneIsDropped) {
    const auto running = gateway("answer", {"--flood", "10000"});
    XPCClient client(options());
    Events former, events;
    client.subscribe(former.handler());
    EXPECT_TRUE(comes([&] { return former.last == 1; }));
    EXPECT_EQ(former.count, 10'000);
    client.ensureSubscribed(); // it is
    EXPECT_EQ(answered(client).text(), "healthy");
    EXPECT_EQ(seen(), "sr");
    client.subscribe(events.handler());
    EXPECT_TRUE(comes([&] { return events.last == 1; }));
    EXPECT_EQ(former.last, 1);
    EXPECT_EQ(seen(), "srs");
}

TEST_F(XPCClientProcesses, ASubscriptionIsReopenedByItsOwnerAfterTheGatewayWasGone) {
    XPCClient client(options());
    Events events;
    client.ensureSubscribed(); // nobody wants any
    client.subscribe(events.handler());
    QTest::qWait(50);
    std::unique_ptr<GatewayProcess> running;
    for (const int round : {1, 2, 3}) {
        running = nullptr;
        running = gateway("answer", {"--flood", "1"});
        EXPECT_EQ(answered(client).text(), "healthy");
        EXPECT_EQ(seen(), "r"); // the client does not do it by itself
        EXPECT_TRUE(comes([&] {
            client.ensureSubscribed();
            return events.last >= round;
        }));
        EXPECT_EQ(seen(), "rs");
    }
}

TEST_F(XPCClientProcesses, EventsOfAnybodyElseAreNotHeard) {
    const auto running = gateway("answer", {"--flood", "1"});
    XPCClient client(options());
    Events events;
    client.subscribe(events.handler());
    EXPECT_TRUE(comes([&] { return events.last == 1; }));
    const QString name = QStringLiteral("stranger");
    auto bus = QDBusConnection::connectToBus(QString::fromStdString(m_bus.address()), name);
    QDBusMessage event = QDBusMessage::createSignal(
        QStringLiteral("/works/fenmoor/wendlow/gateway"),
        QStringLiteral("works.fenmoor.wendlow.Gateway"), QStringLiteral("Event"));
    event << QVariantMap{{QStringLiteral("event"), QByteArray(R"({"frontState":{"_0":"none"}})")}};
    EXPECT_TRUE(bus.send(event));
    bus.call(QDBusMessage::createMethodCall( // the bus has passed it on when it has answered
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")));
    EXPECT_EQ(answered(client).text(), "healthy");
    QTest::qWait(50);
    EXPECT_EQ(events.count, 1);
    QDBusConnection::disconnectFromBus(name);
}

} // namespace
} // namespace wendlow
