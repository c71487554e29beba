#pragma once

#include <memory>
#include <utility>

namespace korvane {

/// Makes what somebody else in the toolkit owns from here on: the parent among its arguments, or who it is
/// handed to in the same expression.
template <typename Made, typename... Arguments>
Made* makeChild(Arguments&&... arguments)
{
    return std::make_unique<Made>(std::forward<Arguments>(arguments)...).release();
}

} // namespace korvane
