#include "settings/view/ShortcutsPage.h"

#include "PageTexts.h"
#include "hotkey/HotkeyManager.h"
#include "look/view/Symbols.h"
#include "settings/view/HotkeyField.h"
#include "settings/view/HotkeyRecorderView.h"
#include "settings/view/Switch.h"
#include "settings/view/TextButton.h"
#include "support/FakeAlerts.h"
#include "support/FakeHotkeyGrabber.h"
#include "support/FakeKeyRecorder.h"
#include "support/Input.h"
#include "support/ManualLoop.h"
#include "support/MemoryPreferences.h"

#include <QAccessible>
#include <QImage>

#include <gtest/gtest.h>

#include <memory>

namespace korvane {
namespace {

    struct PageFixture {
        test::ManualLoop loop;
        test::MemoryPreferences preferences;
        test::FakeHotkeyGrabber grabber;
        HotkeyManager hotkeys { grabber, preferences, loop };
        test::FakeKeyRecorder keys;
        test::FakeAlerts alerts;
        Symbols symbols;
        std::unique_ptr<ShortcutsPage> page;

        PageFixture()
        {
            EXPECT_TRUE(hotkeys.registerShortcut(49, 4096));
            page = std::make_unique<ShortcutsPage>(
                ControlKit { loop, symbols, {} }, &hotkeys, preferences, keys, alerts);
            page->resize(FormPage::pageWidth, FormPage::pageHeight);
            page->show();
            test::settle();
        }
        ~PageFixture()
        {
            page.reset();
            test::settle();
        }

        HotkeyField& field() const { return page->recorder().field(); }
        TextButton& reset() const { return page->recorder().resetButton(); }
        Switch& turn(const QString& name) const
        {
            for (auto* const control : page->findChildren<Switch*>())
                if (control->accessibleName() == name)
                    return *control;
            ADD_FAILURE() << name.toStdString();
            return *page->findChild<Switch*>();
        }
        void press(KeyCode keyCode, ModifierMask mask, std::string characters = {})
        {
            keys.keyDown({ keyCode, mask, std::move(characters) });
            test::settle();
        }
    };

    TEST(ShortcutsPageTest, TheTextsStandInTheirOrder)
    {
        const PageFixture f;
        const auto* const navigation
            = "Panel navigation: ↑↓ arrows or ⌘1–⌘0 for instant paste. Return pastes the "
              "selected item. Space — Selected item Quick Look. ⌘P — pin/unpin. ⌘Delete — "
              "delete. Tab / ⇧Tab — cycle filter tabs.";

        EXPECT_EQ(test::shownTexts(*f.page),
            (QStringList { "Global Shortcut", "Open Korvane:", "Enable ⌘1–⌘0 direct select",
                "Enable Tab / ⇧Tab to cycle filter tabs", navigation }));
        EXPECT_EQ(f.reset().text(), "Reset");
    }

    TEST(ShortcutsPageTest, WithFreshPreferencesBothSwitchesShowOn)
    {
        const PageFixture f;

        EXPECT_TRUE(f.turn("Enable ⌘1–⌘0 direct select").isOn());
        EXPECT_TRUE(f.turn("Enable Tab / ⇧Tab to cycle filter tabs").isOn());
        EXPECT_EQ(f.preferences.writes, 0);
    }

    TEST(ShortcutsPageTest, TheSwitchesWriteTheirKeys)
    {
        const PageFixture f;

        f.turn("Enable ⌘1–⌘0 direct select").click();
        f.turn("Enable Tab / ⇧Tab to cycle filter tabs").click();

        EXPECT_EQ(f.preferences.get(keys::enableDirectPaste), PreferenceValue(false));
        EXPECT_EQ(f.preferences.get(keys::enableTabCycling), PreferenceValue(false));
    }

    TEST(ShortcutsPageTest, SwitchingDirectSelectOffAndOnMakesThePanelFollow)
    {
        PageFixture f;
        EXPECT_FALSE(isDirectPasteEnabled(f.preferences));

        f.turn("Enable ⌘1–⌘0 direct select").click();
        f.turn("Enable ⌘1–⌘0 direct select").click();

        EXPECT_TRUE(isDirectPasteEnabled(f.preferences));
    }

    TEST(ShortcutsPageTest, TheFieldShowsTheShortcutAndIsWideEnough)
    {
        const PageFixture f;

        EXPECT_EQ(f.field().text(), "⌃Space");
        EXPECT_GE(f.field().width(), 140);
    }

    TEST(ShortcutsPageTest, AClickRecordsInTheWindowOfThePage)
    {
        PageFixture f;

        test::click(f.field(), f.field().rect().center());
        test::settle();

        EXPECT_EQ(f.field().text(), "Recording… (Esc to cancel)");
        EXPECT_EQ(f.keys.listensFor, f.page->window()->winId());
        EXPECT_GE(f.field().width(), f.field().sizeHint().width());
    }

    TEST(ShortcutsPageTest, AnotherClickEndsTheRecording)
    {
        PageFixture f;
        f.field().click();

        test::click(f.field(), f.field().rect().center());

        EXPECT_EQ(f.field().text(), "⌃Space");
        EXPECT_FALSE(f.keys.isListening());
    }

    TEST(ShortcutsPageTest, SpaceAndReturnBeginToRecordToo)
    {
        for (const int key : { int { Qt::Key_Space }, int { Qt::Key_Return } }) {
            PageFixture f;
            f.field().setFocus();

            test::typeKey(f.field(), key);

            EXPECT_TRUE(f.keys.isListening()) << key;
        }
    }

