#pragma once

namespace korvane {

struct ControlKit;
class FormSection;
class LimitFields;

/// Adds the rows of the three limits to a section, each with a field for its number. They show the
/// limits of the store anew whenever they come into view.
/// @param fields  outlives the section
void addLimitRows(FormSection& section, const ControlKit& kit, LimitFields& fields);

} // namespace korvane
