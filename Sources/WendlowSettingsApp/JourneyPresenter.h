#pragma once

#include "DistributedNotification.h"
#include "WindowDoor.h"
#include "WindowPresenter.h"

#include <functional>

namespace wendlow {

/// Shows the first-run journey, which ends and may start again: after its window was closed, the
/// same window comes back with a journey from the beginning. Tells the other processes whether a
/// journey is on screen. UI thread.
class JourneyPresenter final : public QObject {
    Q_OBJECT

public:
    /// Puts a journey from the beginning into the window.
    using Renew = std::function<void(QWindow&)>;
    /// The window was closed: the journey in it is over.
    using End = std::function<void(QWindow&)>;
    using Post = std::function<void(const DistributedNotification&,
                                    DistributedNotificationCenter::Delivery)>;

    JourneyPresenter(WindowPresenter& windows, Renew renew, End end, Post post);

    void present(WindowDoor::Front front);

private:
    void observeClosing(QWindow& window);
    void tellVisible(bool visible);

    WindowPresenter& m_windows;
    const Renew m_renew;
    const End m_end;
    const Post m_post;
};

} // namespace wendlow
