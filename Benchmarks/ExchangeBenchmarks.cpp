// An exchange of the client beside a bare call over D-Bus: the same bytes, to the same process,
// over the same private bus. Then what a wedged gateway does to the event loop that asks it.

#include "GatewayProcess.h"
#include "PrivateBus.h"
#include "XPCClient.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <ctime>
#include <fstream>
#include <unistd.h>

namespace wendlow::benchmarks {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

GatewayRequest health() {
    return ReadRequest(ReadCase::Health{});
}

double milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

double residentBytes() {
    std::size_t total = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return static_cast<double>(resident) * static_cast<double>(::sysconf(_SC_PAGESIZE));
}

/// Calls the gateway's bare method, which gives back what it is given.
class Echo {
public:
    Echo() {
        m_call << QVariantMap{
            {QStringLiteral("payload"), QByteArray(R"({"read":{"_0":{"health":{}}}})")},
            {QStringLiteral("wire"), qulonglong{1}}};
    }
    /// On this thread, with nothing in between: the least that a round trip costs.
    bool one() { return m_bus.call(m_call).type() == QDBusMessage::ReplyMessage; }
    bool many(std::int64_t count) {
        QEventLoop loop;
        std::int64_t waiting = count;
        bool well = true;
        for (std::int64_t index = 0; index < count; ++index) {
            auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(m_call));
            QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &loop, [&, watcher] {
                well = well && !watcher->isError();
                watcher->deleteLater();
                if (--waiting == 0)
                    loop.quit();
            });
        }
        loop.exec();
        return well;
    }

private:
    QDBusConnection m_bus = QDBusConnection::sessionBus();
    QDBusMessage m_call = QDBusMessage::createMethodCall(
        QStringLiteral("works.fenmoor.wendlow.gateway"),
        QStringLiteral("/works/fenmoor/wendlow/test"), QStringLiteral("works.fenmoor.wendlow.Test"),
        QStringLiteral("Echo"));
};

class Exchange {
public:
    bool one() { return isWell(QCoro::waitFor(m_client.send(health()))); }
    bool many(std::int64_t count) { return QCoro::waitFor(all(count)); }

private:
    static bool isWell(const GatewayResponse& response) {
        return std::holds_alternative<AnswerCase::Text>(response);
    }
    QCoro::Task<bool> all(std::int64_t count) {
        std::vector<QCoro::Task<GatewayResponse>> tasks;
        for (std::int64_t index = 0; index < count; ++index)
            tasks.push_back(m_client.send(health()));
        bool well = true;
        for (auto& task : tasks) {
            const GatewayResponse response = co_await task;
            well = well && isWell(response);
        }
        co_return well;
    }

    XPCClient m_client;
};

/// `median_us` is that of the single round trips; for many in flight, of the whole of them.
template<class Caller> void roundTrip(benchmark::State& state) {
    Caller caller;
    const std::int64_t inFlight = state.range(0);
    std::vector<double> times;
    for (int warm = 0; warm < 100; ++warm)
        caller.one();
    for (auto _ : state) {
        const auto start = Clock::now();
        const bool well = inFlight == 1 ? caller.one() : caller.many(inFlight);
        const auto took = Clock::now() - start;
        if (!well) {
            state.SkipWithError("a call failed");
            return;
        }
        state.SetIterationTime(std::chrono::duration<double>(took).count());
        times.push_back(milliseconds(took) * 1000);
    }
    std::ranges::sort(times);
    state.counters["median_us"] = times[times.size() / 2];
}

void exchangesInFlight(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("inFlight")->Arg(1)->Arg(200)->UseManualTime();
    benchmark->Unit(benchmark::kMicrosecond)->MinTime(2);
}

BENCHMARK(roundTrip<Echo>)->Apply(exchangesInFlight);
BENCHMARK(roundTrip<Exchange>)->Apply(exchangesInFlight);

/// How much more memory the process holds after so many exchanges than after the first tenth of
/// them, and than after the first half.
void memory(benchmark::State& state) {
    const std::int64_t batches = state.range(0) / 100;
    for (auto _ : state) {
        Exchange exchange;
        double early = 0, half = 0;
        for (std::int64_t batch = 0; batch < batches; ++batch) {
            if (batch == batches / 10)
                early = residentBytes();
            if (batch == batches / 2)
                half = residentBytes();
            if (!exchange.many(100)) {
                state.SkipWithError("an exchange failed");
                return;
            }
        }
        state.counters["since_tenth_bytes"] = residentBytes() - early;
        state.counters["since_half_bytes"] = residentBytes() - half;
    }
}
BENCHMARK(memory)->Arg(100'000)->Iterations(1)->Unit(benchmark::kSecond);

/// The longest time between two turns of this thread's event loop, in two seconds; and the longest
/// that the thread worked in one, which a busy machine does not lengthen.
struct Gaps {
    double wall = 0;
    double work = 0;

    void report(benchmark::State& state) const {
        state.counters["longest_gap_ms"] = wall;
        state.counters["longest_work_ms"] = work;
    }
};

double threadMilliseconds() {
    timespec now{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

Gaps longestGaps() {
    QEventLoop loop;
    QTimer turns;
    Gaps longest;
    auto last = Clock::now();
    double lastWork = threadMilliseconds();
    QObject::connect(&turns, &QTimer::timeout, [&] {
        const auto now = Clock::now();
        const double work = threadMilliseconds();
        longest.wall = std::max(longest.wall, milliseconds(now - last));
        longest.work = std::max(longest.work, work - lastWork);
        last = now;
        lastWork = work;
    });
    turns.start(0);
    QTimer::singleShot(2s, &loop, &QEventLoop::quit);
    loop.exec();
    return longest;
}

void idleLoop(benchmark::State& state) {
    for (auto _ : state)
        longestGaps().report(state);
}
BENCHMARK(idleLoop)->Iterations(1)->Unit(benchmark::kSecond);

std::unique_ptr<testing::GatewayProcess>& gateway() {
    static std::unique_ptr<testing::GatewayProcess> process;
    return process;
}

/// The same while a gateway that has stopped in its tracks is asked, two hundred times at once and
/// then every ten milliseconds, and is killed in the middle, so that all is redialled and retried.
void loopOfAWedgedGateway(benchmark::State& state) {
    for (auto _ : state) {
        XPCClient client;
        int resumed = 0, asked = 0;
        const auto ask = [&] {
            ++asked;
            client.send(health()).then([&](const GatewayResponse&) { ++resumed; });
        };
        QTimer more;
        QObject::connect(&more, &QTimer::timeout, ask);
        more.start(10);
        QTimer::singleShot(100, [&] { // the turns are being counted by then
            gateway()->wedge();
            for (int index = 0; index < 200; ++index)
                ask();
        });
        QTimer::singleShot(1s, [&] { gateway()->kill(); });
        longestGaps().report(state);
        more.stop();
        while (resumed < asked)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        state.counters["asked"] = asked;
    }
}
BENCHMARK(loopOfAWedgedGateway)->Iterations(1)->Unit(benchmark::kSecond);

} // namespace

int run(int argc, char** argv) {
    const testing::PrivateBus bus;
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    gateway() = std::make_unique<testing::GatewayProcess>(WENDLOW_TEST_GATEWAY);
    benchmark::RunSpecifiedBenchmarks();
    gateway() = nullptr;
    return 0;
}

} // namespace wendlow::benchmarks

int main(int argc, char** argv) {
    return wendlow::benchmarks::run(argc, argv);
}
