// The tests of the Wayland backends need a compositor with nobody's clipboard on it, and windows and keys of
// nobody: they run inside tools/wayland-desktop.
#include "platform/TerminationSignals.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <cstdio>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("WAYLAND_DESKTOP_KIND")) {
        std::fputs("korvane-wayland-tests: run it inside tools/wayland-desktop.\n", stderr);
        return 1;
    }
    const QCoreApplication application(argc, argv);
    korvane::surviveBrokenPipes();
    return RUN_ALL_TESTS();
}
