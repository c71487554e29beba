#include "look/view/EmojiText.h"

#include "look/view/Fonts.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QRect>

#include <algorithm>
#include <array>
#include <cmath>

namespace korvane {
namespace {

    constexpr QPointF origin { 10, 4 };

    class EmojiTextTest : public testing::Test {
    protected:
        std::unique_ptr<EmojiText> laidOut(
            const QString& text, double width, Qt::LayoutDirection direction = Qt::LeftToRight)
        {
            QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
            option.setTextDirection(direction);
            option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
            auto result = std::make_unique<EmojiText>(text, textFont(12), option, pictures);
            auto& layout = result->layout();
            layout.beginLayout();
            for (auto line = layout.createLine(); line.isValid(); line = layout.createLine())
                line.setLineWidth(width);
            layout.endLayout();
            return result;
        }
        double widthOf(const QString& text)
        {
            return laidOut(text, 1000)->layout().lineAt(0).naturalTextWidth();
        }
        QImage pictureOf(const EmojiText& text)
        {
            QImage picture(240, 32, QImage::Format_ARGB32_Premultiplied);
            picture.fill(Qt::white);
            QPainter painter(&picture);
            painter.setPen(Qt::black);
            text.drawLine(painter, 0, origin);
            return picture;
        }
        /// The columns in which something coloured stands, from the first to the last.
        static QRect coloured(const QImage& picture)
        {
            QRect found;
            for (int y = 0; y < picture.height(); ++y) {
                for (int x = 0; x < picture.width(); ++x) {
                    const auto [red, green, blue] = std::array { picture.pixelColor(x, y).red(),
                        picture.pixelColor(x, y).green(), picture.pixelColor(x, y).blue() };
                    if (std::max({ red, green, blue }) - std::min({ red, green, blue }) > 30)
                        found |= QRect(x, y, 1, 1);
                }
            }
            return found;
        }

        EmojiPictures pictures;
    };

    TEST_F(EmojiTextTest, AnEmojiOfSeveralCodePointsIsAsWideAsOneOfOne)
    {
        const auto one = widthOf(QStringLiteral("😀"));
        EXPECT_GT(one, 8);
        for (const auto* emoji :
            { u"❤️", u"1️⃣", u"🇩🇪", u"👍🏽", u"👩‍👩‍👧‍👦",
                u"🏳️‍🌈", u"🏃‍♀️", u"👩‍❤️‍👨" })
            EXPECT_NEAR(widthOf(QString::fromUtf16(emoji)), one, 0.1)
                << QString::fromUtf16(emoji).toStdString();
    }

    TEST_F(EmojiTextTest, ASignThatAsksForAPictureIsColouredAndOneThatDoesNotIsALetter)
    {
        EXPECT_FALSE(coloured(pictureOf(*laidOut(QStringLiteral("❤️"), 200))).isEmpty());
        EXPECT_TRUE(coloured(pictureOf(*laidOut(QStringLiteral("♥ ☎"), 200))).isEmpty());
    }

    TEST_F(EmojiTextTest, AnEmojiStandsWhereItsRoomIs)
    {
        const auto text = laidOut(QStringLiteral("mm❤️mm"), 200);
        const auto line = text->layout().lineAt(0);

        const auto heart = coloured(pictureOf(*text));

        EXPECT_GE(heart.left(), std::floor(origin.x() + line.cursorToX(2)));
        EXPECT_LE(heart.right(), std::ceil(origin.x() + line.cursorToX(4)));
        EXPECT_GT(heart.width(), 8);
    }

    TEST_F(EmojiTextTest, InATextFromRightToLeftTooWhereItIsTheThirdFromTheRight)
    {
        const auto text = laidOut(QStringLiteral("אב❤️גד"), 200, Qt::RightToLeft);
        const auto line = text->layout().lineAt(0);

        const auto heart = coloured(pictureOf(*text));

        EXPECT_LT(line.cursorToX(4), line.cursorToX(2));
        EXPECT_GE(heart.left(), std::floor(origin.x() + line.cursorToX(4)));
        EXPECT_LE(heart.right(), std::ceil(origin.x() + line.cursorToX(2)));
        EXPECT_GT(heart.width(), 8);
    }

