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
    /// How many times its own size every word has; 1 to 2, starts at 1.
    Q_PROPERTY(double textScale READ textScale WRITE setTextScale NOTIFY textScaleChanged FINAL)

public:
    explicit ThemeSource(QObject* parent = nullptr);

    /// The engine's own instance, made on first use and owned by the engine. The engine must be
    /// able to find the module WendlowControls; gives null otherwise.
    static ThemeSource* of(QQmlEngine& engine);

    [[nodiscard]] bool dark() const { return m_dark; }
    void setDark(bool dark);

    [[nodiscard]] bool reduceMotion() const { return m_reduceMotion; }
    void setReduceMotion(bool reduceMotion);

    [[nodiscard]] double textScale() const { return m_textScale; }
    /// What is outside 1 to 2 becomes the nearer of both; what is no number, 1.
    void setTextScale(double textScale);

Q_SIGNALS:
    void darkChanged();
    void reduceMotionChanged();
    void textScaleChanged();

private:
    bool m_dark = false;
    bool m_reduceMotion = false;
    double m_textScale = 1;
};

} // namespace wendlow
