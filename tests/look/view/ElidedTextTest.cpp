#include "look/view/ElidedText.h"

#include "look/view/Fonts.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QString>
#include <QStringList>

namespace korvane {
namespace {

    struct ElidedTextTest : testing::Test {
        QFontMetricsF font { textFont(13) };
    };

    TEST_F(ElidedTextTest, ATextThatHasRoomStaysWhole)
    {
        const auto text = QStringLiteral("a short title");

        EXPECT_EQ(elidedText(text, font, font.horizontalAdvance(text) + 1), text);
        EXPECT_EQ(elidedText(QString(), font, 100), QString());
    }

    TEST_F(ElidedTextTest, ItEndsWhereTheToolkitsOwnEnds)
    {
        const QStringList texts { QString(800, u'i'), QString(800, u'W'),
            QStringLiteral("one word after the other and no end in sight, ").repeated(12),
            QStringLiteral("e\u0301").repeated(200), QStringLiteral("שלום עולם ").repeated(40),
            QStringLiteral("剪贴板里的每一段文字").repeated(30) };
        for (const auto& text : texts) {
            for (const double width : { 0.0, 7.0, 60.0, 250.0, 318.5, 2000.0 })
                EXPECT_EQ(
                    elidedText(text, font, width), font.elidedText(text, Qt::ElideRight, width))
                    << text.left(10).toStdString() << " in " << width;
        }
    }

    TEST_F(ElidedTextTest, ItNeverTakesMoreRoomThanThereIs)
    {
        const auto families = QStringLiteral("👩‍👩‍👧‍👦👍🏽").repeated(40);
        for (const double width : { 40.0, 100.0, 250.0 }) {
            const auto shown = elidedText(families, font, width);
            EXPECT_TRUE(shown.endsWith(u'…'));
            EXPECT_LE(font.horizontalAdvance(shown), width);
        }
    }

    TEST_F(ElidedTextTest, OneEndlessCharacterIsNoEndlessLoop)
    {
        const auto text = QStringLiteral("a") + QString(700, QChar(0x0301));

        EXPECT_EQ(elidedText(text, font, 200), font.elidedText(text, Qt::ElideRight, 200));
    }

} // namespace
} // namespace korvane
