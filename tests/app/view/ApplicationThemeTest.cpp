#include "app/view/ApplicationTheme.h"

#include "look/view/Colours.h"
#include "look/view/EasedValue.h"
#include "panel/view/ClipPanelView.h"
#include "panel/view/PanelMetrics.h"
#include "panel/view/ViewFixture.h"
#include "support/Input.h"
#include "support/ManualLoop.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QStyle>
#include <QWidget>

namespace korvane {
namespace {

    using namespace std::chrono_literals;

    ColourScheme shown()
    {
        return schemeOf(QApplication::palette());
    }

    struct ThemeFixture {
        ~ThemeFixture()
        {
            theme.apply(Theme::light);
            isAnimated.set(true);
        }

        Observable<bool> systemIsDark { false };
        Observable<bool> isAnimated { true };
        ApplicationTheme theme { systemIsDark, isAnimated };
    };

    TEST(ApplicationThemeTest, AChosenThemeHoldsWhateverTheDesktopPrefers)
    {
        ThemeFixture f;

        f.theme.apply(Theme::dark);
        EXPECT_EQ(shown(), ColourScheme::dark);
        f.systemIsDark.set(true);
        f.theme.apply(Theme::light);

        EXPECT_EQ(shown(), ColourScheme::light);
    }

    TEST(ApplicationThemeTest, NothingMovesWhereTheDesktopWantsNoAnimations)
    {
        ThemeFixture f;
        test::ManualLoop loop;
        int steps = 0;
        QWidget widget;
        EasedValue value { loop, widget, 0, [&steps] { ++steps; } };

        f.isAnimated.set(false);
        value.goTo(1, std::chrono::milliseconds { 200 });
        EXPECT_EQ(value.value(), 1);
        EXPECT_EQ(steps, 1);

        f.isAnimated.set(true);
        value.goTo(0, std::chrono::milliseconds { 200 });
        EXPECT_EQ(value.value(), 1);
        loop.advance(std::chrono::milliseconds { 220 });
        EXPECT_EQ(value.value(), 0);
        EXPECT_GT(steps, 5);
    }

    struct StillPanelFixture : test::ViewFixture {
        StillPanelFixture()
        {
            theme.isAnimated.set(false);
            addNumbered(50);
            view.resize(metrics::panelWidth, 470);
            view.show();
            test::settle();
        }

        ThemeFixture theme;
        ClipPanelView view { store, controller, loop, {} };
    };

    TEST(ApplicationThemeTest,
        WithoutAnimationsTheChipIsAtItsTabAtOnceAndTheRowsStandUntilTheNewCome)
    {
        StillPanelFixture f;
        const double chosen = f.view.tabs().chip(FilterTab::all).width();
        const auto before = f.view.list().grab().toImage();

        f.controller.switchTab(FilterTab::code);

        EXPECT_NEAR(f.view.tabs().chip(FilterTab::all).width(), 29, 0.01);
        EXPECT_GT(f.view.tabs().chip(FilterTab::code).width(), chosen);
        f.loop.advance(220ms);
        EXPECT_EQ(f.view.list().grab().toImage(), before);
        f.loop.advance(20ms);
        EXPECT_NE(f.view.list().grab().toImage(), before);
        EXPECT_EQ(f.panel().panelFilterTab.value(), FilterTab::code);
    }

    TEST(ApplicationThemeTest, WithoutAnimationsAClickOnAChevronIsThereAtOnce)
    {
        StillPanelFixture f;
        f.preferences.set(keys::chevronActivation, std::string("click"));

        test::click(f.view.chevrons().down(), { 14, 10 });

        EXPECT_EQ(f.view.list().offset(), 200);
    }

    TEST(ApplicationThemeTest, TheAutomaticThemeFollowsTheDesktop)
    {
        ThemeFixture f;
        f.theme.apply(Theme::automatic);
        EXPECT_EQ(shown(), ColourScheme::light);

        f.systemIsDark.set(true);
        EXPECT_EQ(shown(), ColourScheme::dark);

        f.systemIsDark.set(false);
        EXPECT_EQ(shown(), ColourScheme::light);
    }

    TEST(ApplicationThemeTest, ControlsHighlightInTheAccent)
    {
        for (const auto scheme : { ColourScheme::light, ColourScheme::dark }) {
            EXPECT_EQ(applicationPalette(scheme).color(QPalette::Highlight), QColor(28, 158, 117));
            EXPECT_EQ(schemeOf(applicationPalette(scheme)), scheme);
        }
    }

    TEST(ApplicationThemeTest, ACursorThatBlinksWouldRepaintAnIdlePanel)
    {
        const ThemeFixture f;

        EXPECT_EQ(QApplication::cursorFlashTime(), 0);
    }

} // namespace
} // namespace korvane
