#pragma once

#include "CountingClient.h"
#include "GatewayProcess.h"
#include "PrivateBus.h"
#include "SettingsApplication.h"

#include <QQuickItem>
#include <QQuickWindow>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace wendlow::benchmarks {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

double milliseconds(Clock::duration duration);

/// To be called before the toolkit's application object is made: without a display, drawn by the
/// processor. In place of a screen, a frame begins five milliseconds after one is wanted.
void drawOffScreen();

/// Works the event loop until this holds; throws when it takes longer than the limit.
void runUntil(const std::function<bool()>& done, Clock::duration limit = 60s);

/// A private bus with a filled practice gateway, and with one that answers from memory what it was
/// asked before.
class Gateways {
public:
    static constexpr const char* practiceName = "works.fenmoor.wendlow.gateway";
    static constexpr const char* recordingName = "works.fenmoor.wendlow.recording";
    /// Started when it is first asked for: one with 50,000 moments.
    static constexpr const char* momentsName = "works.fenmoor.wendlow.moments";

    Gateways();
    static Gateways& running();
    const std::string& address() const { return m_bus.address(); }
    const char* withMoments();

private:
    testing::PrivateBus m_bus;
    testing::TemporaryHome m_data;
    testing::GatewayProcess m_practice;
    testing::GatewayProcess m_recording;
    std::optional<testing::GatewayProcess> m_moments;
};

/// The Editor's window as the application makes it. It is there, with its first page, and at rest.
class EditorWindow {
public:
    explicit EditorWindow(const std::string& gatewayName);

    EditorRoot& root() { return *m_application.editor().root(); }
    EditorLiveStore& store();
    QQuickWindow& window() { return *m_window; }
    CountingClient& client() { return *m_client; }

    void type(QChar letter);
    void press(Qt::Key key);
    /// Works the event loop until nothing is under way and the screen has had time to follow.
    void rest();
    /// The first visible item of this QML type.
    QQuickItem* item(const QString& type) const;

private:
    std::shared_ptr<CountingClient> m_client;
    DistributedNotificationCenter m_silent;
    SettingsApplication m_application;
    QQuickWindow* m_window = nullptr;
};

} // namespace wendlow::benchmarks
