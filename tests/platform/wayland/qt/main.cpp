// The panel is tested on a real compositor, with hands that lie on its devices before the toolkit starts.
#include "app/view/ApplicationTheme.h"
#include "platform/wayland/qt/LayerShell.h"
#include "platform/wayland/qt/TestSeat.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <cstdio>
#include <optional>

namespace {

std::optional<korvane::test::TestSeat>& hands()
{
    static std::optional<korvane::test::TestSeat> seat;
    return seat;
}

} // namespace

korvane::test::TestSeat& korvane::test::seat()
{
    return *hands(); // NOLINT(bugprone-unchecked-optional-access): made before the first test
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
        std::fputs(
            "korvane-layer-tests: WAYLAND_DISPLAY is not set; these tests need a compositor.\n",
            stderr);
        return 1;
    }
    if (!hands().emplace().isReady()) {
        std::fputs("korvane-layer-tests: the compositor gives no devices.\n", stderr);
        return 1;
    }
    qputenv("QT_QPA_PLATFORM", "wayland");
    korvane::LayerShell::prepareToolkit();
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    korvane::Observable<bool> systemIsDark { false };
    korvane::Observable<bool> isAnimated { false };
    const korvane::ApplicationTheme theme(systemIsDark, isAnimated);
    const int status = RUN_ALL_TESTS();
    hands().reset();
    return status;
}
