#include "Support/Desktop.h"

#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

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
    m_environment.insert(u"HOME"_s, text(m_home.path()));
    m_environment.insert(u"XDG_RUNTIME_DIR"_s, text(runtime));
    m_environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, busAddress());
    m_environment.insert(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s);
    m_environment.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
    m_environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);

    m_screen.setProcessEnvironment(m_environment);
    m_screen.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1400x1000x24"_s,
                               u"-nolisten"_s, u"tcp"_s, u"-noreset"_s});
    if (!m_screen.waitForReadyRead(patience))
        return;
    const QByteArray display = m_screen.readLine().trimmed();
    m_environment.insert(u"DISPLAY"_s, u':' + QString::fromLatin1(display));

    m_windowManager.setProcessEnvironment(m_environment);
    // A window that comes before its manager manages is never shown, or never given the keys; and
    // the manager says which desktop is shown before it manages. This it does when it has begun.
    const auto managed = m_home.path() / "window-manager-manages";
    m_windowManager.start(u"openbox"_s, {u"--startup"_s, u"touch "_s + text(managed)});
    if (!eventually([&] { return std::filesystem::remove(managed); }))
        return;
    // The test's bus starts no service by itself, so that none of the real session is ever reached.
    m_accessibilityLauncher.setProcessEnvironment(m_environment);
    m_accessibilityLauncher.start(u"/usr/libexec/at-spi-bus-launcher"_s,
                                  {u"--launch-immediately"_s});
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
    QDBusConnection::disconnectFromBus(u"e2e-accessibility"_s);
    QDBusConnection::disconnectFromBus(u"e2e-session"_s);
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
    run(u"xdotool"_s, {u"mousemove"_s, QString::number(point.x()), QString::number(point.y()),
                       u"click"_s, u"1"_s});
}

bool Desktop::hasWindow(const QString& title) const {
    return !run(u"xdotool"_s, {u"search"_s, u"--onlyvisible"_s, u"--name"_s, u'^' + title + u'$'})
                .isEmpty();
}

void Desktop::press(const QStringList& keys) const {
    run(u"xdotool"_s, QStringList{u"key"_s, u"--delay"_s, u"40"_s} + keys);
}

RunningApplication::RunningApplication(const Desktop& desktop, const QStringList& arguments)
    : m_desktop(desktop) {
    m_process.setProcessEnvironment(desktop.environment());
    m_process.start(QStringLiteral(WENDLOW_BUNDLE "/Contents/MacOS/wendlow-settings"), arguments);
    m_process.waitForStarted(patience);
}

RunningApplication::~RunningApplication() {
    if (isRunning()) {
        m_process.terminate();
        if (!m_process.waitForFinished(patience)) {
            m_process.kill();
            m_process.waitForFinished(patience);
        }
    }
    const QString said = errors();
    EXPECT_FALSE(said.contains("qrc:/"_L1)) << "of its interface: " << said.toStdString();
}

bool RunningApplication::isRunning() {
    // Without an event loop a process is only seen to end where it is looked for.
    return m_process.state() == QProcess::Running && !m_process.waitForFinished(0);
}

QString RunningApplication::howItIs() {
    if (isRunning())
        return u"shows "_s + windowTitles().join(u", "_s) + u'\n' + errors();
    return u"ended, %1 %2\n"_s
               .arg(m_process.exitStatus() == QProcess::CrashExit ? u"by signal"_s : u"with"_s)
               .arg(m_process.exitCode()) +
           errors();
}

bool RunningApplication::waitForEnd() {
    return m_process.waitForFinished(patience);
}

void RunningApplication::kill() {
    m_process.kill();
    m_process.waitForFinished(patience);
}

QString RunningApplication::errors() {
    return QString::fromUtf8(m_process.readAllStandardError());
}

std::optional<Accessible> RunningApplication::root() const {
    for (const Accessible& application : accessibleApplications(m_desktop.accessibility())) {
        if (application.name() == u"wendlow-settings"_s || application.name() == u"Wendlow"_s)
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

std::optional<Accessible> RunningApplication::findNow(const QString& name) const {
    const auto application = root();
    return application ? application->find([&](const Accessible& thing) {
        return thing.name() == name && thing.isShowing();
    })
                       : std::nullopt;
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
