#include "panel/view/ClipRowView.h"
#include "panel/view/RowFixture.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

    using test::hasColour;
    using test::RowFixture;

    std::string repeated(std::string_view part, int times)
    {
        std::string text;
        for (int count = 0; count < times; ++count)
            text += part;
        return text;
    }

    /// How long the shortest of a few paintings took.
    std::chrono::nanoseconds timeToPaint(RowFixture& f)
    {
        std::chrono::nanoseconds best = std::chrono::hours { 1 };
        for (int run = 0; run < 7; ++run) {
            QElapsedTimer timer;
            timer.start();
            f.paint({ .clip = f.clip });
            best = std::min(best, std::chrono::nanoseconds { timer.nsecsElapsed() });
        }
        return best;
    }

    TEST(RowTitleTest, AMegabyteOnOneLineCostsLittleMoreThanAShortText)
    {
        RowFixture f;
        f.clip.text = std::string(300, 'a');
        const auto shortText = timeToPaint(f);

        f.clip.text = std::string(1 << 20, 'a');

        EXPECT_LT(timeToPaint(f), 3 * shortText + std::chrono::milliseconds { 1 });
    }

    struct Kind {
        const char* name;
        std::string text;
    };
    std::vector<Kind> kindsOfText()
    {
        return { { "right to left", "שלום עולם" }, { "an override", "a\u202eb" },
            { "combining marks", "Vie\u0323\u0302t Nam" }, { "Chinese", "剪贴板历史" },
            { "emoji sequences", "👩‍👩‍👧‍👦🏳️‍🌈" },
            { "tabs", "\ta\t\tb\t" },
            { "control characters", std::string("a\0b\x1b[31m\x7f\u0085", 11) },
            { "a megabyte on one line", std::string(1 << 20, 'W') },
            { "a megabyte from right to left", repeated("שלום ", 100'000) },
            { "only white space", " \n\t " }, { "what cannot be seen", "\u200b\ufeff" },
            { "not UTF-8", "\xff\xfe" } };
    }

    TEST(RowTitleTest, WhateverTheTextItIsSeenInTheTitlesPlaceAndNowhereElse)
    {
        RowFixture f;
        const auto place = f.view.titleRect({ 0, 0, 348, 48 }, { .clip = f.clip }).toAlignedRect();
        for (const auto& [name, text] : kindsOfText()) {
            const auto ink = f.inkOfTitle(text);

            EXPECT_GE(ink.width(), 4) << name;
            EXPECT_GE(ink.height(), 4) << name;
            // Marks under a letter and the ends of italic strokes may go a little further.
            EXPECT_TRUE(place.adjusted(-1, -3, 1, 3).contains(ink)) << name;
            EXPECT_NEAR(ink.left(), place.left(), 3) << name;
        }
    }

    TEST(RowTitleTest, WhatIsTooLongFillsTheTitleAndEndsInAnEllipsis)
    {
        RowFixture f;
        const auto place = f.view.titleRect({ 0, 0, 348, 48 }, { .clip = f.clip }).toAlignedRect();

        const auto whole = f.inkOfTitle(std::string(1 << 20, 'W'));

        EXPECT_GT(whole.right(), place.right() - 14);
        // Only the dots on the base line stand there.
        const auto dots = f.inkOfTitle(
            std::string(1 << 20, 'W'), QRect(whole.right() - 8, 0, 10, place.bottom()));
        EXPECT_GT(dots.width(), 4);
        EXPECT_LE(dots.height(), 3);
    }

    TEST(RowTitleTest, TabsAndLineEndsAreSeenAsOneBlank)
    {
        RowFixture f;

        EXPECT_EQ(f.titled("\ta\t\tb\t"), f.titled("a b"));
        EXPECT_EQ(f.titled("a\r\n\r\nb\n"), f.titled("a b"));
        EXPECT_NE(f.titled("a b"), f.titled("ab"));
    }

    TEST(RowTitleTest, APathWithALineFeedIsTheFilesNameOnOneLine)
    {
        RowFixture f;
        f.clip.type = ClipType::file;

        EXPECT_EQ(f.titled("/home/ada/two\nlines.txt"), f.titled("/tmp/two lines.txt"));
        EXPECT_NE(f.titled("/tmp/two lines.txt"), f.titled("/tmp/lines.txt"));
    }

    TEST(RowTitleTest, WhatWouldBeInvisibleIsSeen)
    {
        RowFixture f;

        EXPECT_EQ(f.titled("\x1b[31m"), f.titled("^[[31m"));
        EXPECT_EQ(f.titled(std::string("a\0b", 3)), f.titled("a^@b"));
        EXPECT_EQ(f.titled("a\u202eb"), f.titled("a<U+202E>b"));
        EXPECT_EQ(f.titled(" \n\t "), f.titled("␣↵⇥␣"));
        EXPECT_EQ(f.titled("\xff\xfe"), f.titled("\ufffd\ufffd"));
    }

    TEST(RowTitleTest, AMarkStandsOnItsLetterAndTakesNoRoom)
    {
        RowFixture f;
        const auto plain = f.inkOfTitle("ooo");

        const auto marked = f.inkOfTitle("o\u0301o\u0301o\u0301");

        EXPECT_NEAR(marked.width(), plain.width(), 2);
        EXPECT_LT(marked.top(), plain.top());
    }

    TEST(RowTitleTest, BesideATextAnEmojiOfSeveralCodePointsIsAsWideAsAFace)
    {
        RowFixture f;
        const auto face = f.inkOfTitle("so 😀 it").width();

        for (const auto* text : { "so 👩‍👩‍👧 it", "so 🏃‍♀️ it", "so ❤️ it",
                 "so 👩‍❤️‍👨 it" })
            EXPECT_NEAR(f.inkOfTitle(text).width(), face, 2) << text;
    }

    TEST(RowTitleTest, AnEmptyTextLeavesTheTitleEmpty)
    {
        RowFixture f;

        const auto title = f.view.titleRect({ 0, 0, 348, 48 }, { .clip = f.clip }).toAlignedRect();

        EXPECT_FALSE(hasColour(f.titled(""), title, coloursOf(ColourScheme::light).text));
    }

    TEST(RowTitleTest, ATitleBeginsWhereItsScriptDoes)
    {
        RowFixture f;
        f.clip.text = "abc שלום";
        const auto fromTheLeft = f.paint({ .clip = f.clip });
        f.clip.text = "שלום abc"; // read from the right, the Latin word stands at the left

        EXPECT_EQ(f.paint({ .clip = f.clip }), fromTheLeft);
    }

    TEST(RowTitleTest, ATowerOfMarksOnOneLetterStaysInItsRow)
    {
        RowFixture f;
        for (const int count : { 5, 30, 100, 390, 1000, 100'000 }) {
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

} // namespace
} // namespace korvane
