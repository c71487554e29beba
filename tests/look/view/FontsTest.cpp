#include "look/view/Fonts.h"

#include <gtest/gtest.h>

#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>

namespace korvane {
namespace {

    TEST(FontsTest, ItIsTheDesktopsOwnInTheSizeOfThePanel)
    {
        const auto font = textFont(10.5, QFont::Medium);

        EXPECT_EQ(font.family(), QGuiApplication::font().family());
        EXPECT_EQ(font.weight(), QFont::Medium);
        EXPECT_NEAR(QFontInfo(textFont(14)).pixelSize(), 14, 0.5);
    }

    TEST(FontsTest, ItIsMeasuredForTheScreenEvenIfTheToolkitMadeItsOwnForAnother)
    {
        const QFont toolkits = QGuiApplication::font();
        const double width = QFontMetricsF(textFont(12)).horizontalAdvance("Search");
        QImage finer(1, 1, QImage::Format_ARGB32_Premultiplied);
        finer.setDotsPerMeterX(2 * finer.dotsPerMeterX());
        finer.setDotsPerMeterY(2 * finer.dotsPerMeterY());

        QGuiApplication::setFont(QFont(toolkits, &finer));
        const double then = QFontMetricsF(textFont(12)).horizontalAdvance("Search");
        QGuiApplication::setFont(toolkits);

        EXPECT_EQ(then, width);
    }

} // namespace
} // namespace korvane
