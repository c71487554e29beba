#include "panel/view/TitlePainter.h"

#include "look/view/Fonts.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

namespace korvane {
namespace {

    constexpr QRect place(20, 10, 120, 20);

    QImage painted(const QString& title)
    {
        QImage picture(200, 40, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.setPen(Qt::black);
        painter.setFont(textFont(13));
        TitlePainter().draw(painter, place, title);
        return picture;
    }
    QRect inked(const QImage& picture)
    {
        QRect found;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) != Qt::white)
                    found |= QRect(x, y, 1, 1);
            }
        }
        return found;
    }

    TEST(TitlePainterTest, ATitleWithEmojiBeginsAtTheLeftEdgeAndInTheMiddleOfTheHeight)
    {
        for (const auto* title : { u"Well 😀", u"שלום 😀" }) {
            const auto ink = inked(painted(QString::fromUtf16(title)));

            EXPECT_NEAR(ink.left(), place.left(), 2);
            EXPECT_NEAR(ink.center().y(), place.center().y(), 2);
            EXPECT_LT(ink.right(), place.center().x());
        }
    }

    TEST(TitlePainterTest, OneThatIsTooLongGivesWayToAnEllipsisWithinThePlace)
    {
        for (const auto& title :
            { QStringLiteral("😀").repeated(50), QStringLiteral("❤️ a word ").repeated(20),
                QStringLiteral("😀") + QString(5000, u'i') }) {
            const auto picture = painted(title);
            const auto ink = inked(picture);

            EXPECT_GE(ink.left(), place.left() - 1);
            EXPECT_LE(ink.right(), place.right() + 1);
            EXPECT_GT(ink.right(), place.right() - 24);
            // The ellipsis stands on the base line at the end, and nothing above it.
            const auto end = inked(picture.copy(ink.right() - 8, 0, 9, picture.height()));
            EXPECT_LE(end.height(), 4);
        }
    }

    TEST(TitlePainterTest, FromRightToLeftTheEllipsisStandsAtTheLeft)
    {
        const auto picture = painted(QStringLiteral("שלום 😀 עולם ").repeated(9));
        const auto ink = inked(picture);

        EXPECT_LE(ink.right(), place.right() + 1);
        const auto end = inked(picture.copy(ink.left(), 0, 9, picture.height()));
        EXPECT_LE(end.height(), 4);
    }

    TEST(TitlePainterTest, ATitleThatHasJustRoomKeepsItsEnd)
    {
        const auto whole = painted(QStringLiteral("😀😀😀"));

        EXPECT_GT(inked(whole).height(), 8);
        EXPECT_LT(inked(whole).right(), place.right() - 40);
    }

} // namespace
} // namespace korvane
