#include <gmock/gmock.h>

#include <QApplication>

/// Test programs of the model run with an application object on the offscreen platform.
int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
