#pragma once

#include "model/CanonicalMapping.h"

#include <string>
#include <string_view>

namespace korvane {

/// The text in a form that is the same for all texts that are canonically equivalent and, with a
/// folding, for all that differ in letter case alone. Always well-formed UTF-8: ill-formed input is
/// repaired first.
std::string canonicalForm(std::string_view utf8, Folding folding);

} // namespace korvane
