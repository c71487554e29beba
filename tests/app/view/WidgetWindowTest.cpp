#include "app/view/WidgetWindow.h"

#include "app/view/PanelShadow.h"
#include "app/view/StageOfWindows.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <QWindow>

#include <string>
#include <vector>

namespace korvane {
namespace {

    struct PlacedFixture {
        Observable<bool> isComposited { false };
        ScreenGeometry screen { 0, 0, 900 };
        std::vector<std::string> asked;
        StageOfWindows stage { { [this](std::uint32_t) {
                                    asked.emplace_back(
                                        window.isVisible() ? "take, visible" : "take, hidden");
                                },
            [this] {
                asked.emplace_back(window.isVisible() ? "give, visible" : "give, hidden");
            } } };
        WidgetWindow window { std::make_unique<KorPanel>(isComposited), [this] { return screen; },
            stage };
    };

    TEST(WidgetWindowTest, AFrameCountsUpwardFromTheScreensBottom)
    {
        PlacedFixture f;

        f.window.setFrame({ 1072, 203, 360, 670 });

        EXPECT_EQ(f.window.panel().visibleFrame(), QRect(1072, 900 - 203 - 670, 360, 670));
        EXPECT_EQ(f.window.frame(), (Rect { 1072, 203, 360, 670 }));
    }

    TEST(WidgetWindowTest, AFrameIsRelativeToTheScreenThatItIsOn)
    {
        PlacedFixture f;
        f.screen = { 1920, 300, 1080 };

        f.window.setFrame({ 100, 200, 360, 400 });

        EXPECT_EQ(f.window.panel().visibleFrame(), QRect(2020, 300 + 1080 - 200 - 400, 360, 400));
        EXPECT_EQ(f.window.frame(), (Rect { 100, 200, 360, 400 }));
    }

    TEST(WidgetWindowTest, TheShadowLiesOutsideTheFrame)
    {
        PlacedFixture f;
        f.isComposited.set(true);

        f.window.setFrame({ 100, 200, 360, 400 });

        EXPECT_EQ(f.window.frame(), (Rect { 100, 200, 360, 400 }));
        EXPECT_EQ(f.window.panel().geometry(),
            QRect(100, 300, 360, 400).marginsAdded(PanelShadow::margins()));
    }

    TEST(WidgetWindowTest, ItTakesTheKeyboardWhenItIsShownAndGivesItBackBeforeItGoes)
    {
        PlacedFixture f;

        f.window.show();
        f.window.hide();

        EXPECT_EQ(f.asked, (std::vector<std::string> { "take, visible", "give, visible" }));
        EXPECT_FALSE(f.window.isVisible());
    }

    TEST(WidgetWindowTest, HidingAHiddenWindowGivesNothingBack)
    {
        PlacedFixture f;

        f.window.hide();

        EXPECT_TRUE(f.asked.empty());
    }

    TEST(WidgetWindowTest, ThePointersArrivalTakesTheKeyboardAgain)
    {
        PlacedFixture f;
        f.window.show();
        f.asked.clear();

        QEnterEvent enter({ 5, 5 }, { 5, 5 }, { 5, 5 });
        QApplication::sendEvent(f.window.panel().windowHandle(), &enter);

        EXPECT_EQ(f.asked, (std::vector<std::string> { "take, visible" }));
    }

    TEST(WidgetWindowTest, ItCanBeShownAgain)
    {
        PlacedFixture f;
        f.window.show();
        f.window.hide();

        f.window.show();

        EXPECT_TRUE(f.window.isVisible());
    }

} // namespace
} // namespace korvane
