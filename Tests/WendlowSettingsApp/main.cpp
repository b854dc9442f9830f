#include <QGuiApplication>

#include <gtest/gtest.h>

/// Windows without a display: their states and signals are real, their pixels go nowhere.
int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
