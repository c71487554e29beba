#pragma once

#include <cstdint>
#include <string>

namespace korvane {

/// What a key symbol of the X server types, in UTF-8: a dead key the accent that it stands for; empty
/// where it types nothing, or something that cannot be seen.
std::string textOf(std::uint32_t symbol);

/// Does a key with this symbol only change what other keys do: a modifier, a lock, the next layout?
bool isModifierSymbol(std::uint32_t symbol);

} // namespace korvane
