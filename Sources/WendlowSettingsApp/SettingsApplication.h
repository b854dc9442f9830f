#pragma once

#include "Client.h"
#include "DistributedNotification.h"
#include "EditActions.h"
#include "FrontWindow.h"
#include "JourneyPresenter.h"
#include "MainMenu.h"
#include "SettingsDelegate.h"
#include "WindowFactory.h"
#include "WindowModels.h"
#include "WindowPresenter.h"
#include "WorldMenu.h"

#include <QObject>

#include <memory>

namespace wendlow {

/// The application: makes everything once, hands it on, and owns it until the process ends. The
/// toolkit's application object must be there already. UI thread.
class SettingsApplication final : public QObject {
    Q_OBJECT

public:
    /// What the application takes from the world around it.
    struct Surroundings {
        WindowFactory::FollowLooks followLooks;
        DistributedNotificationCenter& notifications;
        std::function<void(const std::string&)> setupLog;
        /// The process's only way to the daemon, there before any window.
        std::shared_ptr<WendlowClient> client;
        /// The platform's own dialog for files.
        FileChooser::Choose chooseFile = nullptr;
    };

    explicit SettingsApplication(Surroundings surroundings);
    /// Waits for a change to a person's files that is under way.
    ~SettingsApplication() override;

    /// Brings up a pane; `front` matters to the journey alone.
    void show(WindowDoor::Pane pane, WindowDoor::Front front);
    /// Brings up the window of a start that asked for none: Settings, or the journey for who is to
    /// go through it. `shown` is told of that window, which may be a moment after.
    void showFirst(std::function<void(WindowDoor::Pane)> shown);
    /// A start that asked for no window found this one running: what was in front last comes to the
    /// front.
    void startedAgain();
    /// The first window is on the screen: does what a start brings with it, behind what is seen.
    void started();
    /// Null while the kind has had no window yet.
    QWindow* window(WindowKind kind) const { return m_windows.window(kind); }
    QWindow& present(WindowKind kind);

    MainMenu& mainMenu() { return m_mainMenu; }
    WindowFactory& factory() { return m_factory; }
    WindowModels& models() { return m_models; }
    EditorWorlds& worlds() { return m_models.worlds(); }
    EditorHost& editor() { return m_models.editor(); }
    /// Brings up the panel that tells name, version and licences.
    QWindow& showAbout();
    /// Brings up the sheet of the keys.
    QWindow& showShortcuts();

private:
    void buildMainMenu();
    std::unique_ptr<JourneyRoot> makeJourney(WindowModels& models) const;
    void attend(QWindow& window, WindowKind kind);
    MenuLine frontLine(Shortcuts::Id keys, const char* id, void (*act)(QWindow&));
    MenuLine showLine(const char* id, const char* title, WindowDoor::Pane pane);
    QWindow& showPanel(std::unique_ptr<QWindow>& panel,
                       std::unique_ptr<QWindow> (WindowFactory::*make)());
    WindowFactory::Content contentOf(WindowKind kind);
    void syncMainWindow();

    const Surroundings m_surroundings;
    // The order is that of the start; the windows go before what they show.
    WindowModels m_models;
    FrontWindow m_front;
    EditActions m_editActions;
    const WorldMenuActions m_worldActions;
    MainMenu m_mainMenu;
    WindowFactory m_factory;
    WindowPresenter m_windows;
    JourneyPresenter m_journey;
    std::unique_ptr<QWindow> m_about;
    std::unique_ptr<QWindow> m_shortcuts;
    bool m_isOpening = false; ///< which window a start begins with is still being found out
    SettingsDelegate m_delegate;
};

} // namespace wendlow
