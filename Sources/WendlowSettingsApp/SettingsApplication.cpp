#include "SettingsApplication.h"

#include "ClientInstance.h"
#include "ConnectedAppsModel.h"
#include "JourneyOpening.h"
#include "Say.h"
#include "ThemeSource.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QTimer>

#include <QCoroTask>

#include <chrono>
#include <utility>

namespace wendlow {

namespace {

using ToldPane = std::function<void(WindowDoor::Pane)>;

} // namespace

SettingsApplication::SettingsApplication(Surroundings surroundings)
    : m_surroundings(std::move(surroundings)),
      m_models(m_surroundings.client, m_surroundings.chooseFile,
               [this](WindowModels& models) { return makeJourney(models); }),
      m_worldActions([this]() -> EditorWorlds& { return worlds(); },
                     [this](WindowKind kind) { present(kind); }),
      m_factory(
          m_mainMenu, [this](WindowKind kind) { return contentOf(kind); },
          m_surroundings.followLooks),
      m_windows([this](WindowKind kind) { return m_factory.make(kind); }),
      m_journey(
          m_windows, [this](QWindow& window) { m_factory.renew(window, WindowKind::onboarding); },
          [this](QWindow& window) {
              WindowFactory::empty(window);
              m_models.endJourney();
          },
          [this](const DistributedNotification& notification,
                 DistributedNotificationCenter::Delivery delivery) {
              m_surroundings.notifications.post(notification, delivery);
          }),
      m_delegate(
          m_surroundings.notifications, m_front,
          {.show = [this](WindowDoor::Pane pane, WindowDoor::Front front) { show(pane, front); },
           .turnTo =
               [this](std::string_view id) {
                   if (const auto pane = Panes::withId(id))
                       m_models.openSettingsOn(*pane);
               },
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
    m_mainMenu.insert(
        0, {.id = QStringLiteral("application"),
            .title = product,
            .lines = {{.id = QStringLiteral("about"),
                       .title = say("About {}", product),
                       .keys = std::nullopt,
                       .act = [this] { showAbout(); }},
                      MenuLine::of(Shortcuts::KeyboardShortcuts, "shortcuts",
                                   [this] { showShortcuts(); }),
                      {},
                      MenuLine::of(Shortcuts::Quit, "terminate", &QCoreApplication::quit)}});
    m_mainMenu.insert(
        1, {.id = QStringLiteral("edit"), .title = say("Edit"), .lines = m_editActions.lines()});
    m_mainMenu.insert(
        2,
        {.id = QStringLiteral("window"),
         .title = say("Window"),
         .lines = {
             frontLine(Shortcuts::Close, "performClose", [](QWindow& window) { window.close(); }),
             frontLine(Shortcuts::Minimize, "performMiniaturize",
                       [](QWindow& window) { window.showMinimized(); }),
             {},
             MenuLine::of(Shortcuts::Settings, "showSettings",
                          [this] { show(WindowDoor::Pane::settings, WindowDoor::Front::bring); }),
             showLine("showMemories", sayLater("Memories"), WindowDoor::Pane::editor),
             showLine("showStats", sayLater("Stats"), WindowDoor::Pane::stats),
             showLine("showFirstRun", sayLater("First Run"), WindowDoor::Pane::onboarding)}});
}

MenuLine SettingsApplication::frontLine(Shortcuts::Id keys, const char* id, void (*act)(QWindow&)) {
    MenuLine line = MenuLine::of(keys, id, [this, act] { act(*m_front.window()); });
    line.enabled = [this] { return m_front.window() != nullptr; };
    return line;
}

MenuLine SettingsApplication::showLine(const char* id, const char* title, WindowDoor::Pane pane) {
    return {.id = QString::fromLatin1(id),
            .title = say(title),
            .keys = std::nullopt,
            .act = [this, pane] { show(pane, WindowDoor::Front::bring); }};
}

void SettingsApplication::show(WindowDoor::Pane pane, WindowDoor::Front front) {
    const WindowKind kind = WindowDescriptions::kindOf(pane);
    if (kind != WindowKind::onboarding) {
        present(kind);
        return;
    }
    const bool isNew = m_windows.window(kind) == nullptr;
    m_journey.present(front);
    if (isNew)
        attend(*m_windows.window(kind), kind);
}

void SettingsApplication::showFirst(std::function<void(WindowDoor::Pane)> shown) {
    using WindowDoor::Pane;
    // Whoever is asked may be slow, or silent; a person who sees nothing would start it once more.
    constexpr auto patience = std::chrono::milliseconds(300);
    constexpr auto limit = std::chrono::seconds(5);
    const auto first = std::make_shared<ToldPane>(std::move(shown));
    m_isOpening = true;
    const auto showNow = [this, first](Pane pane) {
        m_isOpening = false;
        show(pane, WindowDoor::Front::bring);
        if (const auto told = std::exchange(*first, nullptr))
            told(pane);
    };
    QTimer::singleShot(patience, this, [first, showNow] {
        if (*first)
            showNow(Pane::settings);
    });
    QCoro::connect(shouldOpenJourney(m_surroundings.client, limit), this,
                   [first, showNow](bool journey) {
                       if (journey)
                           showNow(Pane::onboarding);
                       else if (*first)
                           showNow(Pane::settings);
                   });
}

void SettingsApplication::startedAgain() {
    if (m_isOpening)
        return;
    if (QWindow* const open = m_front.openWindow())
        WindowPresenter::bringToFront(*open);
    else
        present(WindowKind::settings);
}

std::unique_ptr<JourneyRoot> SettingsApplication::makeJourney(WindowModels& models) const {
    const auto tools = [&models]() -> ConnectedAppsModel& {
        return static_cast<ConnectedAppsModel&>(*models.settings().model(Pane::connected));
    };
    JourneyContacts contacts = JourneyContacts::real({
        .client = m_surroundings.client,
        .notifications = m_surroundings.notifications,
        .connect = tools,
        .forcedScreen = std::nullopt,
        // Not `quit`, which asks the windows: that of a journey that is being taken back says no.
        .terminate = [] { QCoreApplication::exit(); },
        .log = m_surroundings.setupLog,
    });
    return std::make_unique<JourneyRoot>(std::make_unique<JourneyModel>(std::move(contacts)));
}

QWindow& SettingsApplication::present(WindowKind kind) {
    const bool isNew = m_windows.window(kind) == nullptr;
    QWindow& window = m_windows.present(kind);
    if (isNew)
        attend(window, kind);
    return window;
}

void SettingsApplication::attend(QWindow& window, WindowKind kind) {
    const ThemeSource& looks = m_factory.looksOf(kind);
    const auto leaveRoom = [&window, &looks, kind] {
        WindowDescriptions::leaveRoom(window, WindowDescriptions::of(kind), looks.textScale());
    };
    connect(&looks, &ThemeSource::textScaleChanged, &window, leaveRoom);
    leaveRoom();
    if (const auto returnedTo = WindowDescriptions::of(kind).returnedTo) {
        connect(&window, &QWindow::activeChanged, this, [this, &window, returnedTo] {
            if (window.isActive())
                returnedTo(m_models);
        });
    }
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
    return showPanel(m_about, &WindowFactory::makeAbout);
}

QWindow& SettingsApplication::showShortcuts() {
    return showPanel(m_shortcuts, &WindowFactory::makeShortcuts);
}

QWindow& SettingsApplication::showPanel(std::unique_ptr<QWindow>& panel,
                                        std::unique_ptr<QWindow> (WindowFactory::*make)()) {
    if (!panel)
        panel = (m_factory.*make)();
    // A panel of another window neither keeps the application running nor takes its menus.
    if (QWindow* const owner = m_front.mainWindow(); owner != panel.get())
        panel->setTransientParent(owner);
    panel->show();
    panel->raise();
    panel->requestActivate();
    return *panel;
}

} // namespace wendlow

#include "moc_SettingsApplication.cpp"
