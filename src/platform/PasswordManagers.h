#pragma once

#include <optional>
#include <string_view>

namespace korvane {

/// The identifier by which the built-in list of password managers knows a program of this desktop;
/// none for a program that is not one of them.
/// @param programName  a desktop entry's identifier, a window class or the name of an executable,
///                     compared without regard to the case of ASCII letters
std::optional<std::string_view> passwordManagerIdentifier(std::string_view programName);

} // namespace korvane
