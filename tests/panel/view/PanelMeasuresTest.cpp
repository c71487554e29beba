#include "look/view/Colours.h"
#include "look/view/Fonts.h"
#include "look/view/Symbols.h"
#include "panel/view/ClipPanelView.h"
#include "panel/view/ClipRowView.h"
#include "panel/view/PanelMetrics.h"
#include "panel/view/ViewFixture.h"
#include "support/Input.h"
#include "support/PaintRecorder.h"

#include <gtest/gtest.h>

#include <QPainter>

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::PaintRecorder;

    struct PanelMeasures : test::ViewFixture {
        PanelMeasures()
        {
            view.resize(metrics::panelWidth, 480);
            view.show();
            test::settle();
        }

        ClipPanelView view { store, controller, loop, {} };
    };

    void expectFont(const QFont& font, double size, QFont::Weight weight)
    {
        EXPECT_DOUBLE_EQ(font.pointSizeF(), textFont(size).pointSizeF());
        EXPECT_EQ(font.weight(), weight);
    }

    /// From the left edge of a place to the leftmost picture in it.
    double leftPadding(const PaintRecorder& painted, const QRectF& place)
    {
        double least = place.width();
        for (const auto& picture : painted.pictures())
            if (place.contains(picture.center()))
                least = std::min(least, picture.left() - place.left());
        return least;
    }

    TEST(PanelMeasuresTest, TheChosenTabIsAnAccentChipWithASymbolAndAWhiteNameTenPointsFromItsEdges)
    {
        PanelMeasures f;
        const PaintRecorder painted(f.view.tabs());
        const auto chip = f.view.tabs().chip(FilterTab::all);

        const auto grounds = painted.shapesAt(chip);
        ASSERT_EQ(grounds.size(), 1U);
        EXPECT_EQ(grounds.front().fill, QColor(28, 158, 117));
        EXPECT_EQ(grounds.front().radius, 12);
        EXPECT_NEAR(leftPadding(painted, chip), 10, 0.5); // symbols stand on whole pixels
        const auto name = painted.text(QStringLiteral("All"));
        EXPECT_EQ(name.colour, QColor(Qt::white));
        const double end = name.at.x() + QFontMetricsF(name.font).horizontalAdvance("All");
        EXPECT_NEAR(chip.right() - end, 10, 1); // the width is rounded up
    }

    TEST(PanelMeasuresTest, AnotherTabIsAChipOfSixPercentOfTheTextWithItsSymbolAlone)
    {
        PanelMeasures f;
        const PaintRecorder painted(f.view.tabs());
        const auto chip = f.view.tabs().chip(FilterTab::url);

        const auto grounds = painted.shapesAt(chip);
        ASSERT_EQ(grounds.size(), 1U);
        auto expected = coloursOf(f.view.palette()).text;
        expected.setAlphaF(0.06F);
        EXPECT_EQ(grounds.front().fill, expected);
        EXPECT_EQ(grounds.front().radius, 12);
        EXPECT_NEAR(leftPadding(painted, chip), 7, 0.5);
        EXPECT_EQ(chip.width(), 15 + 2 * 7);
        EXPECT_EQ(painted.texts().size(), 1U); // the chosen tab's
    }

    TEST(PanelMeasuresTest, AChipLeavesFivePointsAboveAndBelowItsContents)
    {
        PanelMeasures f;
        const QFontMetricsF font(PaintRecorder(f.view.tabs()).text(QStringLiteral("All")).font);

        const double contents = std::max(15.0, std::ceil(font.height()));

        EXPECT_NEAR(f.view.tabs().chip(FilterTab::all).height(), contents + 2 * 5, 2);
        EXPECT_EQ(f.view.tabs().chip(FilterTab::url).height(),
            f.view.tabs().chip(FilterTab::all).height());
    }

    TEST(PanelMeasuresTest, TheSearchIsWrittenInFourteenPoints)
    {
        PanelMeasures f;

        expectFont(f.view.search().field().font(), 14, QFont::Normal);
        EXPECT_FALSE(f.view.search().field().hasFrame());
    }

    TEST(PanelMeasuresTest, TheProductsNameIsSemiboldInFourteenPoints)
    {
        PanelMeasures f;
        const PaintRecorder painted(f.view.header());

        expectFont(painted.text(QStringLiteral("Korvane")).font, 14, QFont::DemiBold);
        EXPECT_EQ(painted.text(QStringLiteral("PRIVATE")).text, QString());
    }

    TEST(PanelMeasuresTest, ThePrivateBadgeIsBoldInNinePointsWhiteOnOrangeWithItsPaddings)
    {
        PanelMeasures f;
        f.monitor.setPrivateModeEnabled(true);
        const PaintRecorder painted(f.view.header());

        const auto text = painted.text(QStringLiteral("PRIVATE"));
        expectFont(text.font, 9, QFont::Bold);
        EXPECT_EQ(text.colour, QColor(Qt::white));
        const auto badge = f.view.header().badge();
        const auto grounds = painted.shapesAt(badge);
        ASSERT_EQ(grounds.size(), 1U);
        EXPECT_EQ(grounds.front().fill, coloursOf(f.view.palette()).orange);
        EXPECT_EQ(grounds.front().radius, 4);
        const double width = QFontMetricsF(text.font).horizontalAdvance(text.text);
        EXPECT_NEAR(text.at.x() - badge.left(), 5, 0.5); // the width is rounded up
        EXPECT_NEAR(badge.width(), width + 2 * 5, 1);
    }

    struct RowMeasures {
        explicit RowMeasures(const ClipRow& shown)
        {
            QPainter painter(&painted);
            view.paint(painter, row, shown, {}, palette);
        }
        /// Where the row has one of its marks, in this colour; empty where it has none.
        QRectF symbol(std::string_view name, const QColor& colour)
        {
            constexpr double markSize = 13;
            return painted.placeOf(symbols.pixmap(name, markSize, 1, colour));
        }

        QRectF row { 6, 4, 348, 48 };
        QPalette palette { Qt::white };
        Symbols symbols;
        ClipRowView view { symbols };
        PaintRecorder painted;
    };

    TEST(PanelMeasuresTest, ARowsTitleIsWrittenInThirteenPoints)
    {
        ClipItem clip;
        clip.text = "some text";
        const RowMeasures f({ .clip = clip });

        const auto title = f.painted.text(QStringLiteral("some text"));

        expectFont(title.font, 13, QFont::Normal);
        EXPECT_EQ(title.colour, coloursOf(f.palette).text);
    }

    TEST(PanelMeasuresTest, ARowsGroundIsRoundedBySixPoints)
    {
        const ClipItem clip;
        for (const auto& shown : { ClipRow { .clip = clip, .isSelected = true },
                 ClipRow { .clip = clip, .isHovered = true } }) {
            const RowMeasures f(shown);
            const auto grounds = f.painted.shapesAt(f.row);
            ASSERT_EQ(grounds.size(), 1U);
            EXPECT_EQ(grounds.front().radius, 6);
        }
    }

    TEST(PanelMeasuresTest, ARowsBadgeIsFifteenPercentOfTheSecondaryColourWithItsPaddings)
    {
        const ClipItem clip;
        const RowMeasures f({ .clip = clip, .shortcutIndex = 2 });
        const auto& secondary = coloursOf(f.palette).secondary;

        const auto text = f.painted.text(QStringLiteral("⌘3"));
        ASSERT_EQ(text.text, QStringLiteral("⌘3"));
        EXPECT_EQ(text.colour, secondary);
        auto expected = secondary;
        expected.setAlphaF(0.15F);
        const auto badge
            = std::ranges::find(f.painted.shapes(), expected, &PaintRecorder::Shape::fill);
        ASSERT_NE(badge, f.painted.shapes().end());
        EXPECT_EQ(badge->radius, 3);
        const double width = QFontMetricsF(text.font).horizontalAdvance(text.text);
        EXPECT_NEAR(badge->place.width(), width + 2 * 4, 1); // rounded up
        EXPECT_NEAR(text.at.x() - badge->place.left(), 4, 0.5);
        // Two points above and below a line of text of 10.5 points.
        EXPECT_NEAR(badge->place.height(), 14 + 2 * 2, 0.01);
    }

    TEST(PanelMeasuresTest, TheLineUnderATitleAndTheMarkOfALargeClipStandBack)
    {
        ClipItem clip;
        clip.text = "some text";
        clip.sourceApp = "Editor";
        clip.isOverflow = true;
        clip.overflowByteCount = 70'000;
        RowMeasures f({ .clip = clip });
        const auto& secondary = coloursOf(f.palette).secondary;

        for (const auto& item : { QStringLiteral("Editor"), QStringLiteral("68 KB") }) {
            const auto text = f.painted.text(item);
            ASSERT_EQ(text.text, item);
            expectFont(text.font, 10.5, QFont::Normal);
            EXPECT_EQ(text.colour, secondary);
        }
        EXPECT_FALSE(f.symbol("externaldrive", secondary).isEmpty());
    }

    TEST(PanelMeasuresTest, TheMarksOfARowAreTheLargeOneThenThePinThenTheBadge)
    {
        ClipItem clip;
        clip.text = "some text";
        clip.isOverflow = true;
        clip.isPinned = true;
        RowMeasures f({ .clip = clip, .shortcutIndex = 2 });
        const auto& colours = coloursOf(f.palette);

        const auto large = f.symbol("externaldrive", colours.secondary);
        const auto pin = f.symbol("pin.fill", colours.orange);
        const auto badge = f.painted.text(QStringLiteral("⌘3"));

        ASSERT_FALSE(large.isEmpty());
        ASSERT_FALSE(pin.isEmpty());
        ASSERT_FALSE(badge.text.isEmpty());
        EXPECT_GT(
            large.left(), f.view.titleRect(f.row, { .clip = clip, .shortcutIndex = 2 }).right());
        EXPECT_GT(pin.left(), large.right());
        EXPECT_GT(badge.at.x(), pin.right());
    }

    TEST(PanelMeasuresTest, WhereALineHasNoRoomForAllTheApplicationsNameGivesWayToAgeAndSize)
    {
        ClipItem clip;
        clip.text = "some text";
        clip.sourceApp = std::string(300, 'W');
        clip.isOverflow = true;
        clip.overflowByteCount = 70'000;
        const ClipRow shown { .clip = clip, .shortcutIndex = 10 };
        const RowMeasures f(shown);
        const auto title = f.view.titleRect(f.row, shown);

        std::vector<PaintRecorder::Text> line;
        std::ranges::copy_if(f.painted.texts(), std::back_inserter(line),
            [&](const auto& text) { return text.at.y() > title.bottom(); });

        ASSERT_EQ(line.size(), 5U);
        EXPECT_TRUE(line[0].text.startsWith(u'W'));
        EXPECT_TRUE(line[0].text.endsWith(QStringLiteral("…")));
        EXPECT_EQ(line[1].text, QStringLiteral("·"));
        EXPECT_EQ(line[2].text, QString::fromStdString(relativeAge(clip, {})));
        EXPECT_EQ(line[3].text, QStringLiteral("·"));
        EXPECT_EQ(line[4].text, QStringLiteral("68 KB"));
        const auto end = [](const PaintRecorder::Text& text) {
            return text.at.x() + QFontMetricsF(text.font).horizontalAdvance(text.text);
        };
        for (std::size_t i = 1; i < line.size(); ++i)
            EXPECT_GT(line[i].at.x(), end(line[i - 1]));
        EXPECT_LE(end(line.back()), title.right() + 0.5);
        EXPECT_GT(end(line.back()), title.right() - 15); // no room is given away
    }

    TEST(PanelMeasuresTest, TheSymbolsOfTheHeaderAndOfTheSearchHaveTheirSizes)
    {
        PanelMeasures f;

        const PaintRecorder header(f.view.header());
        ASSERT_EQ(header.pictures().size(), 3U);
        for (const auto& symbol : header.pictures())
            EXPECT_EQ(symbol.size(), QSizeF(17, 17));
        const PaintRecorder search(f.view.search());
        ASSERT_FALSE(search.pictures().empty());
        EXPECT_EQ(search.pictures().front().size(), QSizeF(15, 15));
    }

    TEST(PanelMeasuresTest, TheTotalsAreGreenThenGreyThenOrangeThenRed)
    {
        PanelMeasures f;
        const auto& colours = coloursOf(f.view.palette());
        f.store.setMaxClips(100);
        const auto expectAt = [&](int count, const QColor& colour) {
            while (static_cast<int>(f.store.clips().size()) < count)
                f.add("clip " + std::to_string(f.store.clips().size()));
            const PaintRecorder painted(f.view.footer());
            ASSERT_EQ(painted.texts().size(), 1U);
            expectFont(painted.texts().front().font, 11, QFont::Medium);
            EXPECT_EQ(painted.texts().front().colour, colour) << count;
        };

        expectAt(49, colours.accent);
        expectAt(50, colours.secondary);
        expectAt(75, colours.orangeText);
        expectAt(90, colours.redText);
    }

    TEST(PanelMeasuresTest, TheTotalsTakeTheirColourFromTheSizeWhereThatIsFuller)
    {
        PanelMeasures f;
        f.store.setMaxTotalSizeMB(50);
        f.store.setMaxClipSizeKB(10240);
        for (const char letter : { 'a', 'b', 'c', 'd' })
            f.add(std::string(10UL * 1024 * 1024 - 10, letter));

        const PaintRecorder painted(f.view.footer());

        ASSERT_EQ(painted.texts().size(), 1U);
        EXPECT_EQ(painted.texts().front().colour, coloursOf(f.view.palette()).orangeText);
    }

} // namespace
} // namespace korvane
