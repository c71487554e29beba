#pragma once

#include "model/ClipItem.h"

#include <filesystem>
#include <span>
#include <vector>

namespace korvane {

/// Writes the clips as an export: a JSON array, indented for its readers, in the folder for temporary
/// files. Of a clip with a file of its own only the record is in it. A failure is deliberately not
/// told, and then there is no file: whoever goes on with it must look.
/// @param now  gives the file its name: "Korvane_export_", the whole seconds since 1970, ".json"
/// @return where the file is to be found
std::filesystem::path exportClips(std::span<const ClipItem> clips, TimePoint now);

/// The history together with clips from a file, newest first by the time of their capture. A clip
/// whose identifier the history had already is left out, whatever else is in it; one that the file
/// itself repeats comes in as often as it is there. Pinned clips get no special place.
std::vector<ClipItem> mergedClips(std::vector<ClipItem> history, std::vector<ClipItem> imported);

} // namespace korvane
