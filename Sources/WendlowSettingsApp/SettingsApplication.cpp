#include "SettingsApplication.h"

#include "ClientInstance.h"
#include "ClientVersion.h"
#include "ThemeSource.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <utility>

namespace wendlow {

namespace {

QKeySequence control(Qt::Key key) {
    return {Qt::CTRL | key};
}

} // namespace

SettingsApplication::SettingsApplication(Surroundings surroundings)
    : m_surroundings(std::move(surroundings)),
      m_models(m_surroundings.client, m_surroundings.chooseFile),
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
          m_surroundings.notifications, m_front,
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

MenuLine SettingsApplication::windowLine(const char* id, const char* title, Qt::Key key,
                                         void (*act)(QWindow&)) {
    return {.id = QString::fromLatin1(id),
            .title = QString::fromLatin1(title),
            .keys = control(key),
            .act = [this, act] { act(*m_front.window()); },
            .enabled = [this] { return m_front.window() != nullptr; }};
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
    if (isNew) {
        const ThemeSource& looks = m_factory.looks();
        const auto leaveRoom = [&window, &looks, kind] {
            WindowDescriptions::leaveRoom(window, WindowDescriptions::of(kind), looks.textScale());
        };
        connect(&looks, &ThemeSource::textScaleChanged, &window, leaveRoom);
        leaveRoom();
    }
    if (const auto returnedTo = WindowDescriptions::of(kind).returnedTo; isNew && returnedTo) {
        connect(&window, &QWindow::activeChanged, this, [this, &window, returnedTo] {
            if (window.isActive())
                returnedTo(m_models);
        });
    }
    return window;
}

void SettingsApplication::started() {
    m_models.settings().started(m_surroundings.setupLog);
}

WindowFactory::Content SettingsApplication::contentOf(WindowKind kind) {
    const WindowDescription& description = WindowDescriptions::of(kind);
    return {QString::fromUtf8(description.file),
            description.properties ? description.properties(m_models) : QVariantMap()};
}

void SettingsApplication::syncMainWindow() {
    syncWorldMenu(m_mainMenu, m_worldActions, m_front.mainWindow());
}

QWindow& SettingsApplication::showAbout() {
    if (!m_about)
        m_about = m_factory.makeAbout(QString::fromStdString(ClientVersion::current()));
    // A panel of another window neither keeps the application running nor takes its menus.
    if (QWindow* const owner = m_front.mainWindow(); owner != m_about.get())
        m_about->setTransientParent(owner);
    m_about->show();
    m_about->raise();
    m_about->requestActivate();
    return *m_about;
}

} // namespace wendlow

#include "moc_SettingsApplication.cpp"
