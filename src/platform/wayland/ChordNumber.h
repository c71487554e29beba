#pragma once

#include "hotkey/KeyCodes.h"
#include "platform/wayland/XkbHandles.h"

#include <cstdint>
#include <optional>

namespace korvane {

/// The number by which KDE's shortcut service (org.kde.kglobalaccel) names a chord: by what the key
/// means, not by where it lies. A character is its capital in Unicode, the other keys and the modifiers
/// have the toolkit's numbers (`Qt::Key`, `Qt::Modifier`).
///
/// It is made as KWin makes it from a press: where Shift gives the key another character that is no
/// letter, the chord is that character without Shift, and a key without a Latin character means the Latin
/// one that it has in another of the user's layouts.
///
/// @param keymap     what the user's keys mean
/// @param layout     the number of the layout in force
/// @param modifiers  Ctrl, Alt, Shift and Super stand for Control, Option, Shift and Command
/// @return none where the keyboard has no such key, or KWin could not tell the chord: a key of the number pad
///         from the same one elsewhere, a dead key from the beginning of an accented letter
std::optional<std::int32_t> chordNumber(
    xkb_keymap* keymap, xkb_layout_index_t layout, KeyCode position, ModifierMask modifiers);

class SeatKeyboard;

/// The same on the user's keyboard. As long as the compositor has not told what its keys mean, they are
/// taken for those of the commonest layout.
class ChordNumbers {
public:
    /// @param user  must outlive this
    explicit ChordNumbers(const SeatKeyboard& user);
    ChordNumbers(const ChordNumbers&) = delete;
    ChordNumbers& operator=(const ChordNumbers&) = delete;
    ~ChordNumbers() = default;

    std::optional<std::int32_t> numberOf(KeyCode position, ModifierMask modifiers) const;

private:
    const SeatKeyboard& m_user;
    XkbContext m_context;
    XkbKeymap m_usual;
};

} // namespace korvane
