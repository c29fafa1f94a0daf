// main() of the tests under a window manager: a screen of their own, and settings and home in a folder that goes at the
// end.
#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "shell/focus/person.h"

namespace tallmar {

namespace {

const XScreen* screen = nullptr;

}  // namespace

const XScreen& The_Screen() {
    return *screen;
}

}  // namespace tallmar

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    // To name them takes no screen.
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
    const QTemporaryDir home;
    for (const char* folder : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"}) {
        qputenv(folder, home.path().toLocal8Bit());
    }
    const tallmar::XScreen own(home.path().toStdString());
    tallmar::screen = &own;
    qputenv("DISPLAY", QByteArray::fromStdString(own.Name()));
    qputenv("QT_QPA_PLATFORM", "xcb");
    // No desktop around it is asked for anything.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    QStandardPaths::setTestModeEnabled(true);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
