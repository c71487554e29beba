#include "app/Paster.h"

#include "app/PasteFixture.h"
#include "model/HistoryFile.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::FileClipFixture;
    using test::LargeClipFixture;
    using test::PasteFixture;
    using Typed = std::vector<std::pair<KeyCode, ModifierMask>>;

    TEST(RowActionsTest, AClickPlaysTheSelectSoundWhenThatIsOn)
    {
        PasteFixture f;
        const auto click = [&f] {
            f.openPanel();
            f.panelController->click(f.app->clipStore().clips()[1].id);
        };

        click();
        EXPECT_EQ(f.sounds.played, std::vector<std::string> {});
        f.preferences.set(keys::playSoundOnSelect, true);
        click();

        EXPECT_EQ(f.sounds.played, (std::vector<std::string> { "Pop" }));
    }

    TEST(RowActionsTest, AClickOnALargeClipWhoseFileIsGoneCopiesItsStoredTextAndClosesThePanel)
    {
        LargeClipFixture f;
        std::filesystem::remove(*f.app->clipStore().clips()[0].overflowPath);
        f.openPanel();

        f.panelController->click(f.app->clipStore().clips()[0].id);

        EXPECT_EQ(f.pasteboard.contents()->text, std::string(4096, 'x'));
        EXPECT_FALSE(f.panel->isShown);
    }

    TEST(RowActionsTest, AClickOnALargeClipCopiesItWholeAndMakesNoClip)
    {
        LargeClipFixture f;
        f.openPanel();

        f.panelController->click(f.app->clipStore().clips()[0].id);
        EXPECT_EQ(f.app->clipboardMonitor().lastOwnText(), std::nullopt);
        f.poll();

        EXPECT_EQ(f.pasteboard.contents()->text, f.whole);
        EXPECT_EQ(f.clipCount(), 3U);
    }

    TEST(RowActionsTest, CopyFromTheMenuTakesALargeClipWholeAndMakesNoClip)
    {
        LargeClipFixture f;
        f.openPanel();

        f.panelController->copy(f.app->clipStore().clips()[0].id);
        f.poll();

        EXPECT_EQ(f.pasteboard.written, (std::vector<std::string> { f.whole }));
        EXPECT_TRUE(f.panel->isShown);
        EXPECT_EQ(f.clipCount(), 3U);
    }

    TEST(RowActionsTest, ALargeClipThatIsCopiedLeavesTheOwnTextAsItWas)
    {
        LargeClipFixture f;
        f.openPanel();
        f.panelController->copy(f.app->clipStore().clips()[1].id);
        ASSERT_EQ(f.app->clipboardMonitor().lastOwnText(), "newer");

        f.panelController->copy(f.app->clipStore().clips()[0].id);

        EXPECT_EQ(f.app->clipboardMonitor().lastOwnText(), "newer");
        EXPECT_EQ(f.app->clipboardMonitor().lastChangeCount(), f.pasteboard.changeCount());
    }

    TEST(RowActionsTest, AClickOnAFileClipShowsItInTheFileManagerAndClosesThePanel)
    {
        FileClipFixture f;
        f.preferences.set(keys::playSoundOnSelect, true);
        f.openPanel();

        f.panelController->click(f.app->clipStore().clips()[0].id);
        f.loop.advance(1s);

        EXPECT_EQ(f.desktop.revealed, (std::vector<std::string> { "/home/ada/plan.txt" }));
        EXPECT_EQ(f.pasteboard.written, std::vector<std::string> {});
        EXPECT_EQ(f.sounds.played, std::vector<std::string> {});
        EXPECT_FALSE(f.panel->isShown);
        EXPECT_EQ(f.app->clipStore().clips()[0].useCount, 1);
    }

    TEST(RowActionsTest, CopyFromTheMenuTakesAFileClipsPathAsATextAndRevealsNothing)
    {
        FileClipFixture f;
        f.openPanel();
        const auto before = f.clipCount();

        f.panelController->copy(f.app->clipStore().clips()[0].id);
        EXPECT_EQ(f.app->clipboardMonitor().lastOwnText(), "/home/ada/plan.txt");
        f.poll();

        EXPECT_EQ(f.pasteboard.written, (std::vector<std::string> { "/home/ada/plan.txt" }));
        EXPECT_TRUE(f.desktop.revealed.empty());
        EXPECT_TRUE(f.panel->isShown);
        EXPECT_EQ(f.clipCount(), before);
    }

    TEST(RowActionsTest, AClickCopiesAndClosesWithoutTyping)
    {
        PasteFixture f;
        f.openPanel();

        f.panelController->click(f.app->clipStore().clips()[1].id);
        f.loop.advance(1s);

        EXPECT_EQ(f.pasteboard.contents()->text, "older");
        EXPECT_EQ(f.keyboard.typed, Typed {});
        EXPECT_FALSE(f.panel->isShown);
        EXPECT_EQ(f.app->clipStore().clips()[1].useCount, 1);
        EXPECT_EQ(f.clipCount(), 2U);
    }

    TEST(RowActionsTest, CopyFromTheMenuLeavesThePanelOpen)
    {
        PasteFixture f;
        f.openPanel();

        f.panelController->copy(f.app->clipStore().clips()[1].id);
        f.poll();

        EXPECT_EQ(f.pasteboard.contents()->text, "older");
        EXPECT_TRUE(f.panel->isShown);
        EXPECT_EQ(f.clipCount(), 2U);
        // What is only copied has not been used yet.
        EXPECT_EQ(f.app->clipStore().clips()[1].useCount, 0);
    }

    TEST(RowActionsTest, ALargeClipsOwnFileIsRevealed)
    {
        LargeClipFixture f;
        const auto clip = f.app->clipStore().clips()[0];

        f.panelController->reveal(clip.id);

        EXPECT_EQ(f.desktop.revealed, (std::vector<std::string> { *clip.overflowPath }));
    }

    TEST(RowActionsTest, NothingIsRevealedOfALargeClipWithoutAPath)
    {
        test::AppFixture f;
        ClipItem clip;
        clip.text = "its beginning";
        clip.isOverflow = true;
        const auto folder = f.folder.path() / "com.VNT.Korvane";
        std::filesystem::create_directory(folder);
        ASSERT_FALSE(HistoryFile(folder / "clips.json").save(std::array { clip }));
        f.launch();
        ASSERT_EQ(f.clipCount(), 1U);

        f.panelController->reveal(f.app->clipStore().clips()[0].id);

        EXPECT_TRUE(f.desktop.revealed.empty());
    }

} // namespace
} // namespace korvane
