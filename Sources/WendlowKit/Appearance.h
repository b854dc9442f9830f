#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>

class QVariant;

namespace wendlow {

/// How the person wants windows to look, as the desktop portal tells it: light or dark, and whether
/// motion is reduced. Followed live. Light and with motion until the portal answers, and where none
/// does; nothing waits for it. The person's accent colour is not followed: the product has its own.
/// Belongs to the UI thread.
class Appearance : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool dark READ dark NOTIFY darkChanged)
    Q_PROPERTY(bool reduceMotion READ reduceMotion NOTIFY reduceMotionChanged)

public:
    /// Asks nobody until it is given a bus.
    explicit Appearance(QObject* parent = nullptr);
    explicit Appearance(const QDBusConnection& connection, QObject* parent = nullptr);

    /// Another bus takes the place of the one before, and is asked anew.
    void listenOn(const QDBusConnection& connection);

    bool dark() const { return m_dark; }
    /// True when the person asked for less motion, in whichever of the two ways a desktop has.
    bool reduceMotion() const { return m_reduceMotion; }

Q_SIGNALS:
    void darkChanged();
    void reduceMotionChanged();

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key);

private:
    struct Setting;

    void askAll();
    void ask(const Setting& setting);
    void take(const Setting& setting, const QVariant& answer);
    void publish();

    QDBusConnection m_connection;
    std::unique_ptr<QDBusServiceWatcher> m_portal;
    std::optional<std::uint32_t> m_colorScheme;
    std::optional<std::uint32_t> m_reducedMotion;
    std::optional<bool> m_enableAnimations;
    bool m_dark = false;
    bool m_reduceMotion = false;
};

} // namespace wendlow
