#include "Appearance.h"

#include "PrivateBus.h"
#include "SessionBus.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace wendlow {

/// The part of a desktop portal that tells settings.
class FakePortal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit FakePortal(QDBusConnection connection) : m_connection(std::move(connection)) {
        m_connection.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                                    QDBusConnection::ExportAllContents);
    }
    void appear() {
        m_connection.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    void set(const QString& setting, const QVariant& value) {
        values[setting] = value;
        Q_EMIT SettingChanged(setting.section(u' ', 0, 0), setting.section(u' ', 1),
                              QDBusVariant(value));
    }

    QVariantMap values;
    int questions = 0;

public Q_SLOTS:
    QDBusVariant Read(const QString& group, const QString& key) {
        ++questions;
        const auto found = values.constFind(group + QLatin1Char(' ') + key);
        if (found == values.constEnd()) {
            sendErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"),
                           QStringLiteral("Requested setting not found"));
            return QDBusVariant(0);
        }
        return QDBusVariant(QVariant::fromValue(QDBusVariant(*found)));
    }

Q_SIGNALS:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    QDBusConnection m_connection;
};

namespace {

using namespace Qt::StringLiterals;

const QString scheme = QStringLiteral("org.freedesktop.appearance color-scheme");
const QString reduced = QStringLiteral("org.freedesktop.appearance reduced-motion");
const QString animations = QStringLiteral("org.gnome.desktop.interface enable-animations");
const QString scaling = QStringLiteral("org.gnome.desktop.interface text-scaling-factor");

class Appearances : public ::testing::Test {
protected:
    QDBusConnection connected(const char* name) {
        return QDBusConnection::connectToBus(QString::fromStdString(bus.address()),
                                             QLatin1String(name));
    }
    ~Appearances() override {
        QDBusConnection::disconnectFromBus(QStringLiteral("portal"));
        QDBusConnection::disconnectFromBus(QStringLiteral("window"));
    }

    testing::PrivateBus bus;
    FakePortal portal{connected("portal")};
};

TEST_F(Appearances, AreFollowedLive) {
    portal.values[scheme] = 1U;
    portal.appear();
    Appearance appearance(connected("window"));
    QSignalSpy dark(&appearance, &Appearance::darkChanged);
    QSignalSpy motion(&appearance, &Appearance::reduceMotionChanged);
    QSignalSpy words(&appearance, &Appearance::textScaleChanged);
    EXPECT_FALSE(appearance.dark()) << "nothing waits for the portal";
    EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.dark() && portal.questions == 4; }));
    EXPECT_FALSE(appearance.reduceMotion());

    const std::tuple<QString, QVariant, bool, bool, double> rows[] = {
        {scheme, 2U, false, false, 1},     {scheme, 1U, true, false, 1},
        {scheme, u"1"_s, false, false, 1}, {reduced, 1U, false, true, 1},
        {scaling, 1.5, false, true, 1.5},  {animations, false, false, true, 1.5},
        {reduced, 0U, false, true, 1.5},   {animations, true, false, false, 1.5},
        {scaling, u"2"_s, false, false, 1}};
    for (const auto& [setting, value, isDark, isReduced, scale] : rows) {
        const int asked = portal.questions;
        portal.set(setting, value);
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return portal.questions > asked && appearance.dark() == isDark &&
                   appearance.reduceMotion() == isReduced && appearance.textScale() == scale;
        })) << setting.toStdString()
            << ' ' << value.toString().toStdString();
    }
    EXPECT_EQ(dark.count(), 4);
    EXPECT_EQ(motion.count(), 2);
    EXPECT_EQ(words.count(), 2);
}

TEST_F(Appearances, AreAskedForWhenThePortalComesLater) {
    portal.values[animations] = false;
    Appearance appearance(connected("window"));
    QTest::qWait(20);
    EXPECT_FALSE(appearance.reduceMotion());
    portal.appear();
    EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.reduceMotion(); }));
}

TEST_F(Appearances, AreAskedForAgainWhenTheBusHasBeenReplaced) {
    Appearance appearance;
    SessionBus session;
    QObject::connect(&session, &SessionBus::connected, &appearance, &Appearance::listenOn);
    QSignalSpy connections(&session, &SessionBus::connected);
    session.dial();
    EXPECT_TRUE(connections.wait());
    bus.restart();
    EXPECT_TRUE(connections.wait());
    FakePortal other{connected("other portal")};
    other.values[scheme] = 1U;
    other.appear();
    EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.dark(); }));
    QDBusConnection::disconnectFromBus(u"other portal"_s);
}

TEST(AppearanceWithoutABus, IsLightAndMoves) {
    const Appearance appearance(QDBusConnection(QStringLiteral("no such connection")));
    EXPECT_FALSE(appearance.dark());
    EXPECT_FALSE(appearance.reduceMotion());
    EXPECT_EQ(appearance.textScale(), 1);
}

} // namespace
} // namespace wendlow

#include "AppearanceTests.moc"
