#include "PrivateBus.h"
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

} // namespace
} // namespace wendlow::testing