    TEST(ShortcutsPageTest, ARecordedShortcutShowsInTheField)
    {
        PageFixture f;
        f.field().click();

        f.press(0, modifiers::option | modifiers::command, "a");

        EXPECT_EQ(f.field().text(), "⌥⌘A");
    }

    TEST(ShortcutsPageTest, WhileRecordingTheWindowsOwnKeysGoToTheRecorderAndNoFurther)
    {
        PageFixture f;
        f.field().setFocus();
        f.field().click();

        for (const int key : { int { Qt::Key_Tab }, int { Qt::Key_Escape }, int { Qt::Key_A } }) {
            QKeyEvent event(QEvent::KeyPress, key, Qt::ControlModifier, 38, 0, 4);
            event.ignore();
            QApplication::sendEvent(&f.field(), &event);
            EXPECT_TRUE(event.isAccepted()) << key;
        }

        EXPECT_EQ(f.keys.windowKeys,
            (std::vector<std::pair<std::uint32_t, std::uint32_t>> {
                { 38, 4 }, { 38, 4 }, { 38, 4 } }));
        EXPECT_TRUE(f.keys.isListening());
    }

    TEST(ShortcutsPageTest, WhileRecordingNoShortcutOfTheWindowActs)
    {
        PageFixture f;
        f.field().click();
        QKeyEvent override(QEvent::ShortcutOverride, Qt::Key_Escape, Qt::NoModifier);
        override.ignore();

        QApplication::sendEvent(&f.field(), &override);

        EXPECT_TRUE(override.isAccepted());
    }

    TEST(ShortcutsPageTest, ARepetitionOfAHeldKeyIsNotRecorded)
    {
        PageFixture f;
        f.field().click();
        QKeyEvent repetition(QEvent::KeyPress, Qt::Key_A, Qt::ControlModifier, 38, 0, 4, "a", true);

        QApplication::sendEvent(&f.field(), &repetition);

        EXPECT_TRUE(f.keys.windowKeys.empty());
    }

    TEST(ShortcutsPageTest, KeysAreNotRecordedWhileNobodyAskedForIt)
    {
        PageFixture f;
        f.field().setFocus();

        test::typeKey(f.field(), Qt::Key_A);

        EXPECT_TRUE(f.keys.windowKeys.empty());
    }

    TEST(ShortcutsPageTest, LeavingThePageEndsTheRecording)
    {
        PageFixture f;
        f.field().click();

        f.page->hide();

        EXPECT_FALSE(f.keys.isListening());
        EXPECT_EQ(f.field().text(), "⌃Space");
    }

    TEST(ShortcutsPageTest, TheEndOfTheWindowWhileRecordingFreesTheKeyboard)
    {
        PageFixture f;
        f.field().click();

        f.page.reset();

        EXPECT_FALSE(f.keys.isListening());
    }

    TEST(ShortcutsPageTest, ResetTakesTheDefaultAgain)
    {
        PageFixture f;
        f.field().click();
        f.press(0, modifiers::command, "a");

        f.reset().click();

        EXPECT_EQ(f.field().text(), "⌃Space");
        EXPECT_EQ(f.preferences.get(keys::hotkeyModifiers), PreferenceValue(std::int64_t { 4096 }));
    }

    TEST(ShortcutsPageTest, ATakenShortcutIsToldAndItsDismissalEndsTheRecording)
    {
        PageFixture f;
        f.grabber.taken.insert({ 0, modifiers::command });
        f.field().click();

        f.press(0, modifiers::command, "a");

        ASSERT_EQ(f.alerts.asked.size(), 1U);
        EXPECT_EQ(f.alerts.asked[0].message, "Shortcut unavailable");
        EXPECT_EQ(f.field().text(), "Recording… (Esc to cancel)");
        f.alerts.agree();
        EXPECT_EQ(f.field().text(), "⌃Space");
    }

    TEST(ShortcutsPageTest, AssistiveTechnologyIsToldWhatTheFieldIsFor)
    {
        const PageFixture f;
        auto* const field = QAccessible::queryAccessibleInterface(&f.field());

        EXPECT_EQ(field->role(), QAccessible::Button);
        EXPECT_EQ(field->text(QAccessible::Name), "⌃Space");
        EXPECT_EQ(field->text(QAccessible::Description), "Open Korvane:");
    }

    /// The colour of the field's ground, clear of its text and corners.
    QColor ground(const HotkeyField& field)
    {
        QImage image(field.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        const_cast<HotkeyField&>(field).render(
            &image, {}, {}, QWidget::RenderFlags(QWidget::DrawChildren));
        return image.pixelColor(5, field.height() / 2);
    }

    TEST(ShortcutsPageTest, TheFieldIsGreenOnlyWhileRecording)
    {
        PageFixture f;
        const auto idle = ground(f.field());
        f.field().click();
        test::settle();

        const auto recording = ground(f.field());

        EXPECT_LT(std::abs(idle.red() - idle.green()), 12);
        // A quarter of the accent over white.
        EXPECT_NEAR(recording.red(), 198, 3);
        EXPECT_NEAR(recording.green(), 231, 3);
        EXPECT_NEAR(recording.blue(), 221, 3);
    }

} // namespace
} // namespace korvane
