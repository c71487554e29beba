#include "app/view/ApplicationTheme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QStyle>

namespace korvane {
namespace {

    ColourScheme shown()
    {
        return schemeOf(QApplication::palette());
    }

    struct ThemeFixture {
        ~ThemeFixture() { theme.apply(Theme::light); }

        Observable<bool> systemIsDark { false };
        ApplicationTheme theme { systemIsDark };
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
