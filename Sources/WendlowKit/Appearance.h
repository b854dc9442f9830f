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

/// How the person wants windows to look, as the desktop portal tells it: light or dark, whether
/// motion is reduced, and how large words are. Followed live. Light, with motion and words of their
/// own size until the portal answers, and where none does; nothing waits for it. The person's
/// accent colour is not followed: the product has its own. Belongs to the UI thread.
class Appearance : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool dark READ dark NOTIFY darkChanged)
    Q_PROPERTY(bool reduceMotion READ reduceMotion NOTIFY reduceMotionChanged)
    Q_PROPERTY(double textScale READ textScale NOTIFY textScaleChanged)

public:
    /// Asks nobody until it is given a bus.
    explicit Appearance(QObject* parent = nullptr);
    explicit Appearance(const QDBusConnection& connection, QObject* parent = nullptr);

    /// Another bus takes the place of the one before, and is asked anew.
    void listenOn(const QDBusConnection& connection);

    bool dark() const { return m_dark; }
    /// True when the person asked for less motion, in whichever of the two ways a desktop has.
    bool reduceMotion() const { return m_reduceMotion; }
    /// How many times their own size words are to have, as it was told; no desktop gives a bound.
    double textScale() const { return m_textScale; }

Q_SIGNALS:
    void darkChanged();
    void reduceMotionChanged();
    void textScaleChanged();

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
    std::optional<double> m_textScaling;
    bool m_dark = false;
    bool m_reduceMotion = false;
    double m_textScale = 1;
};

} // namespace wendlow
