#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include "XPC/XPCConnection.h"

class QDBusPendingCallWatcher;

namespace wendlow {

/// The inside of a connection over D-Bus. Belongs to its queue's thread: everything but `make` is
/// called there.
class BusPeer final : public QObject, public std::enable_shared_from_this<BusPeer> {
    Q_OBJECT

public:
    using Handler = XPCConnection::Handler;

    /// The last owner may let go of it on any thread; what it made is on the queue by then.
    static std::shared_ptr<BusPeer> make(const QString& name,
                                         const std::shared_ptr<DispatchQueue>& queue);
    ~BusPeer() override;

    void setEventHandler(Handler handler) { m_eventHandler = std::move(handler); }
    void resume();
    void cancel();
    void send(xpc_object_t message);
    void sendWithReply(xpc_object_t message, Handler handler);

private Q_SLOTS:
    void eventArrived(const QDBusMessage& message);
    void ownerChanged(const QString& name, const QString& before, const QString& after);
    void lost();

private:
    enum class State { made, dialling, open, closed };
    struct Waiting {
        xpc_object_t message;
        Handler handler; ///< null when no reply is asked for
    };

    BusPeer(QString name, std::weak_ptr<DispatchQueue> queue);

    void opened(const QDBusConnection& bus);
    void listen();
    void hand(Waiting waiting);
    void ask(const xpc_object_t& message, Handler handler);
    void fail(const char* why);
    void close();

    const QString m_name;
    const QString m_connectionName;
    const std::weak_ptr<DispatchQueue> m_queue;
    State m_state = State::made;
    std::optional<QDBusConnection> m_bus;
    Handler m_eventHandler;
    QString m_owner; ///< the unique name of the service's process, from which events are taken
    std::vector<Waiting> m_waiting;
    std::map<std::uint64_t, Handler> m_asked;
    std::uint64_t m_lastAsked = 0;
};

} // namespace wendlow
