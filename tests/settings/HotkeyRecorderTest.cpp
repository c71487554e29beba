#include "settings/HotkeyRecorder.h"

#include "hotkey/HotkeyManager.h"
#include "model/Preferences.h"
#include "support/FakeAlerts.h"
#include "support/FakeHotkeyGrabber.h"
#include "support/FakeKeyRecorder.h"
#include "support/ManualLoop.h"
#include "support/MemoryPreferences.h"

#include <gtest/gtest.h>

#include <memory>

namespace korvane {
namespace {

    using Chord = test::FakeHotkeyGrabber::Chord;

    constexpr std::uint64_t window = 42;
    constexpr Chord controlSpace { 49, 4096 };
    constexpr Chord optionCommandA { 0, 2304 };

    struct RecorderFixture {
        test::FakeHotkeyGrabber grabber;
        test::MemoryPreferences preferences;
        test::ManualLoop loop;
        HotkeyManager manager { grabber, preferences, loop };
        test::FakeKeyRecorder keys;
        test::FakeAlerts alerts;
        std::unique_ptr<HotkeyRecorder> recorder
            = std::make_unique<HotkeyRecorder>(&manager, preferences, keys, alerts);

        RecorderFixture() { EXPECT_TRUE(manager.registerShortcut(49, 4096)); }

        void click() { recorder->fieldClicked(window); }
        void press(KeyCode keyCode, ModifierMask mask, std::string characters = {})
        {
            keys.keyDown({ keyCode, mask, std::move(characters) });
        }
        void pressOptionCommandA() { press(0, modifiers::option | modifiers::command, "a"); }
        Shortcut stored() const { return storedShortcut(preferences).value(); }
    };

    TEST(HotkeyRecorderTest, WithFreshPreferencesTheFieldShowsControlSpace)
    {
        const RecorderFixture f;

        EXPECT_EQ(f.recorder->text(), "⌃Space");
        EXPECT_FALSE(f.recorder->isRecording());
    }

    TEST(HotkeyRecorderTest, AClickBeginsToRecordInTheWindowOfTheField)
    {
        RecorderFixture f;

        f.click();

        EXPECT_TRUE(f.recorder->isRecording());
        EXPECT_EQ(f.recorder->text(), "Recording… (Esc to cancel)");
        EXPECT_EQ(f.keys.listensFor, window);
    }

    TEST(HotkeyRecorderTest, ASecondClickEndsTheRecordingAndChangesNothing)
    {
        RecorderFixture f;
        f.click();

        f.click();

        EXPECT_FALSE(f.recorder->isRecording());
        EXPECT_FALSE(f.keys.isListening());
        EXPECT_EQ(f.recorder->text(), "⌃Space");
        EXPECT_EQ(f.preferences.writes, 0);
    }

    TEST(HotkeyRecorderTest, AKeyWithoutAModifierBeepsAndTheRecordingGoesOn)
    {
        RecorderFixture f;
        f.click();

        f.press(0, 0, "a");

        EXPECT_EQ(f.keys.beeps, 1);
        EXPECT_TRUE(f.recorder->isRecording());
        EXPECT_TRUE(f.keys.isListening());
        EXPECT_EQ(f.preferences.writes, 0);
    }

    TEST(HotkeyRecorderTest, OptionCommandAIsStoredWithTheLetterInCapitals)
    {
        RecorderFixture f;
        f.click();

        f.pressOptionCommandA();

        EXPECT_EQ(f.stored(), (Shortcut { 0, 2304, "A" }));
        EXPECT_EQ(f.grabber.held, optionCommandA);
        EXPECT_EQ(f.recorder->text(), "⌥⌘A");
        EXPECT_FALSE(f.recorder->isRecording());
        EXPECT_FALSE(f.keys.isListening());
        EXPECT_EQ(f.keys.beeps, 0);
    }

    TEST(HotkeyRecorderTest, AModifierThatNoShortcutKnowsIsDropped)
    {
        RecorderFixture f;
        f.click();

        f.press(0, modifiers::command | 1024, "a");

        EXPECT_EQ(f.stored().modifiers, 256U);
    }

