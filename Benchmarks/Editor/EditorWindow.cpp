#include "EditorWindow.h"

#include "ThemeSource.h"
#include "XPCClient.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QtQml/QQmlExtensionPlugin>

#include <stdexcept>
#include <utility>

Q_IMPORT_QML_PLUGIN(WendlowControlsPlugin)
Q_IMPORT_QML_PLUGIN(WendlowEditorPlugin)
Q_IMPORT_QML_PLUGIN(WendlowSettingsPlugin)
Q_IMPORT_QML_PLUGIN(WendlowSettingsAppPlugin)

namespace wendlow::benchmarks {

namespace {

SettingsApplication::Surroundings surroundings(DistributedNotificationCenter& notifications,
                                               std::shared_ptr<WendlowClient> client) {
    return {.followLooks = [](ThemeSource& looks,
                              WindowFactory::Darkness) { looks.setReduceMotion(true); },
            .notifications = notifications,
            .setupLog = [](const std::string&) {},
            .client = std::move(client)};
}

std::shared_ptr<CountingClient> clientOf(const std::string& gatewayName) {
    return std::make_shared<CountingClient>(
        std::make_shared<XPCClient>(XPCClient::Options{.machServiceName = gatewayName}));
}

QQuickItem* below(QQuickItem& item, const QString& type) {
    if (item.isVisible() && QString::fromLatin1(item.metaObject()->className()).startsWith(type))
        return &item;
    for (QQuickItem* const child : item.childItems())
        if (QQuickItem* const found = below(*child, type))
            return found;
    return nullptr;
}

} // namespace

double milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

void drawOffScreen() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
}

void runUntil(const std::function<bool()>& done, Clock::duration limit) {
    const auto end = Clock::now() + limit;
    QTimer look; // also where nothing happens
    look.start(5);
    while (!done()) {
        if (Clock::now() > end)
            throw std::runtime_error("what was waited for did not come");
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
        // Outside of the application's own loop nothing else lets go of what is to go.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

Gateways::Gateways()
    : m_practice(WENDLOW_PRACTICE_GATEWAY, {"--name", practiceName, "--fill", "power", "--database",
                                            (m_data / "practice/practice.db").string()}),
      m_recording(WENDLOW_RECORDING_GATEWAY, {recordingName, practiceName}) {}

Gateways& Gateways::running() {
    static Gateways gateways;
    return gateways;
}

const char* Gateways::withMoments() {
    if (!m_moments)
        m_moments.emplace(WENDLOW_PRACTICE_GATEWAY,
                          std::vector<std::string>{"--name", momentsName, "--fill", "moments",
                                                   "--database",
                                                   (m_data / "moments/practice.db").string()});
    return momentsName;
}

EditorWindow::EditorWindow(const std::string& gatewayName)
    : m_client(clientOf(gatewayName)), m_silent(QDBusConnection(QStringLiteral("none"))),
      m_application(surroundings(m_silent, m_client)),
      m_window(static_cast<QQuickWindow*>(&m_application.present(WindowKind::editor))) {
    runUntil([this] { return root().page().answer().ready() && store().loaded(); });
    rest();
}

EditorLiveStore& EditorWindow::store() {
    return static_cast<EditorLiveStore&>(m_application.worlds().store());
}

void EditorWindow::type(QChar letter) {
    QKeyEvent press(QEvent::KeyPress, letter.toUpper().unicode(), Qt::NoModifier, letter);
    QCoreApplication::sendEvent(m_window, &press);
    QKeyEvent release(QEvent::KeyRelease, letter.toUpper().unicode(), Qt::NoModifier, letter);
    QCoreApplication::sendEvent(m_window, &release);
}

void EditorWindow::press(Qt::Key key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window, &release);
}

void EditorWindow::rest() {
    auto restingSince = Clock::now();
    runUntil([&] {
        if (m_client->underWay() > 0)
            restingSince = Clock::now();
        return Clock::now() - restingSince > 30ms;
    });
}

QQuickItem* EditorWindow::item(const QString& type) const {
    QQuickItem* const found = below(*m_window->contentItem(), type);
    if (!found)
        throw std::runtime_error("the window shows no " + type.toStdString());
    return found;
}

} // namespace wendlow::benchmarks
