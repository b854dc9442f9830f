#include "Support/Desktop.h"

#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <sys/stat.h>

namespace wendlow::testing {
namespace {

constexpr int patience = 10000; // milliseconds; a slow machine is no fault

QString text(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

} // namespace

bool eventually(const std::function<bool()>& question) {
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < patience) {
        if (question())
            return true;
        QThread::msleep(40);
    }
    return question();
}

Desktop::Desktop() {
    const auto runtime = m_home / "runtime";
    std::filesystem::create_directory(runtime);
    ::chmod(runtime.c_str(), 0700);

    // Nothing of the real session is handed on but where programs and libraries are found.
    const auto real = QProcessEnvironment::systemEnvironment();
    for (const auto* kept : {"PATH", "LD_LIBRARY_PATH", "LANG", "ASAN_OPTIONS"}) {
        if (real.contains(QLatin1String(kept)))
            m_environment.insert(QLatin1String(kept), real.value(QLatin1String(kept)));
    }
    m_environment.insert(QStringLiteral("HOME"), text(m_home.path()));
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), text(runtime));
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), busAddress());
    m_environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    m_environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
    m_environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));

    m_screen.setProcessEnvironment(m_environment);
    m_screen.start(QStringLiteral("Xvfb"),
                   {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                    QStringLiteral("0"), QStringLiteral("1400x1000x24"),
                    QStringLiteral("-nolisten"), QStringLiteral("tcp"),
                    QStringLiteral("-noreset")});
    if (!m_screen.waitForReadyRead(patience))
        return;
    const QByteArray display = m_screen.readLine().trimmed();
    m_environment.insert(QStringLiteral("DISPLAY"),
                         QLatin1Char(':') + QString::fromLatin1(display));

    m_windowManager.setProcessEnvironment(m_environment);
    m_windowManager.start(QStringLiteral("openbox"), QStringList());
    if (!m_windowManager.waitForStarted(patience))
        return;
    // The test's bus starts no service by itself, so that none of the real session is ever reached.
    m_accessibilityLauncher.setProcessEnvironment(m_environment);
    m_accessibilityLauncher.start(QStringLiteral("/usr/libexec/at-spi-bus-launcher"),
                                  {QStringLiteral("--launch-immediately")});
    eventually([&] {
        m_accessibility = accessibilityBus(busAddress());
        return m_accessibility.has_value();
    });
}

Desktop::~Desktop() {
    for (QProcess* process : {&m_accessibilityLauncher, &m_windowManager, &m_screen}) {
        process->terminate();
        if (!process->waitForFinished(2000)) {
            process->kill();
            process->waitForFinished(2000);
        }
    }
    QDBusConnection::disconnectFromBus(QStringLiteral("e2e-accessibility"));
    QDBusConnection::disconnectFromBus(QStringLiteral("e2e-session"));
}

QString Desktop::busAddress() const {
    return QString::fromStdString(m_bus.address());
}

QString Desktop::run(const QString& program, const QStringList& arguments) const {
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.start(program, arguments);
    process.waitForFinished(patience);
    return QString::fromUtf8(process.readAllStandardOutput());
}

void Desktop::click(const QPoint& point) const {
    run(QStringLiteral("xdotool"),
        {QStringLiteral("mousemove"), QString::number(point.x()), QString::number(point.y()),
         QStringLiteral("click"), QStringLiteral("1")});
}

bool Desktop::hasWindow(const QString& title) const {
    return !run(QStringLiteral("xdotool"),
                {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                 QStringLiteral("--name"), QLatin1Char('^') + title + QLatin1Char('$')})
                .isEmpty();
}

void Desktop::press(const QStringList& keys) const {
    run(QStringLiteral("xdotool"),
        QStringList{QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("40")} + keys);
}

RunningApplication::RunningApplication(const Desktop& desktop, const QStringList& arguments)
    : m_desktop(desktop) {
    m_process.setProcessEnvironment(desktop.environment());
    m_process.start(QStringLiteral(WENDLOW_BUNDLE "/Contents/MacOS/wendlow-settings"), arguments);
    m_process.waitForStarted(patience);
}

RunningApplication::~RunningApplication() {
    if (!isRunning())
        return;
    m_process.terminate();
    if (!m_process.waitForFinished(patience)) {
        m_process.kill();
        m_process.waitForFinished(patience);
    }
}

bool RunningApplication::isRunning() const {
    return m_process.state() == QProcess::Running;
}

bool RunningApplication::waitForEnd() {
    return m_process.waitForFinished(patience);
}

QString RunningApplication::errors() {
    return QString::fromUtf8(m_process.readAllStandardError());
}

std::optional<Accessible> RunningApplication::root() const {
    for (const Accessible& application : accessibleApplications(m_desktop.accessibility())) {
        if (application.name() == QStringLiteral("wendlow-settings") ||
            application.name() == QStringLiteral("Wendlow"))
            return application;
    }
    return std::nullopt;
}

std::optional<Accessible> RunningApplication::window(const QString& title) const {
    std::optional<Accessible> found;
    eventually([&] {
        const auto application = root();
        if (!application)
            return false;
        for (const Accessible& window : application->children()) {
            if (window.name() == title && window.isShowing())
                found = window;
        }
        return found.has_value();
    });
    return found;
}

std::optional<Accessible> RunningApplication::search(const Accessible::Test& test) const {
    std::optional<Accessible> found;
    eventually([&] {
        if (const auto application = root())
            found = application->find(test);
        return found.has_value();
    });
    return found;
}

std::optional<Accessible> RunningApplication::find(const QString& role, const QString& name) const {
    return search([&](const Accessible& thing) {
        return thing.name() == name && thing.role() == role && thing.isShowing();
    });
}

std::optional<Accessible> RunningApplication::findNamed(const QString& name) const {
    return search(
        [&](const Accessible& thing) { return thing.name() == name && thing.isShowing(); });
}

QStringList RunningApplication::windowTitles() const {
    QStringList titles;
    if (const auto application = root()) {
        for (const Accessible& window : application->children()) {
            if (window.isShowing())
                titles << window.name();
        }
    }
    return titles;
}

} // namespace wendlow::testing
