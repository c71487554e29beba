#include "panel/view/ClipRowView.h"

#include "look/view/Colours.h"
#include "panel/view/RowFixture.h"

#include <gtest/gtest.h>

#include <QImage>

#include <string>

namespace korvane {
namespace {

    using test::hasColour;
    using test::RowFixture;

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
