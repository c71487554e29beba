#include "settings/HelpTexts.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    TEST(HelpTextsTest, TheFirstTipNamesTheDefaultShortcut)
    {
        EXPECT_EQ(helptexts::tipTexts().front(),
            "• The \"Open Korvane\" shortcut is customizable — open the Shortcuts tab, click the "
            "shortcut field, and press any modifier+key combination (⌃, ⌥, ⇧, ⌘). Press Esc to "
            "cancel, or use Reset to restore the default ⌃Space.");
    }

    TEST(HelpTextsTest, TheOtherTipsAreThese)
    {
        const auto tips = helptexts::tipTexts();

        ASSERT_EQ(tips.size(), 5U);
        EXPECT_EQ(tips[1],
            "• Tab / ⇧Tab cycles through the filter tabs (All → Pinned → Text → URL → …) with the "
            "same smooth pill animation used by mouse clicks. Rapid presses advance predictably — "
            "even mid-animation. Pressing past the last tab wraps back to the first. Disable in "
            "the Shortcuts tab if you need Tab for something else.");
        EXPECT_EQ(tips[2], "• Pinned clips survive when the clip limit is reached.");
        EXPECT_EQ(
            tips[3], "• File clips show their name in the list. Clicking reveals them in Finder.");
        EXPECT_EQ(
            tips[4], "• Use the Privacy tab to add app bundle IDs whose copies should be ignored.");
    }

    TEST(HelpTextsTest, EachTipIsAParagraphWithADot)
    {
        for (const auto& tip : helptexts::tipTexts()) {
            EXPECT_TRUE(tip.starts_with("• ")) << tip;
            EXPECT_TRUE(tip.ends_with(".")) << tip;
        }
    }

} // namespace
} // namespace korvane
