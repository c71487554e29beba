#pragma once

#include <string_view>

namespace korvane {

/// One of the choices that a picker offers: how it is shown and how it is stored.
struct Choice {
    std::string_view title;
    std::string_view value;
};

} // namespace korvane
