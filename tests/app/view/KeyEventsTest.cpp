#include "app/view/KeyEvents.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

#include <utility>

namespace korvane {
namespace {

    constexpr auto ctrl = Qt::ControlModifier;
    constexpr auto super = Qt::MetaModifier;

    /// @param place  the X server's number of the key, 0 where it does not matter
    KeyPress pressed(int key, Qt::KeyboardModifiers held = Qt::NoModifier, const QString& text = {},
        quint32 place = 0)
    {
        return keyPressFrom(QKeyEvent(QEvent::KeyPress, key, held, place, 0, 0, text));
    }

    TEST(KeyEventsTest, KeysWithAMeaningOfTheirOwnHaveTheirCode)
    {
        EXPECT_EQ(pressed(Qt::Key_Return).keyCode, 36U);
        EXPECT_EQ(pressed(Qt::Key_Tab).keyCode, 48U);
        EXPECT_EQ(pressed(Qt::Key_Space).keyCode, 49U);
        EXPECT_EQ(pressed(Qt::Key_Backspace).keyCode, 51U);
        EXPECT_EQ(pressed(Qt::Key_Escape).keyCode, 53U);
        EXPECT_EQ(pressed(Qt::Key_Down).keyCode, 125U);
        EXPECT_EQ(pressed(Qt::Key_Up).keyCode, 126U);
    }

    TEST(KeyEventsTest, TheNumberPadsKeysAreThoseOfTheMainField)
    {
        EXPECT_EQ(pressed(Qt::Key_Enter, Qt::KeypadModifier).keyCode, 36U);
        EXPECT_EQ(pressed(Qt::Key_Down, Qt::KeypadModifier).keyCode, 125U);
    }

    TEST(KeyEventsTest, ALetterKeyHasNoneOfTheCodesThatMeanSomething)
    {
        for (const int key : { Qt::Key_A, Qt::Key_S, Qt::Key_P, Qt::Key_1, Qt::Key_Delete })
            EXPECT_EQ(pressed(key).keyCode, unnamedKey);
    }

    TEST(KeyEventsTest, BacktabIsTabWithShift)
    {
        const auto press = pressed(Qt::Key_Backtab);

        EXPECT_EQ(press.keyCode, keycodes::tab);
        EXPECT_TRUE(press.has(modifiers::shift));
    }

    TEST(KeyEventsTest, CtrlAndSuperAreBothCommand)
    {
        EXPECT_EQ(pressed(Qt::Key_P, ctrl).modifiers, modifiers::command);
        EXPECT_EQ(pressed(Qt::Key_P, super).modifiers, modifiers::command);
        EXPECT_EQ(pressed(Qt::Key_P, Qt::AltModifier).modifiers, modifiers::option);
        EXPECT_EQ(pressed(Qt::Key_P, ctrl | Qt::ShiftModifier).modifiers,
            modifiers::command | modifiers::shift);
    }

    TEST(KeyEventsTest, WithCommandAKeyTypesWhatItTypesAlone)
    {
        EXPECT_EQ(pressed(Qt::Key_P, ctrl, QStringLiteral("\x10")).characters, "p");
        EXPECT_EQ(
            pressed(Qt::Key_P, ctrl | Qt::ShiftModifier, QStringLiteral("\x10")).characters, "P");
        EXPECT_EQ(pressed(Qt::Key_5, ctrl, QStringLiteral("5"), 14).characters, "5");
    }

    TEST(KeyEventsTest, WithoutCommandAKeyTypesItsText)
    {
        EXPECT_EQ(pressed(Qt::Key_A, Qt::NoModifier, QStringLiteral("a")).characters, "a");
        EXPECT_EQ(
            pressed(Qt::Key_Ampersand, Qt::NoModifier, QStringLiteral("&"), 10).characters, "&");
        EXPECT_EQ(pressed(Qt::Key_Escape, Qt::NoModifier, QStringLiteral("\x1b")).characters, "");
    }

    TEST(KeyEventsTest, WithCommandTheDeleteKeyIsTheOneThatDeletes)
    {
        EXPECT_EQ(pressed(Qt::Key_Delete, ctrl).keyCode, keycodes::backspace);
        EXPECT_EQ(pressed(Qt::Key_Delete, Qt::MetaModifier).keyCode, keycodes::backspace);
        EXPECT_EQ(pressed(Qt::Key_Backspace, ctrl).keyCode, keycodes::backspace);
        EXPECT_EQ(pressed(Qt::Key_Delete, Qt::NoModifier).keyCode, unnamedKey);
    }

    TEST(KeyEventsTest, TheTopRowGivesNoDigitsWhileShiftIsHeld)
    {
        const QKeyEvent event(QEvent::KeyPress, Qt::Key_Exclam,
            Qt::ControlModifier | Qt::ShiftModifier, 10, 0, 0, QStringLiteral("!"));

        EXPECT_EQ(keyPressFrom(event).characters, "!");
    }

    TEST(KeyEventsTest, TheTopRowGivesDigitsOnALayoutThatTypesThemWithShift)
    {
        const std::pair<int, const char*> azerty[] { { Qt::Key_Ampersand, "1" },
            { Qt::Key_Eacute, "2" }, { Qt::Key_QuoteDbl, "3" }, { Qt::Key_Apostrophe, "4" },
            { Qt::Key_ParenLeft, "5" }, { Qt::Key_Minus, "6" }, { Qt::Key_Egrave, "7" },
            { Qt::Key_Underscore, "8" }, { Qt::Key_Ccedilla, "9" }, { Qt::Key_Agrave, "0" } };

        quint32 place = 10;
        for (const auto& [key, digit] : azerty)
            EXPECT_EQ(pressed(key, ctrl, {}, place++).characters, digit);
    }

    TEST(KeyEventsTest, TheKeysBesideTheDigitsAreNotDigits)
    {
        EXPECT_EQ(pressed(Qt::Key_QuoteLeft, ctrl, {}, 49).characters, "`");
        EXPECT_EQ(pressed(Qt::Key_Minus, ctrl, {}, 20).characters, "-");
    }

    TEST(KeyEventsTest, TheNumberPadGivesDigits)
    {
        EXPECT_EQ(
            pressed(Qt::Key_7, ctrl | Qt::KeypadModifier, QStringLiteral("7"), 79).characters, "7");
        EXPECT_EQ(
            pressed(Qt::Key_0, super | Qt::KeypadModifier, QStringLiteral("0"), 90).characters,
            "0");
    }

    TEST(KeyEventsTest, WithoutNumLockTheNumberPadGivesNone)
    {
        EXPECT_EQ(pressed(Qt::Key_Home, ctrl | Qt::KeypadModifier, {}, 79).characters, "");
    }

    TEST(KeyEventsTest, ThePKeyIsFoundByItsPlaceWhereItTypesAnotherScript)
    {
        EXPECT_EQ(pressed(0x0417, ctrl, {}, 33).characters, "p"); // Cyrillic
        EXPECT_EQ(pressed(0x03c0, ctrl, {}, 33).characters, "p"); // Greek
    }

    TEST(KeyEventsTest, WhereItTypesAnotherLatinLetterItIsThatLetter)
    {
        EXPECT_EQ(pressed(Qt::Key_L, ctrl, {}, 33).characters, "l"); // Dvorak
        EXPECT_EQ(pressed(Qt::Key_P, ctrl, {}, 27).characters, "p");
    }

} // namespace
} // namespace korvane
