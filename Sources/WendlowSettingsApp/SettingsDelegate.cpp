#include "SettingsDelegate.h"

#include <QGuiApplication>
#include <QWindow>

#include <utility>

namespace wendlow {

SettingsDelegate::SettingsDelegate(DistributedNotificationCenter& center, Answers answers)
    : m_answers(std::move(answers)) {
    const auto sync = [this] { m_answers.mainWindowChanged(); };
    m_focusObservers = {
        connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, sync),
        connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, sync),
    };
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
    m_answers.show(*pane, front ? WindowDoor::Front::bring : WindowDoor::Front::leave);
}

void SettingsDelegate::applicationWillTerminate() {
    m_doorObserver.reset();
    for (const QMetaObject::Connection& observer : m_focusObservers)
        disconnect(observer);
    m_focusObservers.clear();
}

} // namespace wendlow
