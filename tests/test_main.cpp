#include <gtest/gtest.h>

#include <QGuiApplication>

// Every test binary runs without a display: the offscreen platform gives
// QtGui (fonts, images, painters) what it needs.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QGuiApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
