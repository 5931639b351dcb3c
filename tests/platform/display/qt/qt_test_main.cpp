// The tests run as the program does: the display loop on the process's
// first thread, the tests themselves on the "main" task beside it.
#include "platform/display/qt/display_thread.h"
#include "platform/display/qt/qt_backend.h"

#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    testing::InitGoogleTest(&argc, argv);
    QtDisplayBackend backend;
    int status = 1;
    // The tests use Qt on their task directly, so they wait for the
    // application the display thread builds.
    RunDisplay(backend, [&status] {
        WaitForDisplay();
        status = RUN_ALL_TESTS();
    });
    return status;
}
