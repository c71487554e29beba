// The tests of the backends need a real X server with nobody's clipboard on it, and the toolkit's
// application object on it.
#include <QApplication>

#include <gtest/gtest.h>

#include <cstdio>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        std::fputs(
            "korvane-platform-tests: DISPLAY is not set; these tests need an X server.\n", stderr);
        return 1;
    }
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("korvane"));
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
