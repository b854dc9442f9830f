#include "JourneyPresenter.h"

#include "ClientInstance.h"

#include <utility>

namespace wendlow {

JourneyPresenter::JourneyPresenter(WindowPresenter& windows, Renew renew, Post post)
    : m_windows(windows), m_renew(std::move(renew)), m_post(std::move(post)) {}

void JourneyPresenter::present(WindowDoor::Front front) {
    // A minimized window counts as visible, a closed one does not.
    QWindow* const window = m_windows.window(WindowKind::onboarding);
    switch (WindowDoor::journeyDoor({.exists = window != nullptr,
                                     .live = window && window->isVisible(),
                                     .front = front == WindowDoor::Front::bring})) {
    case WindowDoor::JourneyDoorAction::build:
        observeClosing(m_windows.present(WindowKind::onboarding));
        tellVisible(true);
        break;
    case WindowDoor::JourneyDoorAction::refresh:
        Q_ASSERT(window);
        m_renew(*window);
        m_windows.present(WindowKind::onboarding);
        tellVisible(true);
        break;
    case WindowDoor::JourneyDoorAction::front:
        m_windows.present(WindowKind::onboarding);
        break;
    case WindowDoor::JourneyDoorAction::nothing:
        break;
    }
}

void JourneyPresenter::observeClosing(QWindow& window) {
    connect(&window, &QWindow::visibleChanged, this, [this](bool visible) {
        if (!visible)
            tellVisible(false);
    });
}

void JourneyPresenter::tellVisible(bool visible) {
    m_post({.name = std::string(ClientInstance::journeyVisibleNotification),
            .object = visible ? "1" : "0"},
           DistributedNotificationCenter::Delivery::immediately);
}

} // namespace wendlow

#include "moc_JourneyPresenter.cpp"
