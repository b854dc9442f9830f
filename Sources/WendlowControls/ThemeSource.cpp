#include "ThemeSource.h"

#include <QQmlComponent>
#include <QQmlEngine>

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

} // namespace wendlow
