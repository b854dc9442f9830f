#include "SettingsApplication.h"

#include "ClientInstance.h"
#include "ClientVersion.h"
#include "DiagnosticRelay.h"
#include "HomeFolder.h"
#include "InstalledBundle.h"
#include "ToolTiles.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <utility>

namespace wendlow {

namespace {

/// The window that a person would call the one in front: a panel stands for the window it belongs
/// to.
QWindow* mainWindow() {
    QWindow* window = QGuiApplication::focusWindow();
    while (window && window->transientParent())
        window = window->transientParent();
    return window;
}

std::unique_ptr<SettingsRoot> makeSettings() {
    return std::make_unique<SettingsRoot>(ConnectedAppsModel::forThisMac(
        homeFolder(), InstalledBundle::current(), "/Applications",
        {.copy = &ConnectedAppsModel::copyToPasteboard,
         .imageLoads =
             [](const std::string& asset) { return ToolTiles::has(QString::fromStdString(asset)); },
         .home = {}}));
}

QKeySequence control(Qt::Key key) {
    return {Qt::CTRL | key};
}

MenuLine windowLine(const char* id, const char* title, Qt::Key key, void (*act)(QWindow&)) {
    return {.id = QString::fromLatin1(id),
            .title = QString::fromLatin1(title),
            .keys = control(key),
            .act = [act] { act(*QGuiApplication::focusWindow()); },
            .enabled = [] { return QGuiApplication::focusWindow() != nullptr; }};
}

} // namespace

SettingsApplication::SettingsApplication(Surroundings surroundings)
    : m_surroundings(std::move(surroundings)),
      m_worldActions([this]() -> EditorWorlds& { return worlds(); },
                     [this](WindowKind kind) { present(kind); }),
      m_factory(
          m_mainMenu, [this](WindowKind kind) { return contentOf(kind); },
          m_surroundings.followLooks),
      m_windows([this](WindowKind kind) { return m_factory.make(kind); }),
      m_journey(
          m_windows, [this](QWindow& window) { m_factory.renew(window, WindowKind::onboarding); },
          [this](const DistributedNotification& notification,
                 DistributedNotificationCenter::Delivery delivery) {
              m_surroundings.notifications.post(notification, delivery);
          }),
      m_delegate(
          m_surroundings.notifications,
          {.show = [this](WindowDoor::Pane pane, WindowDoor::Front front) { show(pane, front); },
           .log = m_surroundings.setupLog,
           .mainWindowChanged = [this] { syncMainWindow(); }}) {
    buildMainMenu();
    connect(qGuiApp, &QCoreApplication::aboutToQuit, &m_delegate,
            &SettingsDelegate::applicationWillTerminate);
    syncMainWindow();
}

SettingsApplication::~SettingsApplication() {
    m_delegate.applicationWillTerminate();
}

void SettingsApplication::buildMainMenu() {
    const QString product = QString::fromUtf8(ClientInstance::productName);
    m_mainMenu.insert(0, {.id = QStringLiteral("application"),
                          .title = product,
                          .lines = {{.id = QStringLiteral("about"),
                                     .title = QStringLiteral("About ") + product,
                                     .keys = {},
                                     .act = [this] { showAbout(); }},
                                    {},
                                    {.id = QStringLiteral("terminate"),
                                     .title = QStringLiteral("Quit"),
                                     .keys = control(Qt::Key_Q),
                                     .act = &QCoreApplication::quit}}});
    m_mainMenu.insert(1, {.id = QStringLiteral("edit"),
                          .title = QStringLiteral("Edit"),
                          .lines = m_editActions.lines()});
    m_mainMenu.insert(2, {.id = QStringLiteral("window"),
                          .title = QStringLiteral("Window"),
                          .lines = {windowLine("performClose", "Close", Qt::Key_W,
                                               [](QWindow& window) { window.close(); }),
                                    windowLine("performMiniaturize", "Minimize", Qt::Key_M,
                                               [](QWindow& window) { window.showMinimized(); })}});
}

void SettingsApplication::show(WindowDoor::Pane pane, WindowDoor::Front front) {
    if (pane == WindowDoor::Pane::onboarding)
        m_journey.present(front);
    else
        present(WindowDescriptions::kindOf(pane));
}

QWindow& SettingsApplication::present(WindowKind kind) {
    const bool isNew = m_windows.window(kind) == nullptr;
    QWindow& window = m_windows.present(kind);
    if (isNew && kind == WindowKind::settings) {
        // Back from another window, a person may have changed a tool's files there.
        connect(&window, &QWindow::activeChanged, m_settings.get(), [this, &window] {
            if (window.isActive() && m_settings->connected()->idle())
                m_settings->connected()->scan();
        });
    }
    return window;
}

SettingsRoot& SettingsApplication::settings() {
    if (!m_settings) {
        m_settings = makeSettings();
        // On its lane while the window is being built.
        m_settings->connected()->scan();
    }
    return *m_settings;
}

WindowFactory::Content SettingsApplication::contentOf(WindowKind kind) {
    switch (kind) {
    case WindowKind::settings:
        return {QStringLiteral("WendlowSettings/SettingsFace.qml"),
                {{QStringLiteral("root"), QVariant::fromValue(&settings())}}};
    case WindowKind::editor:
        return {QStringLiteral("WendlowEditor/EditorHostFace.qml"),
                {{QStringLiteral("host"), QVariant::fromValue(&editor())}}};
    case WindowKind::controlsBench:
        return {QStringLiteral("WendlowControls/ControlsBench.qml"), {}};
    default:
        return {QStringLiteral("WendlowSettingsApp/PlainStage.qml"), {}};
    }
}

EditorWorlds& SettingsApplication::worlds() {
    if (!m_worlds)
        m_worlds = std::make_unique<EditorWorlds>(
            m_surroundings.client, EditorWorld::realData,
            [relay = DiagnosticRelay(DiagnosticSource::editor, m_surroundings.client)](
                std::string line) { relay.note(std::move(line)); });
    return *m_worlds;
}

EditorHost& SettingsApplication::editor() {
    if (!m_editor)
        m_editor = std::make_unique<EditorHost>(worlds());
    return *m_editor;
}

void SettingsApplication::syncMainWindow() {
    syncWorldMenu(m_mainMenu, m_worldActions, mainWindow());
}

void SettingsApplication::showAbout() {
    if (!m_about)
        m_about = m_factory.makeAbout(QString::fromStdString(ClientVersion::current()));
    // A panel of another window neither keeps the application running nor takes its menus.
    if (QWindow* const owner = mainWindow(); owner != m_about.get())
        m_about->setTransientParent(owner);
    m_about->show();
    m_about->raise();
    m_about->requestActivate();
}

} // namespace wendlow
