#include "panel/view/ClipRowView.h"

#include "look/view/Colours.h"
#include "look/view/Symbols.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

namespace korvane {
namespace {

    struct RowFixture {
        QImage paint(const ClipRow& shown)
        {
            QImage image(348, 48, QImage::Format_ARGB32_Premultiplied);
            image.fill(coloursOf(ColourScheme::light).panel);
            QPainter painter(&image);
            view.paint(painter, image.rect(), shown, {}, palette);
            return image;
        }
        /// How long the shortest of a few paintings took.
        std::chrono::nanoseconds timeToPaint(const ClipItem& painted)
        {
            std::chrono::nanoseconds best = std::chrono::hours { 1 };
            for (int run = 0; run < 7; ++run) {
                QElapsedTimer timer;
                timer.start();
                paint({ .clip = painted });
                best = std::min(best, std::chrono::nanoseconds { timer.nsecsElapsed() });
            }
            return best;
        }

        QPalette palette { Qt::white };
        Symbols symbols;
        ClipRowView view { symbols };
        ClipItem clip;
    };

    /// Whether a pixel has the colour, but for what is lost at the edge of a thin line.
    bool hasColour(const QImage& image, const QRect& within, const QColor& colour)
    {
        for (int y = within.top(); y <= within.bottom(); ++y) {
            for (int x = within.left(); x <= within.right(); ++x) {
                const auto pixel = image.pixelColor(x, y);
                if (std::abs(pixel.red() - colour.red()) < 30
                    && std::abs(pixel.green() - colour.green()) < 30
                    && std::abs(pixel.blue() - colour.blue()) < 30)
                    return true;
            }
        }
        return false;
    }

    TEST(ClipRowViewTest, EveryTypeHasItsSymbol)
    {
        EXPECT_EQ(symbolOf(ClipType::plainText), "text.alignleft");
        EXPECT_EQ(symbolOf(ClipType::url), "link");
        EXPECT_EQ(symbolOf(ClipType::email), "envelope");
        EXPECT_EQ(symbolOf(ClipType::code), "chevron.left.forwardslash.chevron.right");
        EXPECT_EQ(symbolOf(ClipType::file), "doc");
    }

    TEST(ClipRowViewTest, APinnedClipHasAnOrangePin)
    {
        RowFixture f;
        f.clip.text = "text";
        const QRect marks(250, 0, 98, 48);
        const auto orange = coloursOf(ColourScheme::light).orange;

        EXPECT_FALSE(hasColour(f.paint({ .clip = f.clip }), marks, orange));
        f.clip.isPinned = true;

        EXPECT_TRUE(hasColour(f.paint({ .clip = f.clip }), marks, orange));
    }

    TEST(ClipRowViewTest, TheFirstTenRowsHaveABadgeAndTheEleventhHasNone)
    {
        RowFixture f;
        f.clip.text = "text";

        const auto tenth
            = f.view.titleRect({ 0, 0, 348, 48 }, { .clip = f.clip, .shortcutIndex = 9 });
        const auto eleventh
            = f.view.titleRect({ 0, 0, 348, 48 }, { .clip = f.clip, .shortcutIndex = 10 });

        EXPECT_LT(tenth.right(), eleventh.right());
        EXPECT_EQ(eleventh.right(), 348 - 9);
    }

    TEST(ClipRowViewTest, EveryMarkTakesRoomFromTheTitle)
    {
        RowFixture f;
        const auto width = [&f] {
            return f.view.titleRect({ 0, 0, 348, 48 }, { .clip = f.clip }).width();
        };
        const auto plain = width();

        f.clip.isPinned = true;
        const auto pinned = width();
        f.clip.isOverflow = true;

        EXPECT_EQ(pinned, plain - 19);
        EXPECT_EQ(width(), plain - 38);
    }

    TEST(ClipRowViewTest, ATitleThatIsTooLongStaysClearOfTheMarks)
    {
        RowFixture f;
        f.clip.text = std::string(400, 'W');
        const auto title = f.view.titleRect({ 0, 0, 348, 48 }, { .clip = f.clip });

        const auto image = f.paint({ .clip = f.clip });

        const auto ink = coloursOf(ColourScheme::light).text;
        EXPECT_TRUE(hasColour(image, title.toAlignedRect(), ink));
        EXPECT_FALSE(hasColour(
            image, QRect(QPoint(static_cast<int>(title.right()) + 1, 0), QPoint(347, 47)), ink));
    }

    TEST(ClipRowViewTest, AMegabyteOnOneLineCostsLittleMoreThanAShortText)
    {
        RowFixture f;
        f.clip.text = std::string(300, 'a');
        const auto shortText = f.timeToPaint(f.clip);

        f.clip.text = std::string(1 << 20, 'a');

        EXPECT_LT(f.timeToPaint(f.clip), 3 * shortText + std::chrono::milliseconds { 1 });
    }

