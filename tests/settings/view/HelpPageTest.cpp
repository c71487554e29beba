#include "settings/view/HelpPage.h"

#include "hotkey/HotkeyManager.h"
#include "settings/HelpTexts.h"
#include "settings/view/FormText.h"
#include "settings/view/KeyBadge.h"
#include "settings/view/KitFixture.h"
#include "support/FakeHotkeyGrabber.h"
#include "support/MemoryPreferences.h"

#include <gtest/gtest.h>

#include <QScrollBar>

#include <string>
#include <vector>

namespace korvane {
namespace {

    struct HelpFixture : test::KitFixture {
        HelpFixture()
        {
            page.resize(520, 420);
            test::settle();
        }
        std::vector<std::string> keys() const
        {
            std::vector<std::string> texts;
            for (const auto* const badge : test::partsOf<KeyBadge>(page))
                texts.push_back(badge->keys().toStdString());
            return texts;
        }

        test::MemoryPreferences preferences;
        test::FakeHotkeyGrabber grabber;
        HotkeyManager hotkeys { grabber, preferences, loop };
        HelpPage& page = show(std::make_unique<HelpPage>(hotkeys), { 0, 0 });
    };

    std::vector<std::string> texts(const QWidget& page)
    {
        std::vector<std::string> found;
        for (const auto* const text : test::partsOf<FormText>(page))
            found.push_back(text->text().toStdString());
        return found;
    }

    TEST(HelpPageTest, ItsTableListsEachActionWithItsKeys)
    {
        const HelpFixture f;

        EXPECT_EQ(f.keys(),
            (std::vector<std::string> {
                "⌃Space", "↑ ↓", "Tab / ⇧Tab", "Return", "⌘1 – ⌘0", "Space", "⌘P", "⌘⌫", "Esc" }));
        const auto all = texts(f.page);
        const std::vector<std::string> actions { "Keyboard shortcuts", "Open Korvane panel",
            "Navigate clips", "Cycle filter tabs (wraps around)", "Paste selected clip",
            "Paste clip at that position", "Quick Look preview", "Pin / unpin selected clip",
            "Delete selected clip", "Close panel", "Tips" };
        EXPECT_EQ(std::vector<std::string>(all.begin(), all.begin() + 11), actions);
    }

    TEST(HelpPageTest, ItsFirstRowFollowsTheShortcutAndItsFirstTipKeepsTheDefault)
    {
        HelpFixture f;

        f.hotkeys.saveShortcut({ keycodes::v, modifiers::option | modifiers::command, "V" });

        EXPECT_EQ(f.keys().front(), "⌥⌘V");
        EXPECT_EQ(f.keys()[1], "↑ ↓");
        const auto all = texts(f.page);
        EXPECT_TRUE(all[11].ends_with("Reset to restore the default ⌃Space.")) << all[11];
    }

    TEST(HelpPageTest, ItsFirstRowShowsTheShortcutThatIsHeldWhenTheStoredOneHasGone)
    {
        HelpFixture f;
        f.hotkeys.saveShortcut({ keycodes::v, modifiers::option | modifiers::command, "V" });

        f.preferences.values.clear();
        f.preferences.changed();

        EXPECT_EQ(f.keys().front(), "⌥⌘V");
    }

    TEST(HelpPageTest, ItsOtherRowsStayWhenTheyAreSwitchedOff)
    {
        HelpFixture f;
        const auto before = f.keys();

        f.preferences.set(keys::enableDirectPaste, false);
        f.preferences.set(keys::enableTabCycling, false);

        EXPECT_EQ(f.keys(), before);
    }

    TEST(HelpPageTest, EachTipIsAWholeParagraph)
    {
        const HelpFixture f;
        const auto tips = helptexts::tipTexts();
        const auto all = texts(f.page);

        ASSERT_GE(all.size(), tips.size());
        EXPECT_EQ(std::vector<std::string>(all.end() - 5, all.end()),
            std::vector<std::string>(tips.begin(), tips.end()));
        for (const auto* const text : test::partsOf<FormText>(f.page))
            EXPECT_GE(text->height(), text->heightForWidth(text->width()))
                << text->text().toStdString();
    }

    TEST(HelpPageTest, ItScrollsByKeys)
    {
        HelpFixture f;
        f.page.setFocus(Qt::TabFocusReason);
        ASSERT_TRUE(f.page.hasFocus());

        test::typeKey(f.page, Qt::Key_PageDown);

        EXPECT_GT(f.page.verticalScrollBar()->value(), 0);
    }

    TEST(HelpPageTest, ABadgeIsATextToAssistiveTechnology)
    {
        const HelpFixture f;
        auto& badge = *test::partsOf<KeyBadge>(f.page).front();

        EXPECT_EQ(f.access(badge).role(), QAccessible::StaticText);
        EXPECT_EQ(f.access(badge).text(QAccessible::Name), QStringLiteral("⌃Space"));
        EXPECT_EQ(
            f.access(badge).text(QAccessible::Description), QStringLiteral("Open Korvane panel"));
    }

} // namespace
} // namespace korvane
