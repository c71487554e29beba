#include "app/SoundCues.h"

#include "support/FakeSoundPlayer.h"
#include "support/MemoryPreferences.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    struct SoundFixture {
        test::MemoryPreferences preferences;
        test::FakeSoundPlayer player;
        SoundCues cues { preferences, player };

        void press(ModifierMask mask, KeyCode key = keycodes::v)
        {
            cues.keyPressed({ key, mask, "" });
        }
    };

    using Names = std::vector<std::string>;

    TEST(SoundCuesTest, NothingSoundsUntilItIsSwitchedOn)
    {
        SoundFixture f;

        f.cues.clipCaptured();
        f.cues.clipSelected();
        f.press(modifiers::command);

        EXPECT_EQ(f.player.played, Names {});
    }

    TEST(SoundCuesTest, EachEventHasItsOwnDefaultSound)
    {
        SoundFixture f;
        f.preferences.set(keys::playSoundOnCopy, true);
        f.preferences.set(keys::playSoundOnSelect, true);
        f.preferences.set(keys::playSoundOnPaste, true);

        f.cues.clipCaptured();
        f.cues.clipSelected();
        f.press(modifiers::command);

        EXPECT_EQ(f.player.played, (Names { "Tink", "Pop", "Hero" }));
    }

    TEST(SoundCuesTest, AChosenSoundIsPlayedFromTheNextEventOn)
    {
        SoundFixture f;
        f.preferences.set(keys::playSoundOnCopy, true);
        f.cues.clipCaptured();

        f.preferences.set(keys::copySoundName, std::string("Frog"));
        f.cues.clipCaptured();

        EXPECT_EQ(f.player.played, (Names { "Tink", "Frog" }));
    }

    TEST(SoundCuesTest, ShiftCommandVIsAPasteAndControlCommandVIsNone)
    {
        SoundFixture f;
        f.preferences.set(keys::playSoundOnPaste, true);

        f.press(modifiers::command | modifiers::control);
        EXPECT_EQ(f.player.played, Names {});

        f.press(modifiers::command | modifiers::shift);
        f.press(modifiers::command | modifiers::option);
        EXPECT_EQ(f.player.played, (Names { "Hero", "Hero" }));
    }

    TEST(SoundCuesTest, OtherKeysAndAPlainVAreNoPaste)
    {
        SoundFixture f;
        f.preferences.set(keys::playSoundOnPaste, true);

        f.press(0);
        f.press(modifiers::command, 8);

        EXPECT_EQ(f.player.played, Names {});
    }

} // namespace
} // namespace korvane
