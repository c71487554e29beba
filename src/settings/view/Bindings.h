#pragma once

#include "model/Preferences.h"

#include <functional>
#include <string>
#include <string_view>

namespace korvane {

class SegmentedPicker;
class Switch;

/// Has a switch show a preference, now and whenever it changes, and write it when it is turned. The
/// switch must outlive the connection.
/// @param whenAbsent  what it shows while nothing, or no Boolean, is stored
Connection keepInStep(
    Switch& control, Preferences& preferences, std::string_view key, bool whenAbsent);

/// The same for a picker.
/// @param shown  which of its values the preferences hold at present
Connection keepInStep(SegmentedPicker& control, Preferences& preferences, std::string_view key,
    std::function<std::string(const Preferences&)> shown);

} // namespace korvane
