#pragma once

#include "PrivateBus.h"
#include "Support/Accessible.h"
#include "TemporaryHome.h"

#include <QDBusConnection>
#include <QPoint>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace wendlow::testing {

/// A screen, a window manager, a session bus and a home folder of a test's own, all gone with the
/// object. What is started here never sees the person's.
class Desktop {
public:
    Desktop();
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    bool isReady() const { return m_accessibility.has_value(); }
    const TemporaryHome& home() const { return m_home; }
    const QProcessEnvironment& environment() const { return m_environment; }
    /// For what is started from now on.
    void setVariable(const QString& name, const QString& value) {
        m_environment.insert(name, value);
    }
    QString busAddress() const;
    PrivateBus& bus() { return m_bus; }
    const QDBusConnection& accessibility() const { return *m_accessibility; }

    /// Moves the pointer there and presses its first button, as a hand would.
    void click(const QPoint& point) const;
    /// Presses keys by their X names, such as "Tab" or "ctrl+w".
    void press(const QStringList& keys) const;
    /// Whether a window of this title is on the screen, as the window manager has it: for when
    /// there is no bus to ask.
    bool hasWindow(const QString& title) const;
    /// Runs a program in this desktop's environment; its standard output.
    QString run(const QString& program, const QStringList& arguments) const;

private:
    TemporaryHome m_home;
    PrivateBus m_bus;
    QProcessEnvironment m_environment;
    QProcess m_screen;
    QProcess m_windowManager;
    QProcess m_accessibilityLauncher;
    std::optional<QDBusConnection> m_accessibility;
};

/// The application's real process on a desktop, seen through the accessibility bus.
class RunningApplication {
public:
    RunningApplication(const Desktop& desktop, const QStringList& arguments);
    ~RunningApplication();

    bool isRunning();
    /// Its windows, or how it ended, and what it said on standard error.
    QString howItIs();
    /// Waits until it has ended by itself.
    bool waitForEnd();
    /// Ends it in the middle of whatever it does.
    void kill();
    /// The window with this title, once it is on the screen.
    std::optional<Accessible> window(const QString& title) const;
    /// Waits for something with this role and name anywhere in the application.
    std::optional<Accessible> find(const QString& role, const QString& name) const;
    /// The same for whatever has this name, words that are only shown included.
    std::optional<Accessible> findNamed(const QString& name) const;
    /// The same without waiting, of what can be seen.
    std::optional<Accessible> findNow(const QString& name) const;
    /// Titles of all windows that show.
    QStringList windowTitles() const;
    QString errors();

private:
    std::optional<Accessible> root() const;
    std::optional<Accessible> search(const Accessible::Test& test) const;

    const Desktop& m_desktop;
    QProcess m_process;
};

/// Asks until the answer is yes, for ten seconds at the most.
bool eventually(const std::function<bool()>& question);

} // namespace wendlow::testing
