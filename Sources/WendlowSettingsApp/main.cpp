#include "Appearance.h"
#include "ApplicationSeat.h"
#include "BusPulse.h"
#include "CatalogueTranslator.h"
#include "ClientInstance.h"
#include "ExportedScreens.h"
#include "FileChooser.h"
#include "FirstFrame.h"
#include "GatewayPresence.h"
#include "InstalledBundle.h"
#include "Pane.h"
#include "SessionBus.h"
#include "SessionBusAddress.h"
#include "SettingsApplication.h"
#include "SetupLog.h"
#include "Snapshots.h"
#include "SystemLooks.h"
#include "TerminationSignals.h"
#include "Translation.h"
#include "UnimplementedGateway.h"
#include "XPCClient.h"

#include <QAccessible>
#include <QDBusConnection>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>

#include <fmt/format.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

Q_IMPORT_QML_PLUGIN(WendlowControlsPlugin)
Q_IMPORT_QML_PLUGIN(WendlowEditorBenchesPlugin)
Q_IMPORT_QML_PLUGIN(WendlowEditorPlugin)
Q_IMPORT_QML_PLUGIN(WendlowOnboardingPlugin)
Q_IMPORT_QML_PLUGIN(WendlowSettingsPlugin)
Q_IMPORT_QML_PLUGIN(WendlowSettingsAppPlugin)
Q_IMPORT_QML_PLUGIN(WendlowStatsPlugin)

using namespace wendlow;

namespace {

constexpr int unheard = 1;
constexpr int wrongUsage = 2;

/// Pictures are drawn without a display, by the processor, so that they come out the same anywhere.
void drawOffScreen() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

int takeSnapshots(const LaunchOptions& options) {
    DistributedNotificationCenter silent;
    SettingsApplication application(
        {.followLooks =
             [&options](ThemeSource& looks, WindowFactory::Darkness darkness) {
                 looks.setReduceMotion(true);
                 looks.setTextScale(options.textScale.value_or(1));
                 looks.setDark(darkness == WindowFactory::Darkness::always);
             },
         .notifications = silent,
         .setupLog = [](const std::string&) {},
         .client = std::make_shared<InProcessClient>(std::make_shared<UnimplementedGateway>()),
         .chooseFile = [](FileChooser::Question) -> QCoro::Task<FileChooser::Answer> {
             co_return QString();
         }});
    return Snapshots(application, options).take();
}

/// The toolkit asks the session bus for a screen reader as its application object is made, and
/// waits for the answer. From a bus that is there and says nothing, that object is kept away: it
/// then knows no screen reader, but there are windows.
class AwayFromSilentBus {
public:
    explicit AwayFromSilentBus(BusPulse pulse)
        : m_silent(pulse == BusPulse::silent), m_address(qgetenv(variable)),
          m_wasSet(qEnvironmentVariableIsSet(variable)) {
        if (m_silent)
            qputenv(variable, "disabled:");
    }
    ~AwayFromSilentBus() {
        if (m_silent && m_wasSet)
            qputenv(variable, m_address);
        else if (m_silent)
            qunsetenv(variable);
    }
    AwayFromSilentBus(const AwayFromSilentBus&) = delete;
    AwayFromSilentBus& operator=(const AwayFromSilentBus&) = delete;

private:
    static constexpr const char* variable = "DBUS_SESSION_BUS_ADDRESS";

