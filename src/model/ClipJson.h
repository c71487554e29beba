#pragma once

#include "model/ClipItem.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

class FileBytes;

/// How much room a list takes: compact for ourselves, or indented with a line for each key, for who
/// reads it. Readers take both.
enum class JsonLayout { compact, pretty };

/// Takes a text piece by piece.
using Blocks = std::function<void(std::string_view)>;

/// Writes a list of clips as one JSON array (RFC 8259), the keys of a record in the order of its
/// fields, what is absent left out, dates as `isoDate` writes them. The text is handed over in
/// blocks, so that a large history is never in memory twice. Ill-formed UTF-8 is repaired on the way:
/// one bad byte would make the whole list unreadable.
void encodeClips(
    std::span<const ClipItem> clips, const Blocks& block, JsonLayout layout = JsonLayout::compact);

/// Reads such a list. The whole document must be right: none is returned for text that is not JSON
/// in well-formed UTF-8, lacks a required key or repeats a key in a record, or holds a value of the
/// wrong type, even where the value would not be used. Unknown keys are passed over.
std::optional<std::vector<ClipItem>> decodeClips(const FileBytes& document);

} // namespace korvane
