#include "look/view/Fonts.h"

#include <gtest/gtest.h>

#include <QFontInfo>
#include <QGuiApplication>

namespace korvane {
namespace {

    TEST(FontsTest, ItIsTheDesktopsOwnInTheSizeOfThePanel)
    {
        const auto font = textFont(10.5, QFont::Medium);

        EXPECT_EQ(font.family(), QGuiApplication::font().family());
        EXPECT_EQ(font.weight(), QFont::Medium);
        EXPECT_NEAR(QFontInfo(textFont(14)).pixelSize(), 14, 0.5);
    }

} // namespace
} // namespace korvane
