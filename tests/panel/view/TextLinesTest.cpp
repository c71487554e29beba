#include "panel/view/TextLines.h"

#include "look/view/Fonts.h"
#include "panel/view/PanelMetrics.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace korvane {
namespace {

    constexpr double width = 460;

    TextLines::Look look()
    {
        return { textFont(12), 28, true };
    }
    QImage pictureOf(const TextLines& lines)
    {
        QImage picture(static_cast<int>(width), static_cast<int>(lines.height()),
            QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.setPen(Qt::black);
        lines.draw(painter, picture.rect());
        return picture;
    }
    /// The same by the toolkit in one piece.
    QImage pictureInOnePiece(const QString& paragraph, int height)
    {
        QTextLayout layout(paragraph, textFont(12));
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        option.setTextDirection(Qt::LeftToRight);
        option.setTabStopDistance(28);
        layout.setTextOption(option);
        double y = 0;
        layout.beginLayout();
        for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            const double high = std::max(std::ceil(line.height()), 18.0);
            line.setPosition({ 0, y + std::round((high - line.height()) / 2) });
            y += high;
        }
        layout.endLayout();
        QImage picture(static_cast<int>(width), height, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.setPen(Qt::black);
        layout.draw(&painter, {});
        return picture;
    }

    TEST(TextLinesTest, ALongParagraphBreaksWhereTheToolkitBreaksItInOnePiece)
    {
        const QStringList paragraphs { QString(16384, u'x'),
            QStringLiteral("window harbour letter, morning-quiet river ").repeated(300),
            QStringLiteral("word ").repeated(100) + QString(9000, u'W')
                + QStringLiteral(" and more").repeated(300),
            QStringLiteral("剪贴板里的每一段文字都会被记住。").repeated(300),
            QStringLiteral("\ttabs\tin between ").repeated(400), QString(5000, u' ') };
        for (const auto& paragraph : paragraphs) {
            EmojiPictures pictures;
            const TextLines lines(paragraph, look(), width, pictures);

            const auto picture = pictureOf(lines);

            EXPECT_EQ(picture, pictureInOnePiece(paragraph, picture.height()))
                << paragraph.left(12).toStdString();
        }
    }

    TEST(TextLinesTest, NoHalfOfACharacterIsShownWhereALongParagraphIsDivided)
    {
        // In one piece the toolkit itself cuts a character in two after 4096 units, deliberately less here.
        for (int before = 0; before < 4; ++before) {
            const auto paragraph
                = QString(before, u'x') + QStringLiteral("👩‍👩‍👧‍👦").repeated(300);
            EmojiPictures pictures;
            const auto picture = pictureOf(TextLines(paragraph, look(), width, pictures));

            EXPECT_EQ(picture, pictureInOnePiece(paragraph, picture.height())) << before;
        }
    }

    TEST(TextLinesTest, ALetterUnderThousandsOfMarksIsOneLine)
    {
        const auto tower = QStringLiteral("a") + QString(5000, QChar(0x0301));

        EmojiPictures pictures;
        EXPECT_LE(
            TextLines(tower, look(), width, pictures).height(), 2 * metrics::previewLineHeight);
        EXPECT_LE(TextLines(tower + QStringLiteral(" b"), look(), width, pictures).height(),
            2 * metrics::previewLineHeight);
    }

} // namespace
} // namespace korvane
