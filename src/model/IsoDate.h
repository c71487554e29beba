#pragma once

#include "model/MainLoop.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

/// A moment in UTC as ISO 8601 writes it, in whole seconds: "2024-05-01T12:34:56Z". The fraction is
/// dropped downward, before 1970 as well. A year outside 0001 to 9999 has no such form and becomes
/// the nearest moment that has one.
std::string isoDate(TimePoint moment);

/// Reads that form, with "Z" or an offset such as "+01:00". None for everything else: a fraction, a
/// day that the calendar does not have, a moment outside the years 0001 to 9999 of UTC.
std::optional<TimePoint> parseIsoDate(std::string_view text);

} // namespace korvane
