#pragma once

#include "DistributedNotification.h"
#include "FrontWindow.h"
#include "WindowDoor.h"

#include <QMetaObject>
#include <QObject>

#include <functional>
#include <string>
#include <string_view>

namespace wendlow {

/// Listens for the application's whole life: to sibling processes asking for a window, and to which
/// window is the main one. UI thread.
class SettingsDelegate final : public QObject {
    Q_OBJECT

public:
    struct Answers {
        std::function<void(WindowDoor::Pane, WindowDoor::Front)> show;
        std::function<void(std::string_view)> turnTo; ///< a pane of Settings, by its id
        std::function<void(const std::string&)> log;  ///< a line for the setup log
        std::function<void()> mainWindowChanged;
    };

    SettingsDelegate(DistributedNotificationCenter& center, const FrontWindow& front,
                     Answers answers);

    /// A notification of the door's name has arrived. One that names no pane changes nothing.
    void doorOpened(const DistributedNotification& notification) const;
    /// Ends the listening. The application asks for it as it terminates.
    void applicationWillTerminate();

private:
    const Answers m_answers;
    DistributedNotificationCenter::Token m_doorObserver;
    QMetaObject::Connection m_frontObserver;
};

} // namespace wendlow
