#include "GatewayProcess.h"
#include "PrivateBus.h"
#include "RunProgram.h"
#include "Support/Desktop.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>

#include <gtest/gtest.h>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

/// How many connections to the bus a process has.
qsizetype connections(const QDBusConnection& bus, qint64 process) {
    const QStringList names = bus.interface()->registeredServiceNames();
    return std::ranges::count_if(names, [&](const QString& name) {
        return name.startsWith(u':') && bus.interface()->servicePid(name) == process;
    });
}

/// The application without a screen: windows are made, and nobody sees them.
TEST(Gateway, IsDialledAtTheStartWhetherOrNotItIsThere) {
    const TemporaryHome home;
    PrivateBus bus;
    const QString name = u"e2e-gateway"_s;
    const auto observer =
        QDBusConnection::connectToBus(QString::fromStdString(bus.address()), name);
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, QString::fromStdString(home.path().string()));
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    QProcess application;
    application.setProcessEnvironment(environment);
    application.start(QStringLiteral(WENDLOW_BUNDLE "/Contents/MacOS/wendlow-settings"),
                      {u"--window=stats"_s});
    ASSERT_TRUE(application.waitForStarted());
    // One for notifications and looks, and the client's own.
    EXPECT_TRUE(eventually([&] { return connections(observer, application.processId()) == 2; }));
    EXPECT_EQ(application.state(), QProcess::Running);
    application.terminate();
    EXPECT_TRUE(application.waitForFinished());
    EXPECT_EQ(application.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(application.exitCode(), 0);
    QDBusConnection::disconnectFromBus(name);
}

/// The gateway as a maintainer is told of it.
TEST(Gateway, IsAskedByTheDoctor) {
    const TemporaryHome home;
    const PrivateBus bus;
    GatewayProcess gateway(WENDLOW_PRACTICE_GATEWAY, {"--fill", "day", "--withhold", "microphone"},
                           home.path());
    const auto doctor = [&home] {
        return runProgram(WENDLOW_BUNDLE "/Contents/MacOS/wendlow-connect",
                          {"--home", home.path(), "doctor"})
            .out;
    };
    const std::string told = doctor();
    for (const char* line : {"  is answering: yes\n", "  build: practice gateway ",
                             "    accessibility: granted\ntools:\n"})
        EXPECT_TRUE(told.contains(line)) << line << "is not in:\n" << told;
    gateway.wedge();
    EXPECT_TRUE(
        doctor().contains("  is answering: no\n  health: the gateway did not answer in time\n"));
    gateway.kill();
    EXPECT_TRUE(doctor().contains("  is answering: no\n  health: no gateway is running\n"));
}

} // namespace
} // namespace wendlow::testing
