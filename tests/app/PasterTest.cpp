#include "app/Paster.h"

#include "app/PasteFixture.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::FileClipFixture;
    using test::LargeClipFixture;
    using test::PasteFixture;
    using Typed = std::vector<std::pair<KeyCode, ModifierMask>>;

    TEST(PasterTest, PastingPutsTheTextOnThePasteboardAndMakesNoClip)
    {
        PasteFixture f;

        f.paste();
        f.poll();

        EXPECT_EQ(f.pasteboard.contents()->text, "newer");
        EXPECT_EQ(f.clipCount(), 2U);
    }

    TEST(PasterTest, TheOwnTextIsForgottenOnceItWasSeen)
    {
        PasteFixture f;
        f.paste();
        f.poll();
        EXPECT_EQ(f.app->clipboardMonitor().lastOwnText(), std::nullopt);

        f.copy("newer still");
        f.copy("newer");

        EXPECT_EQ(f.clipText(0), "newer");
        EXPECT_EQ(f.clipCount(), 4U);
    }

    TEST(PasterTest, ThePasteIsTypedAQuarterSecondLaterWithCommandOnly)
    {
        PasteFixture f;

        f.openPanel();
        f.press(keycodes::returnKey, modifiers::shift);
        f.loop.advance(249ms);
        EXPECT_EQ(f.keyboard.typed, Typed {});
        f.loop.advance(1ms);

        EXPECT_EQ(f.keyboard.typed, (Typed { { keycodes::v, modifiers::command } }));
    }

    TEST(PasterTest, TheApplicationInFrontIsBroughtBack)
    {
        PasteFixture f;

        f.openPanel();
        f.workspace.front.reset(); // the panel has the keyboard
        f.press(keycodes::returnKey);

        ASSERT_EQ(f.workspace.activated.size(), 1U);
        EXPECT_EQ(f.workspace.activated[0].localizedName, "Mousepad");
    }

    TEST(PasterTest, WithNothingInFrontNothingIsBroughtBackAndThePasteIsStillTyped)
    {
        PasteFixture f;
        f.workspace.front.reset();

        f.paste();
        f.loop.advance(250ms);

        EXPECT_TRUE(f.workspace.activated.empty());
        EXPECT_EQ(f.keyboard.typed.size(), 1U);
    }

    TEST(PasterTest, TheTextIsWrittenOnceByTheKeyAndOnceByThePaste)
    {
        PasteFixture f;

        f.paste();

        EXPECT_EQ(f.pasteboard.written, (std::vector<std::string> { "newer", "newer" }));
    }

    TEST(PasterTest, APasteCountsAsUseAndKeepsTheOrder)
    {
        PasteFixture f;

        f.openPanel();
        f.press(keycodes::downArrow);
        f.press(keycodes::returnKey);

        EXPECT_EQ(f.clipText(0), "newer");
        EXPECT_EQ(f.app->clipStore().clips()[1].useCount, 1);
        EXPECT_EQ(f.app->clipStore().lastUsedID(), f.app->clipStore().clips()[1].id);
    }

    TEST(PasterTest, APasteClosesThePanel)
    {
        PasteFixture f;

        f.paste();

        EXPECT_FALSE(f.panel->isShown);
    }

    TEST(PasterTest, APastePlaysTheSelectSoundWhenThatIsOn)
    {
        PasteFixture f;
        f.preferences.set(keys::playSoundOnSelect, true);

        f.paste();

        EXPECT_EQ(f.sounds.played, (std::vector<std::string> { "Pop" }));
    }

    TEST(PasterTest, AnOverflowClipIsPastedWholeAndComesBackOnceAsANewClip)
    {
        LargeClipFixture f;

        f.paste();
        f.poll();

        EXPECT_EQ(f.pasteboard.contents()->text, f.whole);
        EXPECT_EQ(f.clipCount(), 4U);
        EXPECT_TRUE(f.app->clipStore().clips()[0].isOverflow);
        f.poll();
        EXPECT_EQ(f.clipCount(), 4U);
    }

    TEST(PasterTest, AnOverflowClipWhoseFileIsGoneIsPastedAsFarAsItIsKept)
    {
        LargeClipFixture f;
        std::filesystem::remove(*f.app->clipStore().clips()[0].overflowPath);

        f.paste();

        EXPECT_EQ(f.pasteboard.contents()->text, std::string(4096, 'x'));
    }

    TEST(PasterTest, MovingOntoAnOverflowClipLeavesThePasteboardAlone)
    {
        LargeClipFixture f;
        f.openPanel();

        f.press(keycodes::upArrow);

        EXPECT_EQ(f.pasteboard.written, std::vector<std::string> {});
    }

    TEST(PasterTest, MovingTheSelectionPutsEachClipOnThePasteboardUnseen)
    {
        PasteFixture f;
        f.openPanel();

        f.press(keycodes::downArrow);
        EXPECT_EQ(f.pasteboard.contents()->text, "older");
        f.press(keycodes::upArrow);
        EXPECT_EQ(f.pasteboard.contents()->text, "newer");
        f.poll();

        EXPECT_EQ(f.clipCount(), 2U);
    }

    TEST(PasterTest, AFileClipIsShownInTheFileManagerAndNothingIsTyped)
    {
        FileClipFixture f;

        f.paste();
        f.loop.advance(1s);

        EXPECT_EQ(f.desktop.revealed, (std::vector<std::string> { "/home/ada/plan.txt" }));
        EXPECT_EQ(f.keyboard.typed, Typed {});
        EXPECT_EQ(f.pasteboard.written, std::vector<std::string> {});
        EXPECT_FALSE(f.panel->isShown);
        EXPECT_EQ(f.app->clipStore().clips()[0].useCount, 1);
    }

    TEST(PasterTest, ATextOutlivesTheProgramThatItWasCopiedFrom)
    {
        PasteFixture f;

        f.pasteboard.ownerEnds();
        f.poll();

        ASSERT_TRUE(f.pasteboard.contents());
        EXPECT_EQ(f.pasteboard.contents()->text, "newer");
        EXPECT_EQ(f.clipCount(), 2U);
    }

    TEST(PasterTest, ATextThatRepeatedTheNewestOutlivesItsProgramToo)
    {
        PasteFixture f;
        f.copy("newer");

        f.pasteboard.ownerEnds();

        ASSERT_TRUE(f.pasteboard.contents());
        EXPECT_EQ(f.pasteboard.contents()->text, "newer");
    }

    TEST(PasterTest, InPrivateModeNothingIsPutBack)
    {
        PasteFixture f;
        f.statusItem.choose("   Private Mode");

        f.pasteboard.ownerEnds();

        EXPECT_FALSE(f.pasteboard.contents());
    }

    TEST(PasterTest, WhatWasRefusedIsGoneWithItsProgram)
    {
        PasteFixture f;
        f.workspace.bringToFront("org.keepassx.keepassxc", "KeePassXC");
        f.copy("secret");

        f.pasteboard.ownerEnds();

        EXPECT_FALSE(f.pasteboard.contents());
        EXPECT_EQ(f.pasteboard.written, std::vector<std::string> {});
    }

} // namespace
} // namespace korvane
