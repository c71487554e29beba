#include "app/view/KeyEvents.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <utility>

namespace korvane {

namespace {

    // Key numbers of the X server (evdev) for the places that count on every layout.
    constexpr quint32 topRowFirst = 10;
    constexpr quint32 topRowLast = 19;
    constexpr quint32 placeOfP = 33;

    KeyCode keyCodeOf(int key)
    {
        constexpr std::array<std::pair<int, KeyCode>, 13> codes { {
            { Qt::Key_Return, keycodes::returnKey },
            { Qt::Key_Enter, keycodes::returnKey }, // the keypad's
            { Qt::Key_Tab, keycodes::tab },
            { Qt::Key_Backtab, keycodes::tab },
            { Qt::Key_Space, keycodes::space },
            { Qt::Key_Backspace, keycodes::backspace },
            { Qt::Key_Escape, keycodes::escape },
            { Qt::Key_F10, 109 },
            { Qt::Key_Menu, menuKey },
            { Qt::Key_Left, 123 },
            { Qt::Key_Right, 124 },
            { Qt::Key_Down, keycodes::downArrow },
            { Qt::Key_Up, keycodes::upArrow },
        } };
        const auto* const found = std::find_if(
            codes.begin(), codes.end(), [key](const auto& entry) { return entry.first == key; });
        return found == codes.end() ? unnamedKey : found->second;
    }

    /// With Command, the key that is labelled Delete deletes like the one that the program means.
    KeyCode keyCodeOf(const QKeyEvent& event, ModifierMask mask)
    {
        const bool isDelete = event.key() == Qt::Key_Delete && (mask & modifiers::command) != 0;
        return isDelete ? keycodes::backspace : keyCodeOf(event.key());
    }

    ModifierMask modifiersOf(const QKeyEvent& event)
    {
        const auto held = event.modifiers();
        ModifierMask mask = 0;
        if (held.testFlag(Qt::ControlModifier) || held.testFlag(Qt::MetaModifier))
            mask |= modifiers::command;
        if (held.testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab)
            mask |= modifiers::shift;
        if (held.testFlag(Qt::AltModifier))
            mask |= modifiers::option;
        return mask;
    }

    /// The key's character where the toolkit numbers the key by it.
    QString characterOf(const QKeyEvent& event)
    {
        if (event.key() <= 0 || event.key() >= Qt::Key_Escape)
            return {};
        const auto character = static_cast<char32_t>(event.key());
        auto typed = QString::fromUcs4(&character, 1);
        return event.modifiers().testFlag(Qt::ShiftModifier) ? typed : typed.toLower();
    }

    QString charactersOf(const QKeyEvent& event, ModifierMask mask)
    {
        // With Ctrl the text is a control character, with Alt often none.
        if (mask & (modifiers::command | modifiers::option)) {
            auto typed = characterOf(event);
            const auto place = event.nativeScanCode();
            if (!(mask & modifiers::command))
                return typed;
            const bool isDigit = event.key() >= Qt::Key_0 && event.key() <= Qt::Key_9;
            if (!isDigit && !(mask & modifiers::shift) && place >= topRowFirst
                && place <= topRowLast)
                return QString::number((place - topRowFirst + 1) % 10);
            if (place == placeOfP && !typed.isEmpty() && typed.front().unicode() > 0x7f)
                return QStringLiteral("p");
            return typed;
        }
        const auto text = event.text();
        return !text.isEmpty() && text.front().isPrint() ? text : QString();
    }

} // namespace

KeyPress keyPressFrom(const QKeyEvent& event)
{
    const auto mask = modifiersOf(event);
    return { .keyCode = keyCodeOf(event, mask),
        .modifiers = mask,
        .characters = charactersOf(event, mask).toStdString() };
}

} // namespace korvane
