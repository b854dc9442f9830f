#include "DistributedNotification.h"

#include "PrivateBus.h"

#include <memory>
#include <string>
#include <vector>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QMap>
#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using Center = DistributedNotificationCenter;
using Heard = std::vector<DistributedNotification>;

/// A connection of its own, as another process would have.
class Connection {
public:
    explicit Connection(const testing::PrivateBus& bus)
        : m_name(QStringLiteral("test-%1").arg(++s_count)),
          m_connection(
              QDBusConnection::connectToBus(QString::fromStdString(bus.address()), m_name)) {}
    ~Connection() { QDBusConnection::disconnectFromBus(m_name); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    QDBusConnection& operator*() { return m_connection; }

private:
    static inline int s_count = 0;
    QString m_name;
    QDBusConnection m_connection;
};

class DistributedNotifications : public ::testing::Test {
protected:
    Center::Token hear(const std::string& name) {
        return listener.addObserver(name, [this](const DistributedNotification& notification) {
            heard.push_back(notification);
        });
    }

    /// Everything sent before has arrived when this has.
    void settle() {
        bool arrived = false;
        const auto token = listener.addObserver(
            "settled", [&](const DistributedNotification&) { arrived = true; });
        sender.post({.name = "settled"});
        EXPECT_TRUE(QTest::qWaitFor([&] { return arrived; }));
    }

    testing::PrivateBus bus;
    Connection senderBus{bus};
    Connection listenerBus{bus};
    Center sender{*senderBus};
    Center listener{*listenerBus};
    Heard heard;
};

TEST_F(DistributedNotifications, ReachOtherProcessesWhole) {
    const auto token = hear("door");
    const Heard posted = {
        {.name = "door"},
        {.name = "door", .object = "stats "},
        {.name = "door", .object = "ü—", .userInfo = {{{"front", "1"}, {"", ""}}}},
    };
    sender.post({.name = "window", .object = "stats"});
    for (const auto& notification : posted)
        sender.post(notification, Center::Delivery::immediately);
    settle();
    EXPECT_EQ(heard, posted);
}

TEST_F(DistributedNotifications, AreHeardAsLongAsTheTokenLives) {
    auto first = hear("door");
    auto second = hear("door");
    Center::Token third;
    // An observer may end others, and begin one, while it is called.
    const auto ending = listener.addObserver("end", [&](const DistributedNotification&) {
        second.reset();
        if (!third)
            third = hear("end");
    });
    const auto ended =
        listener.addObserver("end", [&](const DistributedNotification&) { first.reset(); });
    sender.post({.name = "door"});
    sender.post({.name = "end"});
    sender.post({.name = "door"});
    settle();
    EXPECT_EQ(heard, (Heard{{.name = "door"}, {.name = "door"}}));
    sender.post({.name = "end"});
    settle();
    EXPECT_EQ(heard.size(), 3U);
}

TEST_F(DistributedNotifications, AreHeardByTheirPosterToo) {
    const auto token = hear("door");
    listener.post({.name = "door", .object = "1"});
    settle();
    EXPECT_TRUE(QTest::qWaitFor([&] { return heard == Heard{{.name = "door", .object = "1"}}; }));
}

TEST_F(DistributedNotifications, IgnoreSignalsOfAnotherShape) {
    const auto token = hear("door");
    const auto signal = [&](const char* path, const char* member, const QVariantList& arguments) {
        QDBusMessage message = QDBusMessage::createSignal(
            QLatin1String(path), QStringLiteral("works.fenmoor.wendlow.DistributedNotification"),
            QLatin1String(member));
        message.setArguments(arguments);
        ASSERT_TRUE((*senderBus).send(message));
    };
    const QVariant userInfo = QVariant::fromValue(QMap<QString, QString>());
    const QVariantList good = {QStringLiteral("door"), QStringLiteral("o"), userInfo, true};
    signal("/works/fenmoor/wendlow", "Posted", {});
    signal("/works/fenmoor/wendlow", "Posted", {QStringLiteral("door")});
    signal("/works/fenmoor/wendlow", "Posted", {QStringLiteral("door"), 7, userInfo, true});
    signal("/works/fenmoor/wendlow", "Posted",
           {QStringLiteral("door"), QStringLiteral("o"), QVariantMap{{QStringLiteral("front"), 1}},
            true});
    signal("/works/fenmoor/wendlow", "Posted", good + QVariantList{1});
    signal("/works/fenmoor/other", "Posted", good);
    signal("/works/fenmoor/wendlow", "Pasted", good);
    settle();
    EXPECT_EQ(heard, Heard{});
    signal("/works/fenmoor/wendlow", "Posted", good);
    settle();
    EXPECT_EQ(heard, (Heard{{.name = "door", .object = "o"}}));
}

TEST_F(DistributedNotifications, ComeFromTheCommandLine) {
    const auto token = hear("door");
    const auto post = [&](const QStringList& arguments) {
        return QProcess::execute(QStringLiteral(POST_NOTIFICATION_PROGRAM), arguments);
    };
    EXPECT_EQ(post({QStringLiteral("door"), QStringLiteral("--object"), QStringLiteral("stats"),
                    QStringLiteral("--info"), QStringLiteral("front=1=2"),
                    QStringLiteral("--immediately")}),
              0);
    settle();
    EXPECT_EQ(heard,
              (Heard{{.name = "door", .object = "stats", .userInfo = {{{"front", "1=2"}}}}}));
    bus.stop();
    EXPECT_EQ(post({QStringLiteral("door")}), 1);
}

TEST(DistributedNotificationsWithoutABus, ArePostedToNobody) {
    Center center(QDBusConnection(QStringLiteral("no such connection")));
    bool heard = false;
    const auto token = center.addObserver("door", [&](const auto&) { heard = true; });
    center.post({.name = "door"});
    QTest::qWait(1);
    EXPECT_FALSE(heard);
}

TEST(DistributedNotificationsWithoutABus, OutliveTheBusAndTheCentre) {
    testing::PrivateBus bus;
    Connection connection(bus);
    auto center = std::make_unique<Center>(*connection);
    const auto token = center->addObserver("door", [](const auto&) {});
    bus.stop();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !(*connection).isConnected(); }));
    center->post({.name = "door"});
    center.reset();
}

} // namespace
} // namespace wendlow
