#include "app/view/ApplicationTheme.h"
#include "app/view/SettingsWindow.h"

#include <gtest/gtest.h>

#include <QApplication>

/// The views are tested without a display, and look the same on every machine.
int main(int argc, char** argv)
{
    // A test may ask for other screens than the one that there is without a display.
    if (!qgetenv("QT_QPA_PLATFORM").startsWith("offscreen"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    korvane::Observable<bool> systemIsDark { false };
    korvane::Observable<bool> isAnimated { true };
    const korvane::ApplicationTheme theme(systemIsDark, isAnimated);
    korvane::SettingsWindow::installAccess();
    return RUN_ALL_TESTS();
}
