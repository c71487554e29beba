#pragma once

#include "hotkey/KeyCodes.h"

class QKeyEvent;

namespace korvane {

/// A key press of the toolkit as one of ours. Ctrl and Super are both the Command key. Only the keys
/// with a meaning of their own get their code; every other key has the code `unnamedKey`, and what
/// it types tells it apart.
///
/// The characters are what the key types without Ctrl, Super and Alt. Together with Command two
/// groups of keys go by their place instead, so that the panel's keys exist on every layout: the top
/// row gives digits also where it types them with Shift only (but not while Shift is held), and the P key gives "p" also where it
/// types a letter of another script.
KeyPress keyPressFrom(const QKeyEvent& event);

/// The key that asks for a context menu.
inline constexpr KeyCode menuKey = 110;
/// The code of a key that no rule goes by.
inline constexpr KeyCode unnamedKey = 0xffff;

} // namespace korvane
