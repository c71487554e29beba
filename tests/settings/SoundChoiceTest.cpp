#include "settings/SoundChoice.h"

#include "support/MemoryPreferences.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    TEST(SoundChoiceTest, WithNothingStoredEachSoundIsOffAndHasItsOwnName)
    {
        const test::MemoryPreferences preferences;

        EXPECT_EQ(soundchoices::copy.name(preferences), "Tink");
        EXPECT_EQ(soundchoices::select.name(preferences), "Pop");
        EXPECT_EQ(soundchoices::paste.name(preferences), "Hero");
        for (const auto& choice : { soundchoices::copy, soundchoices::select, soundchoices::paste })
            EXPECT_FALSE(choice.isOn(preferences));
    }

    TEST(SoundChoiceTest, EachHasASwitchAndANameOfItsOwn)
    {
        test::MemoryPreferences preferences;

        preferences.set(keys::playSoundOnSelect, true);
        preferences.set(keys::selectSoundName, std::string("Frog"));

        EXPECT_TRUE(soundchoices::select.isOn(preferences));
        EXPECT_EQ(soundchoices::select.name(preferences), "Frog");
        EXPECT_FALSE(soundchoices::copy.isOn(preferences));
        EXPECT_EQ(soundchoices::copy.name(preferences), "Tink");
    }

} // namespace
} // namespace korvane
