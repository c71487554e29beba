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

    TEST(TitlePainterTest, LettersStandOnTheSameLineWithAnEmojiAndWithout)
    {
        for (const double ratio : { 1.0, 1.25, 1.5, 2.0 }) {
            for (const double top : { 8.0, 8.5, 10.0 }) {
                const auto lettersOf = [&](const QString& title) {
                    QImage picture(
                        (QSizeF(200, 40) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
                    picture.setDevicePixelRatio(ratio);
                    picture.fill(Qt::white);
                    QPainter painter(&picture);
                    painter.setFont(textFont(13));
                    TitlePainter().draw(painter, QRectF(20, top, 120, 17), title);
                    painter.end();
                    picture.setDevicePixelRatio(1);
                    return inked(
                        picture.copy(0, 0, static_cast<int>(28 * ratio), picture.height()));
                };

                const auto plain = lettersOf(QStringLiteral("EE"));
                const auto besideEmoji = lettersOf(QStringLiteral("EE 😀"));

                EXPECT_EQ(besideEmoji.top(), plain.top()) << ratio << " " << top;
                EXPECT_EQ(besideEmoji.bottom(), plain.bottom()) << ratio << " " << top;
            }
        }
    }

    TEST(TitlePainterTest, ATitleThatHasJustRoomKeepsItsEnd)
    {
        EmojiPictures pictures;
        const auto title = QStringLiteral("Wow 😀🎉");
        QTextOption option;
        EmojiText laidOut(title, textFont(13), option, pictures);
        laidOut.layout().beginLayout();
        auto line = laidOut.layout().createLine();
        line.setLineWidth(1000);
        laidOut.layout().endLayout();
        const auto needed = line.naturalTextWidth();
        const auto paintedIn = [&title](double width) {
            QImage picture(200, 40, QImage::Format_ARGB32_Premultiplied);
            picture.fill(Qt::white);
            QPainter painter(&picture);
            painter.setFont(textFont(13));
            TitlePainter().draw(painter, QRectF(place.left(), place.top(), width, 20), title);
            return picture;
        };

        EXPECT_EQ(paintedIn(needed + 0.5), paintedIn(needed + 50));
        EXPECT_NE(paintedIn(needed - 1), paintedIn(needed + 50));
    }

    TEST(TitlePainterTest, OneInTheMiddleHasAsMuchRoomOnBothSides)
    {
        for (const auto* title : { u"Well 😀😀", u"Well, well" }) {
            QImage picture(200, 40, QImage::Format_ARGB32_Premultiplied);
            picture.fill(Qt::white);
            QPainter painter(&picture);
            painter.setFont(textFont(13));
            TitlePainter().draw(painter, place, QString::fromUtf16(title), Qt::AlignHCenter);

            EXPECT_NEAR(inked(picture).center().x(), place.center().x(), 2);
        }
    }

} // namespace
} // namespace korvane
