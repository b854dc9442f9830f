#include "Appearance.h"

#include "PrivateBus.h"

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

    void set(const char* group, const char* key, const QVariant& value) {
        values[QLatin1String(group) + QLatin1Char(' ') + QLatin1String(key)] = value;
        Q_EMIT SettingChanged(QLatin1String(group), QLatin1String(key), QDBusVariant(value));
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

constexpr const char* appearanceGroup = "org.freedesktop.appearance";
constexpr const char* desktopGroup = "org.gnome.desktop.interface";

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
    portal.values[QStringLiteral("org.freedesktop.appearance color-scheme")] = 1U;
    portal.appear();
    Appearance appearance(connected("window"));
    QSignalSpy dark(&appearance, &Appearance::darkChanged);
    QSignalSpy motion(&appearance, &Appearance::reduceMotionChanged);
    EXPECT_FALSE(appearance.dark()) << "nothing waits for the portal";
    EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.dark() && portal.questions == 3; }));
    EXPECT_FALSE(appearance.reduceMotion());

    const struct {
        const char* group;
        const char* key;
        QVariant value;
        bool isDark;
        bool isReduced;
    } rows[] = {
        {appearanceGroup, "color-scheme", 2U, false, false},
        {appearanceGroup, "color-scheme", 1U, true, false},
        {appearanceGroup, "color-scheme", QStringLiteral("1"), false, false},
        {appearanceGroup, "reduced-motion", 1U, false, true},
        {desktopGroup, "enable-animations", false, false, true},
        {appearanceGroup, "reduced-motion", 0U, false, true},
        {desktopGroup, "enable-animations", true, false, false},
    };
    for (const auto& row : rows) {
        const int asked = portal.questions;
        portal.set(row.group, row.key, row.value);
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return portal.questions > asked && appearance.dark() == row.isDark &&
                   appearance.reduceMotion() == row.isReduced;
        })) << row.group
            << ' ' << row.key << ' ' << row.value.toString().toStdString();
    }
    EXPECT_EQ(dark.count(), 4);
    EXPECT_EQ(motion.count(), 2);
}

TEST_F(Appearances, AreAskedForWhenThePortalComesLater) {
    portal.values[QStringLiteral("org.gnome.desktop.interface enable-animations")] = false;
    Appearance appearance(connected("window"));
    QTest::qWait(20);
    EXPECT_FALSE(appearance.reduceMotion());
    portal.appear();
    EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.reduceMotion(); }));
}

TEST(AppearanceWithoutABus, IsLightAndMoves) {
    const Appearance appearance(QDBusConnection(QStringLiteral("no such connection")));
    EXPECT_FALSE(appearance.dark());
    EXPECT_FALSE(appearance.reduceMotion());
}

} // namespace
} // namespace wendlow

#include "AppearanceTests.moc"
