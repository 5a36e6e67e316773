#include "desktop/guarded_application.h"
#include "screen/support/palettes.h"

#include <gmock/gmock.h>

#include <QApplication>

int main(int argc, char* argv[]) {
    testing::InitGoogleMock(&argc, argv);
    // The tests are listed at build time, where no platform was chosen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    zb::GuardedApplication qt(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    zb::test::dress(qt, zb::test::Shade::Light);
    return RUN_ALL_TESTS();
}
