#include "SettingsDelegate.h"

#include <utility>

namespace wendlow {

SettingsDelegate::SettingsDelegate(DistributedNotificationCenter& center, const FrontWindow& front,
                                   Answers answers)
    : m_answers(std::move(answers)) {
    m_frontObserver =
        connect(&front, &FrontWindow::changed, this, [this] { m_answers.mainWindowChanged(); });
    m_doorObserver = center.addObserver(
        std::string(WindowDoor::notification),
        [this](const DistributedNotification& notification) { doorOpened(notification); });
}

void SettingsDelegate::doorOpened(const DistributedNotification& notification) const {
    const auto pane = notification.object ? WindowDoor::pane(*notification.object) : std::nullopt;
    if (!pane)
        return;
    const bool front = WindowDoor::wantsFront(notification.userInfo);
    m_answers.log("door: menu asked for " + std::string(WindowDoor::text(*pane)) +
                  (front ? " (front)" : ""));
    if (const auto settingsPane = WindowDoor::settingsPane(notification.userInfo))
        m_answers.turnTo(*settingsPane);
    m_answers.show(*pane, front ? WindowDoor::Front::bring : WindowDoor::Front::leave);
}

void SettingsDelegate::applicationWillTerminate() {
    m_doorObserver.reset();
    disconnect(m_frontObserver);
}

} // namespace wendlow

#include "moc_SettingsDelegate.cpp"