    TEST(HotkeyRecorderTest, AModifierThatNoShortcutKnowsIsNoneByItself)
    {
        RecorderFixture f;
        f.click();

        f.press(0, 1024, "a");

        EXPECT_EQ(f.keys.beeps, 1);
        EXPECT_TRUE(f.recorder->isRecording());
    }

    TEST(HotkeyRecorderTest, ShiftAloneIsAModifier)
    {
        RecorderFixture f;
        f.click();

        f.press(101, modifiers::shift);

        EXPECT_EQ(f.stored(), (Shortcut { 101, 512, "F9" }));
    }

    TEST(HotkeyRecorderTest, AKeyWithAFixedLabelIsShownByItWhateverItTypes)
    {
        RecorderFixture f;
        f.click();

        f.press(49, modifiers::command, " ");

        EXPECT_EQ(f.recorder->text(), "⌘Space");
    }

    TEST(HotkeyRecorderTest, AKeyThatTypesNothingIsShownByItsNumber)
    {
        RecorderFixture f;
        f.click();

        f.press(10, modifiers::shift | modifiers::command);

        EXPECT_EQ(f.stored(), (Shortcut { 10, 768, "Key 10" }));
        EXPECT_EQ(f.recorder->text(), "⇧⌘Key 10");
    }

    TEST(HotkeyRecorderTest, ALetterOfAnotherScriptIsShownInCapitals)
    {
        RecorderFixture f;
        f.click();

        f.press(0, modifiers::control, "ф");

        EXPECT_EQ(f.recorder->text(), "⌃Ф");
    }

    TEST(HotkeyRecorderTest, EscapeCancels)
    {
        RecorderFixture f;
        f.click();

        f.press(keycodes::escape, 0);

        EXPECT_FALSE(f.recorder->isRecording());
        EXPECT_FALSE(f.keys.isListening());
        EXPECT_EQ(f.preferences.writes, 0);
        EXPECT_EQ(f.keys.beeps, 0);
    }

    TEST(HotkeyRecorderTest, EscapeCancelsWithModifiersHeldToo)
    {
        RecorderFixture f;
        f.click();

        f.press(keycodes::escape, modifiers::control | modifiers::command);

        EXPECT_FALSE(f.recorder->isRecording());
        EXPECT_EQ(f.preferences.writes, 0);
        EXPECT_EQ(f.grabber.held, controlSpace);
    }

    TEST(HotkeyRecorderTest, AKeyThatNoShortcutCanNameBeepsAndTheRecordingGoesOn)
    {
        RecorderFixture f;
        f.click();

        f.keys.unnamedKeyDown();

        EXPECT_EQ(f.keys.beeps, 1);
        EXPECT_TRUE(f.recorder->isRecording());
    }

    TEST(HotkeyRecorderTest, ATakenChordShowsShortcutUnavailable)
    {
        RecorderFixture f;
        f.grabber.taken.insert(optionCommandA);
        f.click();

        f.pressOptionCommandA();

        ASSERT_EQ(f.alerts.asked.size(), 1U);
        EXPECT_EQ(f.alerts.asked[0].message, "Shortcut unavailable");
        EXPECT_EQ(f.alerts.asked[0].informativeText,
            "That key combination is already in use by macOS or another app. Please try a "
            "different one.");
        EXPECT_EQ(f.alerts.asked[0].buttons, (std::vector<std::string> { "OK" }));
        EXPECT_EQ(f.alerts.asked[0].kind, Alert::Kind::warning);
    }

    TEST(HotkeyRecorderTest, WithoutAWindowThatHasTheKeyboardATakenChordIsToldAllTheSame)
    {
        RecorderFixture f;
        f.grabber.taken.insert(optionCommandA);
        f.alerts.hasWindow = false;
        f.click();

        f.pressOptionCommandA();

        ASSERT_EQ(f.alerts.shown.size(), 1U);
        EXPECT_EQ(f.alerts.shown[0].message, "Shortcut unavailable");
        EXPECT_TRUE(f.recorder->isRecording());
        f.alerts.agree();
        EXPECT_FALSE(f.recorder->isRecording());
    }

