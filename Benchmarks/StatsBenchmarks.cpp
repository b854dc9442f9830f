// The Stats window's day from its first question to its last card, beside bare, blocking calls with
// the same bytes to the same gateway, which do its eight questions one after the other too.

#include "GatewayProcess.h"
#include "PrivateBus.h"
#include "StatsRoot.h"
#include "TemporaryHome.h"
#include "WireCodec.h"
#include "WireContract.h"
#include "XPC/BusMessage.h"
#include "XPCClient.h"
#include "XPCEndpoint.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QEventLoop>

#include <algorithm>
#include <chrono>

namespace wendlow::benchmarks {

namespace {

using Clock = std::chrono::steady_clock;

double milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/// Hands everything on, and keeps what was asked.
class KeepingClient final : public WendlowClient {
public:
    QCoro::Task<GatewayResponse> send(GatewayRequest request) override {
        asked.push_back(QByteArray::fromStdString(*WireCodec::encode(request)));
        co_return co_await m_client.send(std::move(request));
    }

    std::vector<QByteArray> asked;

private:
    XPCClient m_client;
};

/// Gives 0 where an answer did not come.
double bareExchanges(const std::vector<QByteArray>& requests) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    const auto start = Clock::now();
    for (const QByteArray& request : requests) {
        QDBusMessage call = QDBusMessage::createMethodCall(
            QString::fromLatin1(XPCEndpoint::machServiceName), BusMessage::path,
            BusMessage::interface, QStringLiteral("Exchange"));
        call << QVariantMap{
            {QString::fromLatin1(XPCEndpoint::payloadKey), request},
            {QString::fromLatin1(XPCEndpoint::wireKey), qulonglong{WireContract::version}}};
        if (bus.call(call).type() != QDBusMessage::ReplyMessage)
            return 0;
    }
    return milliseconds(Clock::now() - start);
}

void lastCard(benchmark::State& state, const char* fill) {
    const testing::TemporaryHome home;
    const testing::GatewayProcess gateway(
        WENDLOW_PRACTICE_GATEWAY,
        {"--fill", fill, "--database", (home.path() / "practice" / "practice.db").string()});
    const auto client = std::make_shared<KeepingClient>();
    StatsRoot root(client);
    const auto load = [&](void (StatsRoot::*begin)()) {
        client->asked.clear();
        QEventLoop loop;
        QObject::connect(&root, &StatsRoot::loadingChanged, &loop, [&] {
            if (!root.isLoading())
                loop.quit();
        });
        const auto start = Clock::now();
        (root.*begin)();
        loop.exec();
        return milliseconds(Clock::now() - start);
    };
    load(&StatsRoot::appear);
    std::vector<double> loads, bare;
    for (auto _ : state) {
        loads.push_back(load(&StatsRoot::goToToday));
        bare.push_back(bareExchanges(client->asked));
        if (client->asked.size() != 8 || !root.model().isFilled() || bare.back() == 0) {
            state.SkipWithError("a question was not answered");
            return;
        }
    }
    state.counters["last_card_ms"] = median(loads);
    state.counters["bare_ms"] = median(bare);
    state.counters["ratio"] = median(loads) / median(bare);
}
BENCHMARK_CAPTURE(lastCard, day, "day")->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lastCard, power, "power")->Iterations(200)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace wendlow::benchmarks

int main(int argc, char** argv) {
    const wendlow::testing::PrivateBus bus;
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
