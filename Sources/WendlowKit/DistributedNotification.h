#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

namespace wendlow {

/// A message to every process of the person's session that listens for its name.
struct DistributedNotification {
    using UserInfo = std::map<std::string, std::string>;

    std::string name;
    std::optional<std::string> object = std::nullopt;
    std::optional<UserInfo> userInfo = std::nullopt;

    bool operator==(const DistributedNotification&) const = default;
};

/// Posts and observes notifications on a D-Bus session bus. A notification is the signal
/// `Posted(s name, s object, a{ss} userInfo, b immediately)`; an absent object is the empty string
/// and absent user information the empty dictionary, so that an empty one is read as absent.
///
/// Where the bus is gone nothing is posted and nothing arrives; the platform log says so. Signals
/// of another signature are ignored. Belongs to one thread, on which the observers are called; the
/// thread needs an event loop. A process hears its own posts too.
class DistributedNotificationCenter : public QObject {
    Q_OBJECT

public:
    enum class Delivery { whenIdle, immediately };
    using Callback = std::function<void(const DistributedNotification&)>;

    /// Holds an observation; the observation ends with the last copy, also in the middle of a
    /// delivery. May outlive the centre.
    using Token = std::shared_ptr<const void>;

    /// Hears nothing until it is given a bus, and keeps what is posted (the newest sixteen) for it.
    explicit DistributedNotificationCenter(QObject* parent = nullptr);
    explicit DistributedNotificationCenter(const QDBusConnection& connection,
                                           QObject* parent = nullptr);
    ~DistributedNotificationCenter() override;

    /// Another bus takes the place of the one before; observers stay.
    void listenOn(const QDBusConnection& connection);

    /// Never blocks and reports nothing: a notification is heard by whoever is there.
    void post(const DistributedNotification& notification, Delivery delivery = Delivery::whenIdle);

    /// From any sender and about any object.
    [[nodiscard]] Token addObserver(std::string name, Callback callback);

private Q_SLOTS:
    void received(const QDBusMessage& message);

private:
    struct Observer;

    QDBusConnection m_connection;
    bool m_hasBegun = false;             ///< was given a bus, be it one that could not be reached
    std::vector<QDBusMessage> m_waiting; ///< what was posted before that
    std::vector<std::weak_ptr<const Observer>> m_observers;
};

} // namespace wendlow
