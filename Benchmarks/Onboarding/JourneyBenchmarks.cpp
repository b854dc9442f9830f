// What the first run costs the thread that draws its window: a look at a machine whose daemon is
// gone, and the undo of many files.

#include "ClientInstance.h"
#include "DistributedNotification.h"
#include "Files.h"
#include "JourneyModel.h"
#include "JourneyRoot.h"
#include "LocalModelsUndo.h"
#include "MainMenu.h"
#include "PrivateBus.h"
#include "SessionBusAddress.h"
#include "ThemeSource.h"
#include "WindowFactory.h"
#include "XPCClient.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QTimer>
#include <QtQml/QQmlExtensionPlugin>

#include <chrono>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>

Q_IMPORT_QML_PLUGIN(WendlowControlsPlugin)
Q_IMPORT_QML_PLUGIN(WendlowOnboardingPlugin)
Q_IMPORT_QML_PLUGIN(WendlowSettingsPlugin)
Q_IMPORT_QML_PLUGIN(WendlowSettingsAppPlugin)
Q_IMPORT_QML_PLUGIN(WendlowStatsPlugin)

namespace {

using namespace wendlow;
using Clock = std::chrono::steady_clock;

/// Seconds that this thread, and no other, has worked.
double worked() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    constexpr double nano = 1e-9;
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * nano;
}

/// A home and a bus of its own, without a daemon.
struct Machine {
    testing::PrivateBus bus;
    testing::TemporaryHome home;
    DistributedNotificationCenter notifications{
        QDBusConnection::connectToBus(sessionBusAddress(), uniqueConnectionName())};
    std::string support;

    Machine() {
        ::setenv("HOME", home.path().c_str(), 1);
        support = ClientInstance::supportRoot(ClientInstance::defaultSupport());
    }
    /// The download's file, with as many samples as its writer keeps.
    void download() const {
        const double now = static_cast<double>(std::time(nullptr));
        constexpr int kept = 120;
        LocalModelsProgress progress{.pid = ::getpid(), .writtenAt = now, .running = true};
        for (const char* id : {"runtime", "model", "asr"})
            progress.rows.push_back({.id = id,
                                     .label = id,
                                     .state = "active",
                                     .download = true,
                                     .bytes = 1'000'000,
                                     .totalBytes = 1'000'000'000});
        for (int at = 0; at < kept; ++at)
            progress.samples.push_back({now - kept + at, 25'000 * at});
        if (!progress.write(std::filesystem::path(support) / LocalModelsProgress::fileName))
            throw std::runtime_error("the download's file could not be written");
    }
};

/// The journey in its window, on the screen of the local models.
class Journey {
public:
    Journey(Machine& machine, std::chrono::milliseconds poll) {
        JourneyContacts contacts = JourneyContacts::real(
            {.client = std::make_shared<XPCClient>(XPCClient::Options{}),
             .notifications = machine.notifications,
             .connect = [this]() -> ConnectedAppsModel& { return m_apps; },
             .forcedScreen = JourneyScreen::localModels,
             .terminate = [] {},
             .log = [this](const std::string& line) { m_looks += line.starts_with("poll:"); }});
        JourneyModel::Limits limits;
        limits.poll = poll;
        m_root = std::make_unique<JourneyRoot>(
            std::make_unique<JourneyModel>(std::move(contacts), limits));
        m_window = m_factory.make(WindowKind::onboarding);
        m_window->resize(800, 620);
        m_window->show();
        look();
    }
    /// Runs until the machine has been looked at once more.
    void look() const {
        for (const int before = m_looks; m_looks == before;)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

private:
    ConnectedAppsModel m_apps{{}, std::nullopt, {}};
    int m_looks = 0;
    std::unique_ptr<JourneyRoot> m_root;
    MainMenu m_menu;
    WindowFactory m_factory{
        m_menu,
        [this](WindowKind) {
            return WindowFactory::Content{
                QStringLiteral("WendlowOnboarding/JourneyFace.qml"),
                {{QStringLiteral("root"), QVariant::fromValue(m_root.get())}}};
        },
        [](ThemeSource& looks, WindowFactory::Darkness) { looks.setReduceMotion(true); }};
    std::unique_ptr<QWindow> m_window;
};

/// Its time is this thread's own: what is waited for costs nobody anything.
void lookWithoutADaemon(benchmark::State& state) {
    Machine machine;
    machine.download();
    const Journey journey(machine, std::chrono::milliseconds(20));
    double longest = 0;
    for (auto _ : state) {
        const double before = worked();
        journey.look();
        const double taken = worked() - before;
        longest = std::max(longest, taken);
        state.SetIterationTime(taken);
    }
    state.counters["longest, ms"] = longest * 1000;
}
BENCHMARK(lookWithoutADaemon)->UseManualTime()->Iterations(200)->Unit(benchmark::kMillisecond);

/// The longest time between two turns of the loop that draws, which turns every two milliseconds.
void undo(benchmark::State& state) {
    Machine machine;
    const std::filesystem::path folder = std::filesystem::path(machine.support) / "models";
    double longest = 0;
    for (auto _ : state) {
        state.PauseTiming();
        for (std::int64_t file = 0; file < state.range(0); ++file)
            testing::put(folder / std::to_string(file), "");
        state.ResumeTiming();
        auto last = Clock::now();
        QTimer turns;
        QObject::connect(&turns, &QTimer::timeout, [&] {
            const std::chrono::duration<double, std::milli> gap =
                Clock::now() - std::exchange(last, Clock::now());
            longest = std::max(longest, gap.count());
        });
        turns.start(std::chrono::milliseconds(2));
        QCoro::waitFor(LocalModelsUndo::perform({LocalModelsUndo::RemoveDirectory{folder.string()}},
                                                LocalModelsUndo::Surroundings::current()));
    }
    state.counters["longest gap, ms"] = longest;
}
BENCHMARK(undo)->Arg(1)->Arg(10'000)->Iterations(5)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    benchmark::Initialize(&argc, argv);
    const QGuiApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