    TEST(HotkeyRecorderTest, ATakenChordKeepsTheOldShortcutWorkingAndStored)
    {
        RecorderFixture f;
        f.grabber.taken.insert(optionCommandA);
        f.click();

        f.pressOptionCommandA();
        f.alerts.agree();

        EXPECT_EQ(f.grabber.held, controlSpace);
        EXPECT_EQ(f.preferences.writes, 0);
        EXPECT_EQ(f.recorder->text(), "⌃Space");
    }

    TEST(HotkeyRecorderTest, TheRecordingEndsWhenTheAlertHasBeenRead)
    {
        RecorderFixture f;
        f.grabber.taken.insert(optionCommandA);
        f.click();
        f.pressOptionCommandA();
        EXPECT_TRUE(f.recorder->isRecording());

        f.alerts.agree();

        EXPECT_FALSE(f.recorder->isRecording());
    }

    TEST(HotkeyRecorderTest, WhileTheAlertIsShownTheKeyboardIsFreeToAnswerIt)
    {
        RecorderFixture f;
        f.grabber.taken.insert(optionCommandA);
        f.click();
        f.pressOptionCommandA();
        EXPECT_FALSE(f.keys.isListening());

        f.press(1, modifiers::command, "s");
        f.press(1, 0, "s");

        EXPECT_EQ(f.preferences.writes, 0);
        EXPECT_EQ(f.keys.beeps, 0);
        EXPECT_EQ(f.alerts.asked.size(), 1U);
    }

    TEST(HotkeyRecorderTest, AnAlertThatIsReadLateEndsNoOtherRecording)
    {
        RecorderFixture f;
        f.grabber.taken.insert(optionCommandA);
        f.click();
        f.pressOptionCommandA();
        f.recorder->stopRecording();
        f.click();

        f.alerts.agree();

        EXPECT_TRUE(f.recorder->isRecording());
    }

    TEST(HotkeyRecorderTest, AnAlertMayBeReadAfterTheRecordersEnd)
    {
        RecorderFixture f;
        f.grabber.taken.insert(optionCommandA);
        f.click();
        f.pressOptionCommandA();

        f.recorder.reset();
        f.alerts.agree();

        EXPECT_EQ(f.grabber.held, controlSpace);
    }

    TEST(HotkeyRecorderTest, WhenTheOldShortcutIsTakenMeanwhileNothingFurtherIsTold)
    {
        RecorderFixture f;
        f.grabber.taken = { optionCommandA, controlSpace };
        f.click();

        f.pressOptionCommandA();
        f.alerts.agree();

        EXPECT_EQ(f.alerts.asked.size(), 1U);
        EXPECT_EQ(f.grabber.held, std::nullopt);
        EXPECT_EQ(f.preferences.writes, 0);
    }

    TEST(HotkeyRecorderTest, KeysAreHeardOnlyWhileRecording)
    {
        RecorderFixture f;

        f.pressOptionCommandA();
        f.press(0, 0, "a");
        f.keys.unnamedKeyDown();

        EXPECT_EQ(f.preferences.writes, 0);
        EXPECT_EQ(f.keys.beeps, 0);
    }

    TEST(HotkeyRecorderTest, WhereTheKeyboardCannotBeHadTheWindowsKeysStillRecord)
    {
        RecorderFixture f;
        f.keys.canStart = false;
        f.click();
        EXPECT_TRUE(f.recorder->isRecording());

        f.pressOptionCommandA(); // as the backend tells what the window passes on to it

        EXPECT_EQ(f.recorder->text(), "⌥⌘A");
    }

    TEST(HotkeyRecorderTest, ResetStoresControlSpace)
    {
        RecorderFixture f;
        f.click();
        f.pressOptionCommandA();

        f.recorder->reset();

        EXPECT_EQ(f.stored(), (Shortcut { 49, 4096, "Space" }));
        EXPECT_EQ(f.grabber.held, controlSpace);
        EXPECT_EQ(f.recorder->text(), "⌃Space");
    }

    TEST(HotkeyRecorderTest, AResetThatIsRefusedChangesNothingSilently)
    {
        RecorderFixture f;
        f.click();
        f.pressOptionCommandA();
        f.grabber.taken.insert(controlSpace);

        f.recorder->reset();

        EXPECT_EQ(f.stored(), (Shortcut { 0, 2304, "A" }));
        EXPECT_EQ(f.grabber.held, optionCommandA);
        EXPECT_TRUE(f.alerts.asked.empty());
        EXPECT_EQ(f.keys.beeps, 0);
    }

