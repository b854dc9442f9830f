#pragma once

#include <QObject>
#include <QPointer>
#include <QWindow>

#include <vector>

namespace wendlow {

/// Which of the application's windows is in front. The toolkit knows of none while another program
/// has the focus; for a person the one they left is in front still. UI thread.
class FrontWindow final : public QObject {
    Q_OBJECT

public:
    FrontWindow();

    /// The window or panel that has the focus, or had it last of those that are on the screen; null
    /// where none is.
    QWindow* window() const;
    /// The same, but a panel stands for the window that it belongs to.
    QWindow* mainWindow() const;
    /// The same, but where none is on the screen the one that had the focus last of those that are
    /// minimized; null where all are closed.
    QWindow* openWindow() const;

Q_SIGNALS:
    /// Another window may be in front.
    void changed();

private:
    void follow(QWindow* focus);
    QWindow* mostRecent(bool (*fits)(const QWindow*)) const;

    std::vector<QPointer<QWindow>> m_recent; ///< the last to have had the focus stands first
};

} // namespace wendlow
