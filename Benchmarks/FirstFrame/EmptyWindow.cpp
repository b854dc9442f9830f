#include "FirstFrame.h"

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QWindow>

#include <memory>

/// The least that a Qt Quick program can be: the size of the Settings window, and nothing in it.
int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick\nWindow { visible: true; width: 980; height: 860 }", {});
    const std::unique_ptr<QObject> made(component.create());
    wendlow::FirstFrame::reportAndQuit(*qobject_cast<QWindow*>(made.get()));
    return QGuiApplication::exec();
}
