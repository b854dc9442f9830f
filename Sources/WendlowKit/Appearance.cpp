#include "Appearance.h"

#include "LogCategories.h"

#include <array>
#include <utility>

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QVariant>

namespace wendlow {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
constexpr int patience = 5000; ///< milliseconds
constexpr std::uint32_t preferDark = 1;
constexpr std::uint32_t preferReduced = 1;

/// Older portals wrap a value twice.
QVariant unwrapped(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

template<class T> std::optional<T> exactly(const QVariant& value) {
    if (value.metaType() != QMetaType::fromType<T>())
        return std::nullopt;
    return value.value<T>();
}

} // namespace

struct Appearance::Setting {
    enum class Meaning { colorScheme, reducedMotion, enableAnimations, textScaling };

    Meaning meaning;
    const char* group;
    const char* key;

    static constexpr auto all() {
        return std::array<Setting, 4>{
            {{Meaning::colorScheme, "org.freedesktop.appearance", "color-scheme"},
             {Meaning::reducedMotion, "org.freedesktop.appearance", "reduced-motion"},
             {Meaning::enableAnimations, "org.gnome.desktop.interface", "enable-animations"},
             {Meaning::textScaling, "org.gnome.desktop.interface", "text-scaling-factor"}}};
    }
};

Appearance::Appearance(QObject* parent) : QObject(parent), m_connection(QString()) {}

Appearance::Appearance(const QDBusConnection& connection, QObject* parent) : Appearance(parent) {
    listenOn(connection);
}

void Appearance::listenOn(const QDBusConnection& connection) {
    m_portal.reset();
    m_connection = connection;
    if (!m_connection.isConnected()) {
        qCInfo(LogCategory::appearance, "there is no session bus, so windows are light");
        return;
    }
    // No sender is named: naming one would ask the bus for its owner and wait for the answer. The
    // signal's own value is not used either; the portal is asked, so nobody else can tell it.
    m_connection.connect(QString(), path, interface, QStringLiteral("SettingChanged"), this,
                         SLOT(settingChanged(QString, QString)));
    m_portal = std::make_unique<QDBusServiceWatcher>(service, m_connection,
                                                     QDBusServiceWatcher::WatchForRegistration);
    connect(m_portal.get(), &QDBusServiceWatcher::serviceRegistered, this, &Appearance::askAll);
    askAll();
}

void Appearance::settingChanged(const QString& group, const QString& key) {
    for (const Setting& setting : Setting::all())
        if (group == QLatin1String(setting.group) && key == QLatin1String(setting.key))
            ask(setting);
}

void Appearance::askAll() {
    for (const Setting& setting : Setting::all())
        ask(setting);
}

void Appearance::ask(const Setting& setting) {
    QDBusMessage question =
        QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    question << QLatin1String(setting.group) << QLatin1String(setting.key);
    auto* const watcher =
        new QDBusPendingCallWatcher(m_connection.asyncCall(question, patience), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, setting] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        take(setting, reply.isValid() ? reply.value().variant() : QVariant());
    });
}

void Appearance::take(const Setting& setting, const QVariant& answer) {
    const QVariant value = unwrapped(answer);
    switch (setting.meaning) {
    case Setting::Meaning::colorScheme:
        m_colorScheme = exactly<std::uint32_t>(value);
        break;
    case Setting::Meaning::reducedMotion:
        m_reducedMotion = exactly<std::uint32_t>(value);
        break;
    case Setting::Meaning::enableAnimations:
        m_enableAnimations = exactly<bool>(value);
        break;
    case Setting::Meaning::textScaling:
        m_textScaling = exactly<double>(value);
        break;
    }
    publish();
}

void Appearance::publish() {
    const bool dark = m_colorScheme == preferDark;
    const bool reduceMotion = m_reducedMotion == preferReduced || m_enableAnimations == false;
    const double textScale = m_textScaling.value_or(1);
    if (std::exchange(m_dark, dark) != dark)
        Q_EMIT darkChanged();
    if (std::exchange(m_reduceMotion, reduceMotion) != reduceMotion)
        Q_EMIT reduceMotionChanged();
    if (std::exchange(m_textScale, textScale) != textScale)
        Q_EMIT textScaleChanged();
}

} // namespace wendlow

#include "moc_Appearance.cpp"
