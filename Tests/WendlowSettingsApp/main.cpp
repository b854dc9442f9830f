#include <QGuiApplication>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>

#include <gtest/gtest.h>

Q_IMPORT_QML_PLUGIN(WendlowControlsPlugin)
Q_IMPORT_QML_PLUGIN(WendlowEditorBenchesPlugin)
Q_IMPORT_QML_PLUGIN(WendlowEditorPlugin)
Q_IMPORT_QML_PLUGIN(WendlowSettingsPlugin)
Q_IMPORT_QML_PLUGIN(WendlowSettingsAppPlugin)
Q_IMPORT_QML_PLUGIN(WendlowOnboardingPlugin)
Q_IMPORT_QML_PLUGIN(WendlowStatsPlugin)

/// Windows without a display: their states and signals are real, their pixels go nowhere.
int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