    TEST(HotkeyRecorderTest, AResetThatIsRefusedOnFreshPreferencesStoresNothing)
    {
        RecorderFixture f;
        f.grabber.taken.insert(controlSpace);

        f.recorder->reset();

        EXPECT_EQ(f.preferences.writes, 0);
        EXPECT_EQ(f.recorder->text(), "⌃Space");
        EXPECT_TRUE(f.alerts.asked.empty());
    }

    TEST(HotkeyRecorderTest, WithoutAnApplicationEveryAttemptOnlyEndsTheRecording)
    {
        RecorderFixture f;
        HotkeyRecorder recorder(nullptr, f.preferences, f.keys, f.alerts);
        f.recorder.reset();
        recorder.fieldClicked(window);

        f.pressOptionCommandA();
        EXPECT_FALSE(recorder.isRecording());

        recorder.fieldClicked(window);
        recorder.reset();
        EXPECT_FALSE(recorder.isRecording());
        EXPECT_EQ(f.preferences.writes, 0);
        EXPECT_EQ(f.grabber.held, controlSpace);
    }

    TEST(HotkeyRecorderTest, AChangeFromOutsideShowsInTheField)
    {
        RecorderFixture f;
        int changes = 0;
        const auto connection = f.recorder->changed.connect([&] { ++changes; });
        f.preferences.values.insert_or_assign(
            std::string(keys::hotkeyKeyLabel), std::string("Leertaste"));

        f.preferences.changed();

        EXPECT_EQ(f.recorder->text(), "⌃Leertaste");
        EXPECT_EQ(changes, 1);
    }

    TEST(HotkeyRecorderTest, AnImpossibleShortcutFromOutsideLeavesTheOneThatWorksInTheField)
    {
        RecorderFixture f;

        f.preferences.set(keys::hotkeyKeyCode, std::int64_t { -1 });

        EXPECT_EQ(f.recorder->text(), "⌃Space");
    }

    TEST(HotkeyRecorderTest, AShortcutThatHasGoneFromTheFileIsStillHeldAndStillShown)
    {
        RecorderFixture f;
        f.click();
        f.pressOptionCommandA();

        f.preferences.values.clear();
        f.preferences.changed();

        EXPECT_EQ(f.grabber.held, optionCommandA);
        EXPECT_EQ(f.recorder->text(), "⌥⌘A");
    }

    TEST(HotkeyRecorderTest, AShortcutFromOutsideThatIsTakenIsNotShown)
    {
        RecorderFixture f;
        f.grabber.taken = { optionCommandA };
        f.preferences.values.insert_or_assign(std::string(keys::hotkeyKeyCode), std::int64_t { 0 });
        f.preferences.values.insert_or_assign(
            std::string(keys::hotkeyModifiers), std::int64_t { 2304 });

        f.preferences.changed();

        EXPECT_EQ(f.grabber.held, controlSpace);
        EXPECT_EQ(f.recorder->text(), "⌃Space");
    }

    TEST(HotkeyRecorderTest, AKeyboardThatIsGivenBackByItselfEndsTheRecording)
    {
        RecorderFixture f;
        f.click();

        f.keys.gaveUp();

        EXPECT_FALSE(f.recorder->isRecording());
        EXPECT_FALSE(f.keys.isListening());
        EXPECT_EQ(f.preferences.writes, 0);
    }

    TEST(HotkeyRecorderTest, ItsBeginningAndItsEndAreTold)
    {
        RecorderFixture f;
        std::vector<std::string> told;
        const auto connection
            = f.recorder->changed.connect([&] { told.push_back(f.recorder->text()); });

        f.click();
        f.click();

        EXPECT_EQ(told, (std::vector<std::string> { "Recording… (Esc to cancel)", "⌃Space" }));
    }

    TEST(HotkeyRecorderTest, ItsEndGivesTheKeyboardBack)
    {
        RecorderFixture f;
        f.click();

        f.recorder.reset();

        EXPECT_FALSE(f.keys.isListening());
    }

} // namespace
} // namespace korvane