    const bool m_silent;
    const QByteArray m_address;
    const bool m_wasSet;
};

std::unique_ptr<QGuiApplication> makeToolkit(int& argc, char** argv, BusPulse pulse) {
    const AwayFromSilentBus away(pulse);
    // The desktop finds name and icon of a window by these, whatever name this was started by.
    QGuiApplication::setDesktopFileName(QString::fromUtf8(ClientInstance::bundlePrefix));
    qputenv("RESOURCE_NAME", "wendlow");
    auto toolkit = std::make_unique<QGuiApplication>(argc, argv);
    std::ignore = QAccessible::isActive(); // asks now
    return toolkit;
}

/// Shows the window that is asked for, and runs until the last one is closed.
int show(SettingsApplication& application, const LaunchOptions& options) {
    if (options.settingsPane)
        application.models().openSettingsOn(*options.settingsPane);
    const auto repairBehind = [&application](WindowDoor::Pane pane) {
        FirstFrame::then(*application.window(WindowDescriptions::kindOf(pane)),
                         [&application] { application.started(); });
    };
    const WindowDoor::Pane pane = options.pane.value_or(WindowDoor::Pane::settings);
    if (options.firstFrame) {
        application.show(pane, WindowDoor::Front::leave);
        const WindowKind kind = WindowDescriptions::kindOf(pane);
        const auto isComplete = WindowDescriptions::of(kind).isComplete;
        FirstFrame::reportAndQuit(*application.window(kind), [&application, isComplete] {
            return !isComplete || isComplete(application.models());
        });
    } else if (options.pane) {
        application.show(pane, WindowDoor::Front::leave);
        repairBehind(pane);
    } else {
        application.showFirst(repairBehind);
    }
    return QGuiApplication::exec();
}

/// What this process has of the session bus before it has a toolkit.
struct Doorway {
    DistributedNotificationCenter notifications;
    ApplicationSeat seat;
    QDBusConnection bus{QString()};
};

/// Takes the application's place, or has whoever is there show what this start asks for. The exit
/// status of a start that is over by that; nothing: this one runs.
std::optional<int> handOver(Doorway& doorway, const LaunchOptions& options) {
    doorway.bus = QDBusConnection::connectToBus(sessionBusAddress(), uniqueConnectionName());
    if (!doorway.bus.isConnected())
        return std::nullopt;
    // Before the place is taken: what is posted to whoever has it must not be lost.
    doorway.notifications.listenOn(doorway.bus);
    ApplicationSeat::Wish wish{.pane = options.pane, .settingsPane = std::nullopt};
    if (options.settingsPane)
        wish.settingsPane = Panes::of(*options.settingsPane).id;
    while (doorway.seat.take(doorway.bus) == ApplicationSeat::Taken::others) {
        switch (ApplicationSeat::ask(doorway.bus, wish)) {
        case ApplicationSeat::Heard::yes:
            return 0;
        case ApplicationSeat::Heard::silent:
            fmt::print(stderr, "wendlow-settings: {}\n", ApplicationSeat::unheardSentence());
            return unheard;
        case ApplicationSeat::Heard::nobody:
            break;
        }
    }
    return std::nullopt;
}

int runApplication(const LaunchOptions& options, Doorway& doorway) {
    const TerminationSignals signals;
    DistributedNotificationCenter& notifications = doorway.notifications;
    Appearance appearance;
    GatewayPresence gateway;
    SessionBus bus;
    auto portalBus = std::make_shared<QDBusConnection>(QString());
    QObject::connect(&bus, &SessionBus::connected, &notifications,
                     &DistributedNotificationCenter::listenOn);
    QObject::connect(&bus, &SessionBus::connected, &appearance, &Appearance::listenOn);
    QObject::connect(&bus, &SessionBus::connected, &gateway, &GatewayPresence::listenOn);
    QObject::connect(&bus, &SessionBus::connected, &gateway,
                     [portalBus](const QDBusConnection& dialled) { *portalBus = dialled; });
    QObject::connect(&bus, &SessionBus::connected, &doorway.seat, &ApplicationSeat::takeLater);
    if (doorway.bus.isConnected())
        bus.adopt(doorway.bus);
    else
        bus.dial();
    SettingsApplication application(
        {.followLooks =
             [&appearance, &options](ThemeSource& looks, WindowFactory::Darkness darkness) {
                 SystemLooks::follow(appearance, looks, darkness, options.textScale);
             },
         .notifications = notifications,
         .setupLog = [](const std::string& line) { SetupLog::line(line); },
         .client = std::make_shared<XPCClient>(),
         .chooseFile =
             [portalBus](FileChooser::Question question) {
                 return FileChooser::choose(*portalBus, std::move(question));
             }});
    QObject::connect(&gateway, &GatewayPresence::came, &application,
                     [&application] { application.models().daemonCame(); });
    doorway.seat.tell([&application] { application.startedAgain(); });
    // Pictures that were written for other programs are there for as long as this runs.
    QObject::connect(qGuiApp, &QCoreApplication::aboutToQuit, &application, [] {
        if (const auto screens = ExportedScreens::live())
            screens->clear();
    });
    const int status = show(application, options);
    doorway.seat.tell(nullptr);
    return TerminationSignals::leave(status);
}

} // namespace

int main(int argc, char** argv) {
    if (const auto bundle = InstalledBundle::current())
        Translation::begin(*bundle / "Contents" / "Resources");
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const auto options = LaunchOptions::parse(arguments);
    if (!options) {
        fmt::print(stderr, "wendlow-settings: {}\n", options.error());
        return wrongUsage;
    }
    if (options->snapshots)
        drawOffScreen();
    const BusPulse pulse = sessionBusPulse(std::chrono::seconds(1));
    Doorway doorway;
    // What draws pictures or measures its first frame is no application that a person has open.
    if (pulse == BusPulse::answers && !options->snapshots && !options->firstFrame)
        if (const auto status = handOver(doorway, *options))
            return *status;
    const auto toolkit = makeToolkit(argc, argv, pulse);
    CatalogueTranslator translator;
    if (Translation::isLoaded())
        QCoreApplication::installTranslator(&translator);
    return options->snapshots ? takeSnapshots(*options) : runApplication(*options, doorway);
}