    TEST(ClipRowViewTest, NoTextTroublesIt)
    {
        RowFixture f;
        std::string marks = "a";
        for (int count = 0; count < 100'000; ++count)
            marks += "\u0301";
        for (const auto& text :
            std::vector<std::string> { "", " \n\t ", std::string("a\0b", 3), "\x1b[31m", "\u202e",
                "שלום עולם", "👩‍👩‍👧‍👦🏳️‍🌈", marks, "\xff\xfe" }) {
            f.clip.text = text;
            EXPECT_FALSE(f.paint({ .clip = f.clip }).isNull());
        }
    }

    TEST(ClipRowViewTest, ATitleBeginsWhereItsScriptDoes)
    {
        RowFixture f;
        f.clip.text = "abc שלום";
        const auto fromTheLeft = f.paint({ .clip = f.clip });
        f.clip.text = "שלום abc"; // read from the right, the Latin word stands at the left

        EXPECT_EQ(f.paint({ .clip = f.clip }), fromTheLeft);
    }

    TEST(ClipRowViewTest, AFileThatIsGoneLooksGone)
    {
        RowFixture f;
        f.clip.type = ClipType::file;
        f.clip.text = "/tmp/figures.ods";
        const QRectF row(0, 0, 348, 48);
        const auto there = f.paint({ .clip = f.clip });
        const auto gone = f.paint({ .clip = f.clip, .isMissing = true });

        const QRect kind(9, 10, 28, 28);
        EXPECT_NE(gone.copy(kind), there.copy(kind)); // another symbol
        const auto& colours = coloursOf(ColourScheme::light);
        const auto title = f.view.titleRect(row, { .clip = f.clip }).toAlignedRect();
        EXPECT_TRUE(hasColour(there, title, colours.text));
        EXPECT_NE(gone.copy(title), there.copy(title));
        EXPECT_EQ(f.view.toolTipAt({ 20, 24 }, row, { .clip = f.clip, .isMissing = true }).text,
            "The file is no longer there");
        EXPECT_TRUE(f.view.toolTipAt({ 20, 24 }, row, { .clip = f.clip }).text.empty());
        EXPECT_TRUE(
            f.view.toolTipAt({ 200, 24 }, row, { .clip = f.clip, .isMissing = true }).text.empty());
    }

    TEST(ClipRowViewTest, ATowerOfMarksOnOneLetterStaysInItsRow)
    {
        RowFixture f;
        for (const int count : { 5, 30, 100, 390, 1000 }) {
            f.clip.text = "a";
            for (int mark = 0; mark < count; ++mark)
                f.clip.text += "\u0301";
            QImage image(348, 448, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::white);
            QPainter painter(&image);
            f.view.paint(painter, { 0, 200, 348, 48 }, { .clip = f.clip }, {}, f.palette);
            painter.end();

            QImage around = image;
            QPainter(&around).fillRect(0, 200, 348, 48, Qt::white);
            QImage white = image;
            white.fill(Qt::white);
            EXPECT_EQ(around, white) << count;
            EXPECT_NE(image, white) << count;
        }
    }

    TEST(ClipRowViewTest, ALongApplicationNameGivesWayToAgeAndSize)
    {
        RowFixture f;
        f.clip.text = "text";
        f.clip.sourceApp = std::string(300, 'W');
        const auto title = f.view.titleRect({ 0, 0, 348, 48 }, { .clip = f.clip });

        const auto image = f.paint({ .clip = f.clip });

        const QRect beyond(QPoint(static_cast<int>(title.right()) + 1, 24), QPoint(347, 38));
        const QRect end(QPoint(static_cast<int>(title.right()) - 30, 24),
            QPoint(static_cast<int>(title.right()), 40));
        const auto ink = coloursOf(ColourScheme::light).secondary;
        EXPECT_TRUE(hasColour(image, end, ink));
        EXPECT_FALSE(hasColour(image, beyond.adjusted(2, 0, -32, 0), ink));
    }

    TEST(ClipRowViewTest, ARowThatIsRenamedShowsNoTitle)
    {
        RowFixture f;
        f.clip.text = std::string(100, 'W');
        const auto title = f.view.titleRect({ 0, 0, 348, 48 }, { .clip = f.clip }).toAlignedRect();

        const auto image = f.paint({ .clip = f.clip, .isRenaming = true });

        EXPECT_FALSE(hasColour(image, title, coloursOf(ColourScheme::light).text));
    }

} // namespace
} // namespace korvane
