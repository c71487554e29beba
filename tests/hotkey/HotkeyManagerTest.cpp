#include "hotkey/HotkeyManager.h"

#include "model/Preferences.h"
#include "support/FakeHotkeyGrabber.h"
#include "support/ManualLoop.h"
#include "support/MemoryPreferences.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using Chord = test::FakeHotkeyGrabber::Chord;

    constexpr Chord controlSpace { 49, 4096 };
    const Shortcut optionCommandA { 0, modifiers::option | modifiers::command, "A" };
    const Chord optionCommandAChord { 0, 2304 };

    struct HotkeyFixture {
        HotkeyFixture()
        {
            m_refused = manager.refused.connect([this] { ++refusals; });
        }
        test::FakeHotkeyGrabber grabber;
        test::MemoryPreferences preferences;
        test::ManualLoop loop;
        HotkeyManager manager { grabber, preferences, loop };

        bool registerStored()
        {
            const auto stored = manager.loadShortcut();
            return stored && manager.registerShortcut(stored->keyCode, stored->modifiers);
        }
        void store(std::string_view key, PreferenceValue value)
        {
            preferences.values.insert_or_assign(std::string(key), std::move(value));
        }
        /// Another program writes the preferences: all keys are there before anyone is told.
        void storeFromOutside(std::int64_t keyCode, std::int64_t mask)
        {
            store(keys::hotkeyKeyCode, keyCode);
            store(keys::hotkeyModifiers, mask);
            preferences.changed();
        }

        int refusals = 0;

    private:
        Connection m_refused;
    };

    TEST(HotkeyManagerTest, WithNothingStoredTheShortcutIsControlSpace)
    {
        HotkeyFixture f;

        EXPECT_EQ(f.manager.loadShortcut(), (Shortcut { 49, 4096, "Space" }));
    }

    TEST(HotkeyManagerTest, AnEmptyStoredLabelReadsAsSpace)
    {
        HotkeyFixture f;
        f.store(keys::hotkeyKeyCode, std::int64_t { 0 });
        f.store(keys::hotkeyKeyLabel, std::string());

        EXPECT_EQ(f.manager.loadShortcut(), (Shortcut { 0, 4096, "Space" }));
    }

    TEST(HotkeyManagerTest, AStoredKeyCodeZeroWithoutAMaskTakesTheDefaultMask)
    {
        HotkeyFixture f;
        f.store(keys::hotkeyKeyCode, std::int64_t { 0 });

        const auto shortcut = f.manager.loadShortcut();

        ASSERT_TRUE(shortcut);
        EXPECT_EQ(shortcut->keyCode, 0U);
        EXPECT_EQ(shortcut->modifiers, 4096U);
    }

    TEST(HotkeyManagerTest, ABooleanOrARealIsNoInteger)
    {
        HotkeyFixture f;
        f.store(keys::hotkeyKeyCode, 12.0);
        f.store(keys::hotkeyModifiers, true);

        EXPECT_EQ(f.manager.loadShortcut(), Shortcut {});
    }

    TEST(HotkeyManagerTest, AStoredNumberOutsideTheUnsigned32BitRangeIsNoShortcut)
    {
        for (const std::int64_t number : { std::int64_t { -1 }, std::int64_t { 4'294'967'296 } }) {
            for (const auto key : { keys::hotkeyKeyCode, keys::hotkeyModifiers }) {
                HotkeyFixture f;
                f.store(key, number);

                EXPECT_EQ(f.manager.loadShortcut(), std::nullopt) << key << ' ' << number;
            }
        }
    }

    TEST(HotkeyManagerTest, TheLargestUnsigned32BitNumbersAreRead)
    {
        HotkeyFixture f;
        f.store(keys::hotkeyKeyCode, std::int64_t { 4'294'967'295 });
        f.store(keys::hotkeyModifiers, std::int64_t { 4'294'967'295 });

        EXPECT_EQ(f.manager.loadShortcut(), (Shortcut { 4'294'967'295U, 4'294'967'295U, "Space" }));
    }

    TEST(HotkeyManagerTest, SavingWritesTheThreePreferences)
    {
        HotkeyFixture f;

        f.manager.saveShortcut(optionCommandA);

        EXPECT_EQ(f.preferences.get(keys::hotkeyKeyCode), PreferenceValue(std::int64_t { 0 }));
        EXPECT_EQ(f.preferences.get(keys::hotkeyModifiers), PreferenceValue(std::int64_t { 2304 }));
        EXPECT_EQ(f.preferences.get(keys::hotkeyKeyLabel), PreferenceValue(std::string("A")));
        EXPECT_EQ(f.manager.loadShortcut(), optionCommandA);
    }

    TEST(HotkeyManagerTest, RegisteringHoldsTheNewChordAlone)
    {
        HotkeyFixture f;
        EXPECT_TRUE(f.manager.registerShortcut(49, 4096));

        EXPECT_TRUE(f.manager.registerShortcut(0, 2304));

        EXPECT_EQ(f.grabber.held, optionCommandAChord);
    }

    TEST(HotkeyManagerTest, ATakenChordLeavesNoneHeld)
    {
        HotkeyFixture f;
        f.grabber.taken.insert(optionCommandAChord);
        EXPECT_TRUE(f.manager.registerShortcut(49, 4096));

        EXPECT_FALSE(f.manager.registerShortcut(0, 2304));

        EXPECT_EQ(f.grabber.held, std::nullopt);
    }

    TEST(HotkeyManagerTest, APressCallsOnTheLoopsNextTurn)
    {
        HotkeyFixture f;
        int calls = 0;
        f.manager.onHotkey = [&] { ++calls; };

        f.grabber.pressed();
        EXPECT_EQ(calls, 0);

        f.loop.turn();
        EXPECT_EQ(calls, 1);
    }

    TEST(HotkeyManagerTest, TwoPressesCallTwice)
    {
        HotkeyFixture f;
        int calls = 0;
        f.manager.onHotkey = [&] { ++calls; };

        f.grabber.pressed();
        f.grabber.pressed();
        f.loop.turn();

        EXPECT_EQ(calls, 2);
    }

    TEST(HotkeyManagerTest, APressWithoutAReceiverDoesNothing)
    {
        HotkeyFixture f;

        f.grabber.pressed();
        f.loop.turn();

        EXPECT_FALSE(f.manager.onHotkey);
    }

    TEST(HotkeyManagerTest, APressThatIsStillToComeEndsWithTheManager)
    {
        test::FakeHotkeyGrabber grabber;
        test::MemoryPreferences preferences;
        test::ManualLoop loop;
        int calls = 0;
        {
            HotkeyManager manager(grabber, preferences, loop);
            manager.onHotkey = [&] { ++calls; };
            grabber.pressed();
        }

        loop.turn();

        EXPECT_EQ(calls, 0);
    }

    TEST(HotkeyManagerTest, TheShortcutIsReleasedWithTheManager)
    {
        test::FakeHotkeyGrabber grabber;
        test::MemoryPreferences preferences;
        test::ManualLoop loop;
        {
            HotkeyManager manager(grabber, preferences, loop);
            EXPECT_TRUE(manager.registerShortcut(49, 4096));
        }

        EXPECT_EQ(grabber.held, std::nullopt);
        EXPECT_EQ(grabber.releases, 1);
    }

    TEST(HotkeyManagerTest, ChangingHoldsAndStoresTheNewShortcut)
    {
        HotkeyFixture f;
        EXPECT_TRUE(f.registerStored());

        EXPECT_TRUE(f.manager.changeShortcut(optionCommandA));

        EXPECT_EQ(f.grabber.held, optionCommandAChord);
        EXPECT_EQ(f.manager.loadShortcut(), optionCommandA);
    }

    TEST(HotkeyManagerTest, ChangingToATakenShortcutKeepsTheOldOneWorkingAndStored)
    {
        HotkeyFixture f;
        f.grabber.taken.insert(optionCommandAChord);
        EXPECT_TRUE(f.registerStored());

        EXPECT_FALSE(f.manager.changeShortcut(optionCommandA));

        EXPECT_EQ(f.grabber.held, controlSpace);
        EXPECT_EQ(f.preferences.writes, 0);
        EXPECT_EQ(f.refusals, 0); // who asked knows
    }

    TEST(HotkeyManagerTest, ChangingGrabsOnceThoughThreeKeysAreWritten)
    {
        HotkeyFixture f;
        EXPECT_TRUE(f.registerStored());
        const int before = f.grabber.grabs;

        EXPECT_TRUE(f.manager.changeShortcut(optionCommandA));

        EXPECT_EQ(f.grabber.grabs, before + 1);
    }

    TEST(HotkeyManagerTest, RestoringTheDefaultHoldsAndStoresControlSpace)
    {
        HotkeyFixture f;
        EXPECT_TRUE(f.manager.changeShortcut(optionCommandA));

        EXPECT_TRUE(f.manager.restoreDefaultShortcut());

        EXPECT_EQ(f.grabber.held, controlSpace);
        EXPECT_EQ(f.manager.loadShortcut(), Shortcut {});
    }

    TEST(HotkeyManagerTest, ARefusedDefaultLeavesTheShortcutAsItIs)
    {
        HotkeyFixture f;
        EXPECT_TRUE(f.manager.changeShortcut(optionCommandA));
        f.grabber.taken.insert(controlSpace);

        EXPECT_FALSE(f.manager.restoreDefaultShortcut());

        EXPECT_EQ(f.grabber.held, optionCommandAChord);
        EXPECT_EQ(f.manager.loadShortcut(), optionCommandA);
        EXPECT_EQ(f.refusals, 0);
    }

    TEST(HotkeyManagerTest, AChangeFromOutsideTakesEffect)
    {
        HotkeyFixture f;
        EXPECT_TRUE(f.registerStored());

        f.storeFromOutside(0, 2304);

        EXPECT_EQ(f.grabber.held, optionCommandAChord);
    }

    TEST(HotkeyManagerTest, AChangeFromOutsideBeforeTheStartGrabsNothing)
    {
        HotkeyFixture f;

        f.storeFromOutside(0, 2304);

        EXPECT_EQ(f.grabber.grabs, 0);
    }

    TEST(HotkeyManagerTest, AnotherPreferenceThatChangesGrabsNothing)
    {
        HotkeyFixture f;
        EXPECT_TRUE(f.registerStored());
        const int before = f.grabber.grabs;

        f.preferences.set(keys::theme, std::string("dark"));
        f.preferences.set(keys::hotkeyKeyLabel, std::string("Blank"));

        EXPECT_EQ(f.grabber.grabs, before);
    }

    TEST(HotkeyManagerTest, ATakenShortcutFromOutsideLeavesTheOldOneWorking)
    {
        HotkeyFixture f;
        EXPECT_TRUE(f.registerStored());
        f.grabber.taken.insert(optionCommandAChord);

        f.storeFromOutside(0, 2304);

        EXPECT_EQ(f.grabber.held, controlSpace);
    }

    TEST(HotkeyManagerTest, ATakenShortcutFromOutsideIsToldOnceAndNotTriedAtEveryOtherChange)
    {
        HotkeyFixture f;
        EXPECT_TRUE(f.registerStored());
        f.grabber.taken.insert(optionCommandAChord);
        f.storeFromOutside(0, 2304);
        const int before = f.grabber.grabs;

        f.preferences.set(keys::theme, std::string("dark"));

        EXPECT_EQ(f.refusals, 1);
        EXPECT_EQ(f.grabber.grabs, before);
        EXPECT_EQ(f.grabber.held, controlSpace);
    }

    TEST(HotkeyManagerTest, AfterARefusalFromOutsideAnotherShortcutTakesEffect)
    {
        HotkeyFixture f;
        EXPECT_TRUE(f.registerStored());
        f.grabber.taken.insert(optionCommandAChord);
        f.storeFromOutside(0, 2304);

        f.storeFromOutside(1, 2304);
        EXPECT_EQ(f.grabber.held, (Chord { 1, 2304 }));

        f.storeFromOutside(0, 2304);
        EXPECT_EQ(f.grabber.held, (Chord { 1, 2304 }));
        EXPECT_EQ(f.refusals, 2);
    }

    TEST(HotkeyManagerTest, WhatWasRefusedFromOutsideIsTriedAgainAfterAnotherWasChosen)
    {
        HotkeyFixture f;
        EXPECT_TRUE(f.registerStored());
        f.grabber.taken.insert(optionCommandAChord);
        f.storeFromOutside(0, 2304);
        EXPECT_TRUE(f.manager.restoreDefaultShortcut());
        f.grabber.taken.clear();

        f.storeFromOutside(0, 2304);

        EXPECT_EQ(f.grabber.held, optionCommandAChord);
    }

    TEST(HotkeyManagerTest, AnImpossibleShortcutFromOutsideLeavesTheOldOneWorking)
    {
        HotkeyFixture f;
        EXPECT_TRUE(f.registerStored());

        f.storeFromOutside(-1, 2304);

        EXPECT_EQ(f.grabber.held, controlSpace);
    }

} // namespace
} // namespace korvane
