#include "DistributedNotification.h"

#include "PrivateBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QMap>
#include <QTest>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using namespace Qt::StringLiterals;
using Center = DistributedNotificationCenter;
using Heard = std::vector<DistributedNotification>;

class DistributedNotifications : public ::testing::Test {
protected:
    ~DistributedNotifications() override {
        for (const QString& name : {u"sender"_s, u"listener"_s})
            QDBusConnection::disconnectFromBus(name);
    }
    /// A connection of its own, as another process would have.
    QDBusConnection connected(const QString& name) const {
        return QDBusConnection::connectToBus(QString::fromStdString(bus.address()), name);
    }
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
    QDBusConnection senderBus = connected(u"sender"_s);
    Center sender{senderBus};
    Center listener{connected(u"listener"_s)};
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
    listener.post(posted[0]); // and their own poster
    EXPECT_TRUE(QTest::qWaitFor([&] { return heard.size() == 4; }));
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

TEST_F(DistributedNotifications, IgnoreSignalsOfAnotherShape) {
    const auto token = hear("door");
    const QString path = u"/works/fenmoor/wendlow"_s;
    const QVariant userInfo = QVariant::fromValue(QMap<QString, QString>());
    const QVariantList good = {u"door"_s, u"o"_s, userInfo, true};
    const auto send = [&](const QString& from, const QString& member,
                          const QVariantList& arguments) {
        QDBusMessage message = QDBusMessage::createSignal(
            from, u"works.fenmoor.wendlow.DistributedNotification"_s, member);
        message.setArguments(arguments);
        ASSERT_TRUE(senderBus.send(message));
    };
    for (const QVariantList& arguments : {QVariantList{},
                                          {u"door"_s},
                                          {u"door"_s, 7, userInfo, true},
                                          {u"door"_s, u"o"_s, QVariantMap{{u"front"_s, 1}}, true},
                                          good + QVariantList{1}})
        send(path, u"Posted"_s, arguments);
    send(u"/works/fenmoor/other"_s, u"Posted"_s, good);
    send(path, u"Pasted"_s, good);
    send(path, u"Posted"_s, good);
    settle();
    EXPECT_EQ(heard, (Heard{{.name = "door", .object = "o"}}));
}

TEST_F(DistributedNotifications, WaitForTheFirstBus) {
    const auto token = hear("door");
    Center early;
    for (int front = 0; front < 20; ++front)
        early.post({.name = "door", .object = std::to_string(front)});
    early.listenOn(senderBus);
    early.post({.name = "door", .object = "later"});
    settle();
    ASSERT_EQ(heard.size(), 17U);
    EXPECT_EQ(heard.front().object, "4");
    EXPECT_EQ(heard.at(15).object, "19");
    EXPECT_EQ(heard.back().object, "later");
}

TEST_F(DistributedNotifications, OutliveTheBusAndTheCentre) {
    auto center = std::make_unique<Center>(senderBus);
    const auto token = center->addObserver("door", [](const auto&) {});
    bus.stop();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !senderBus.isConnected(); }));
    center->post({.name = "door"});
    center.reset();
}

} // namespace
} // namespace wendlow
