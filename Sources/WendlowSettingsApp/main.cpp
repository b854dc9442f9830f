#include "Appearance.h"
#include "FirstFrame.h"
#include "GatewayPresence.h"
#include "SettingsApplication.h"
#include "SetupLog.h"
#include "Snapshots.h"
#include "SystemLooks.h"
#include "TerminationSignals.h"
#include "UnimplementedGateway.h"
#include "XPCClient.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>

#include <fmt/format.h>

#include <cstdio>
#include <string>
#include <vector>

Q_IMPORT_QML_PLUGIN(WendlowControlsPlugin)
Q_IMPORT_QML_PLUGIN(WendlowEditorPlugin)
Q_IMPORT_QML_PLUGIN(WendlowSettingsPlugin)
Q_IMPORT_QML_PLUGIN(WendlowSettingsAppPlugin)

using namespace wendlow;

namespace {

constexpr int wrongUsage = 2;

/// Pictures are drawn without a display, by the processor, so that they come out the same anywhere.
void drawOffScreen() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

int takeSnapshots(const LaunchOptions& options) {
    DistributedNotificationCenter silent{QDBusConnection(QStringLiteral("none"))};
    SettingsApplication application(
        {.followLooks =
             [](ThemeSource& looks, WindowFactory::Darkness darkness) {
                 looks.setReduceMotion(true);
                 looks.setDark(darkness == WindowFactory::Darkness::always);
             },
         .notifications = silent,
         .setupLog = [](const std::string&) {},
         .client = std::make_shared<InProcessClient>(std::make_shared<UnimplementedGateway>())});
    return Snapshots(application, *options.snapshots, options.size).take();
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const auto options = LaunchOptions::parse(arguments);
    if (!options) {
        fmt::print(stderr, "wendlow-settings: {}\n", options.error());
        return wrongUsage;
    }
    if (options->snapshots)
        drawOffScreen();
    QGuiApplication toolkit(argc, argv);
    if (options->snapshots)
        return takeSnapshots(*options);

    const TerminationSignals signals;
    DistributedNotificationCenter notifications(QDBusConnection::sessionBus());
    const Appearance appearance(QDBusConnection::sessionBus());
    SettingsApplication application(
        {.followLooks =
             [&appearance](ThemeSource& looks, WindowFactory::Darkness darkness) {
                 SystemLooks::follow(appearance, looks, darkness);
             },
         .notifications = notifications,
         .setupLog = [](const std::string& line) { SetupLog::line(line); },
         .client = std::make_shared<XPCClient>()});
    const GatewayPresence gateway(QDBusConnection::sessionBus());
    QObject::connect(&gateway, &GatewayPresence::came, &application,
                     [&application] { application.models().daemonCame(); });
    application.show(options->pane, WindowDoor::Front::leave);
    if (options->firstFrame) {
        const WindowKind kind = WindowDescriptions::kindOf(options->pane);
        const auto isComplete = WindowDescriptions::of(kind).isComplete;
        FirstFrame::reportAndQuit(*application.window(kind), [&application, isComplete] {
            return !isComplete || isComplete(application.models());
        });
    }
    return QGuiApplication::exec();
}
