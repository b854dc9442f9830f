#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

class QQmlEngine;

namespace wendlow {

/// What the platform says about looks, as Theme reads it. There is one per QML engine, so that a
/// window with an engine of its own (the journey, always dark) can differ from the rest. Belongs to
/// the UI thread.
class ThemeSource : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// Dark colours; light ones when false, which is where it starts.
    Q_PROPERTY(bool dark READ dark WRITE setDark NOTIFY darkChanged FINAL)
    /// Whether every motion is at its end at once; starts false.
    Q_PROPERTY(
        bool reduceMotion READ reduceMotion WRITE setReduceMotion NOTIFY reduceMotionChanged FINAL)

public:
    explicit ThemeSource(QObject* parent = nullptr);

    /// The engine's own instance, made on first use and owned by the engine. The engine must be
    /// able to find the module WendlowControls; gives null otherwise.
    static ThemeSource* of(QQmlEngine& engine);

    [[nodiscard]] bool dark() const { return m_dark; }
    void setDark(bool dark);

    [[nodiscard]] bool reduceMotion() const { return m_reduceMotion; }
    void setReduceMotion(bool reduceMotion);

Q_SIGNALS:
    void darkChanged();
    void reduceMotionChanged();

private:
    bool m_dark = false;
    bool m_reduceMotion = false;
};

} // namespace wendlow
