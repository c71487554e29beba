#include "platform/wayland/ChordNumber.h"

#include <Qt>

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using Number = std::optional<std::int32_t>;

    /// The user's keys, made of the layouts that have these names.
    class Keys {
    public:
        explicit Keys(const char* layouts, const char* variants = "")
        {
            xkb_rule_names names {};
            names.rules = "evdev";
            names.model = "pc105";
            names.layout = layouts;
            names.variant = variants;
            m_keymap.reset(
                xkb_keymap_new_from_names(m_context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
        }

        Number number(KeyCode position, ModifierMask modifiers, xkb_layout_index_t layout = 0)
        {
            return chordNumber(m_keymap.get(), layout, position, modifiers);
        }

    private:
        XkbContext m_context { xkb_context_new(XKB_CONTEXT_NO_FLAGS) };
        XkbKeymap m_keymap;
    };

    template <typename... Parts>
    Number code(Parts... parts)
    {
        return (static_cast<std::int32_t>(parts) | ...);
    }

    constexpr KeyCode a = 0;
    constexpr KeyCode digit1 = 18;

    TEST(ChordNumberTest, ControlSpaceIsTheOneThatTheServiceKnows)
    {
        EXPECT_EQ(Keys("us").number(keycodes::space, modifiers::control), 67108896);
    }

    TEST(ChordNumberTest, EachModifierHasItsNumber)
    {
        Keys keys("us");

        EXPECT_EQ(keys.number(101, 0), code(Qt::Key_F9));
        EXPECT_EQ(keys.number(101, modifiers::shift), code(Qt::SHIFT, Qt::Key_F9));
        EXPECT_EQ(keys.number(101, modifiers::option), code(Qt::ALT, Qt::Key_F9));
        EXPECT_EQ(keys.number(101, modifiers::command), code(Qt::META, Qt::Key_F9));
        EXPECT_EQ(keys.number(keycodes::space, modifiers::all),
            code(Qt::SHIFT, Qt::CTRL, Qt::ALT, Qt::META, Qt::Key_Space));
    }

    TEST(ChordNumberTest, ALetterIsItsCapitalWithAndWithoutShift)
    {
        Keys keys("de");
        constexpr KeyCode aUmlaut = 39;

        EXPECT_EQ(keys.number(a, modifiers::control), code(Qt::CTRL, Qt::Key_A));
        EXPECT_EQ(keys.number(a, modifiers::control | modifiers::shift),
            code(Qt::CTRL, Qt::SHIFT, Qt::Key_A));
        EXPECT_EQ(keys.number(aUmlaut, modifiers::control), code(Qt::CTRL, Qt::Key_Adiaeresis));
    }

    TEST(ChordNumberTest, AnyOtherCharacterIsTheOneThatShiftGivesWithoutShift)
    {
        EXPECT_EQ(Keys("us").number(digit1, modifiers::control), code(Qt::CTRL, Qt::Key_1));
        EXPECT_EQ(Keys("us").number(digit1, modifiers::control | modifiers::shift),
            code(Qt::CTRL, Qt::Key_Exclam));
        EXPECT_EQ(Keys("fr").number(digit1, modifiers::control), code(Qt::CTRL, Qt::Key_Ampersand));
        EXPECT_EQ(Keys("fr").number(digit1, modifiers::control | modifiers::shift),
            code(Qt::CTRL, Qt::Key_1));
    }

    TEST(ChordNumberTest, ALetterIsTheOneOfTheLayoutInForce)
    {
        Keys keys("us,us", ",dvorak");
        constexpr KeyCode s = 1;

        EXPECT_EQ(keys.number(s, modifiers::control, 0), code(Qt::CTRL, Qt::Key_S));
        EXPECT_EQ(keys.number(s, modifiers::control, 1), code(Qt::CTRL, Qt::Key_O));
    }

    TEST(ChordNumberTest, ALetterThatIsNotLatinIsTheLatinOneOfAnotherLayoutOrElseItself)
    {
        EXPECT_EQ(Keys("us,ru").number(a, modifiers::control, 1), code(Qt::CTRL, Qt::Key_A));
        EXPECT_EQ(Keys("ru,us").number(a, modifiers::control, 0), code(Qt::CTRL, Qt::Key_A));
        EXPECT_EQ(Keys("ru").number(a, modifiers::control), code(Qt::CTRL, 0x424));
    }

    TEST(ChordNumberTest, TheKeysThatTypeNoCharacterHaveNumbersOfTheirOwn)
    {
        Keys keys("us");

        EXPECT_EQ(keys.number(keycodes::returnKey, 0), code(Qt::Key_Return));
        EXPECT_EQ(keys.number(keycodes::escape, 0), code(Qt::Key_Escape));
        EXPECT_EQ(keys.number(keycodes::backspace, 0), code(Qt::Key_Backspace));
        EXPECT_EQ(keys.number(keycodes::upArrow, 0), code(Qt::Key_Up));
        EXPECT_EQ(keys.number(keycodes::downArrow, 0), code(Qt::Key_Down));
        EXPECT_EQ(keys.number(123, 0), code(Qt::Key_Left));
        EXPECT_EQ(keys.number(124, 0), code(Qt::Key_Right));
        EXPECT_EQ(keys.number(114, 0), code(Qt::Key_Insert));
        EXPECT_EQ(keys.number(115, 0), code(Qt::Key_Home));
        EXPECT_EQ(keys.number(116, 0), code(Qt::Key_PageUp));
        EXPECT_EQ(keys.number(117, 0), code(Qt::Key_Delete));
        EXPECT_EQ(keys.number(119, 0), code(Qt::Key_End));
        EXPECT_EQ(keys.number(121, 0), code(Qt::Key_PageDown));
        EXPECT_EQ(keys.number(122, 0), code(Qt::Key_F1));
        EXPECT_EQ(keys.number(111, 0), code(Qt::Key_F12));
        EXPECT_EQ(keys.number(107, 0), code(Qt::Key_Launch7)); // F14, as layouts have it
        EXPECT_EQ(keys.number(keycodes::tab, modifiers::control), code(Qt::CTRL, Qt::Key_Tab));
        EXPECT_EQ(keys.number(keycodes::tab, modifiers::control | modifiers::shift),
            code(Qt::CTRL, Qt::SHIFT, Qt::Key_Tab));
    }

    TEST(ChordNumberTest, WhatTheServiceCouldNotTellHasNoNumber)
    {
        Keys us("us");
        Keys de("de");

        for (const KeyCode onNumberPad : { 65U, 69U, 76U, 82U, 83U, 92U })
            EXPECT_EQ(us.number(onNumberPad, modifiers::control), std::nullopt) << onNumberPad;
        EXPECT_EQ(de.number(50, modifiers::control), std::nullopt); // the dead circumflex
        // The second console, which the compositor goes to by itself.
        EXPECT_EQ(us.number(120, modifiers::control | modifiers::option), std::nullopt);
    }

    TEST(ChordNumberTest, AKeyThatDoesNotExistHasNoNumber)
    {
        EXPECT_EQ(Keys("us").number(127, modifiers::control), std::nullopt);
        EXPECT_EQ(Keys("us").number(0xFFFFFFFF, modifiers::control), std::nullopt);
        EXPECT_EQ(chordNumber(nullptr, 0, keycodes::space, modifiers::control), std::nullopt);
    }

} // namespace
} // namespace korvane
