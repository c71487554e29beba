#pragma once

#include "model/ClipItem.h"

#include <string_view>

namespace korvane {

/// What a copied text is, white space at its ends aside; never a file. The tests are loose on
/// purpose: one brace anywhere makes code of a text, and "a.b@c" is an address.
ClipType classifyContent(std::string_view text);

/// Whether an emoji stands in the text. Symbols that are emoji only on request count from U+238D on,
/// so that digits, "©" and "™" do not.
bool containsEmoji(std::string_view text);

} // namespace korvane
