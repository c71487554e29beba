#pragma once

#include "model/Preferences.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

/// One entry of the preferences file.
struct StoredPreference {
    /// The value, where it is of a type that a preference can have.
    std::optional<PreferenceValue> value;
    /// The JSON text of any other value (null, an object, a mixed list). It reads as absent, and is
    /// written again as it stands: another version of the program may know what it means.
    std::string foreignJson;

    friend bool operator==(const StoredPreference&, const StoredPreference&) = default;
};

using PreferencesTable = std::map<std::string, StoredPreference, std::less<>>;

/// Reads a whole JSON text (RFC 8259), which must be one object. A number without fraction and
/// exponent is an integer as far as 64 bits reach, any other number a real. Of a key that occurs
/// twice the last value counts. None when the text is not such an object from beginning to end.
std::optional<PreferencesTable> parsePreferences(std::string_view json);

/// Writes the table for a person to read and edit: one entry a line, two blanks before it, the keys
/// in the order of their bytes. What was written reads back as the same table.
std::string printPreferences(const PreferencesTable& table);

} // namespace korvane
