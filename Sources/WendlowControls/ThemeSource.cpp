#include "ThemeSource.h"

#include <QQmlComponent>
#include <QQmlEngine>

#include <algorithm>

namespace wendlow {

ThemeSource::ThemeSource(QObject* parent) : QObject(parent) {}

ThemeSource* ThemeSource::of(QQmlEngine& engine) {
    // The types of a module have no ids before something has imported it.
    QQmlComponent importing(&engine);
    importing.setData("import QtQml\nimport WendlowControls\nQtObject {}", {});
    const int type = qmlTypeId("WendlowControls", 1, 0, "ThemeSource");
    return type < 0 ? nullptr : engine.singletonInstance<ThemeSource*>(type);
}

void ThemeSource::setDark(bool dark) {
    if (m_dark == dark) {
        return;
    }
    m_dark = dark;
    Q_EMIT darkChanged();
}

void ThemeSource::setReduceMotion(bool reduceMotion) {
    if (m_reduceMotion == reduceMotion) {
        return;
    }
    m_reduceMotion = reduceMotion;
    Q_EMIT reduceMotionChanged();
}

void ThemeSource::setTextScale(double textScale) {
    const double scale = textScale > 1 ? std::min(textScale, 2.0) : 1.0;
    if (m_textScale == scale) {
        return;
    }
    m_textScale = scale;
    Q_EMIT textScaleChanged();
}

} // namespace wendlow

#include "moc_ThemeSource.cpp"