    TEST_F(EmojiTextTest, AFlagAndAKeycapStandBetweenTheWordsOnBothSidesOfThem)
    {
        for (const auto* emoji : { u"🇩🇪", u"1️⃣", u"❤️", u"👍🏽", u"🏳️‍🌈",
                 u"👩🏽‍❤️‍💋‍👨🏿" }) {
            const auto shown = QString::fromUtf16(emoji);
            for (const auto direction : { Qt::LeftToRight, Qt::RightToLeft }) {
                const auto text = laidOut(
                    QStringLiteral("אבא ") + shown + QStringLiteral(" דגד"), 200, direction);
                const auto line = text->layout().lineAt(0);
                const auto found = coloured(pictureOf(*text));
                // Between the two blanks around it, so that it covers no letter.
                const auto oneEnd = origin.x() + line.cursorToX(4);
                const auto otherEnd
                    = origin.x() + line.cursorToX(4 + static_cast<int>(shown.size()));

                EXPECT_GE(found.left(), std::floor(std::min(oneEnd, otherEnd)))
                    << shown.toStdString() << direction;
                EXPECT_LE(found.right(), std::ceil(std::max(oneEnd, otherEnd)))
                    << shown.toStdString() << direction;
                EXPECT_GT(found.width(), 6) << shown.toStdString() << direction;
            }
        }
    }

    TEST_F(EmojiTextTest, BetweenArabicDigitsTooAnEmojiCoversNoOther)
    {
        const auto text = laidOut(QStringLiteral("\u0663 😀 \u0662"), 200);
        const auto line = text->layout().lineAt(0);

        const auto face = coloured(pictureOf(*text));

        EXPECT_GE(face.left(), std::floor(origin.x() + line.cursorToX(4)));
        EXPECT_LE(face.right(), std::ceil(origin.x() + line.cursorToX(2)));
        EXPECT_GT(face.width(), 8);
    }

    TEST_F(EmojiTextTest, InALineFromRightToLeftWithoutALetterTheyStandFromTheRight)
    {
        const auto text = laidOut(QStringLiteral("❤️❤️"), 200, Qt::RightToLeft);
        const auto line = text->layout().lineAt(0);

        const auto found = coloured(pictureOf(*text));

        EXPECT_GE(found.left(), std::floor(origin.x() + line.cursorToX(4)));
        EXPECT_LE(found.right(), std::ceil(origin.x() + line.cursorToX(0)));
        EXPECT_GT(found.width(), 20);
    }

    TEST_F(EmojiTextTest, ManyDifferentEmojiAreNotKeptForEver)
    {
        const auto first = pictures.pictureOf(QStringLiteral("😀"), textFont(12));
        EXPECT_EQ(pictures.pictureOf(QStringLiteral("😀"), textFont(12)), first);

        for (int size = 0; size < 2000; ++size) {
            auto font = textFont(12);
            font.setPixelSize(20 + size);
            pictures.pictureOf(QStringLiteral("☕"), font);
        }

        EXPECT_NE(pictures.pictureOf(QStringLiteral("😀"), textFont(12)), first);
    }

    TEST_F(EmojiTextTest, AnEmojiUnderATowerOfMarksIsNotKept)
    {
        const auto tower = QStringLiteral("😀") + QString(100, QChar(0x0301));

        EXPECT_NE(pictures.pictureOf(tower, textFont(12)), pictures.pictureOf(tower, textFont(12)));
    }

    TEST_F(EmojiTextTest, ALineEndsBetweenTwoEmojiAndNeverWithinOne)
    {
        const auto family = QStringLiteral("👩‍👩‍👧‍👦");
        const auto text = laidOut(family.repeated(9), 4.5 * widthOf(family));

        ASSERT_EQ(text->layout().lineCount(), 3);
        EXPECT_EQ(text->layout().lineAt(0).textLength(), 4 * family.size());
        EXPECT_EQ(text->layout().lineAt(1).textLength(), 4 * family.size());
    }

} // namespace
} // namespace korvane
