#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <memory>

namespace wendlow {

/// The application's own connection to the person's session bus. It is dialled off the thread that
/// asks for it, so that nobody waits for a bus that does not answer; and it is dialled again for as
/// long as there is no answer, and whenever the bus has gone. Belongs to one thread with an event
/// loop.
class SessionBus final : public QObject {
    Q_OBJECT

public:
    explicit SessionBus(QObject* parent = nullptr);
    /// Does not wait for a dial that is under way.
    ~SessionBus() override;

    /// Returns at once. Called once, or `adopt` in its place.
    void dial();
    /// The same with a connection that is open already; `connected` tells of it at once.
    void adopt(const QDBusConnection& bus) { opened(bus); }

Q_SIGNALS:
    /// There is a bus, or another one: whoever listened to the one before must listen again.
    void connected(const QDBusConnection& bus);

private Q_SLOTS:
    void lost();

private:
    struct Caller;

    void opened(const QDBusConnection& bus);
    void redial();

    const std::shared_ptr<Caller> m_caller; ///< shared with the thread that dials
    QString m_name;                         ///< of the connection that is open; empty: none is
    QTimer m_redial;
    std::chrono::milliseconds m_pause;
};

} // namespace wendlow
