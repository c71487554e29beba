#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace korvane {

/// What one running program can be asked for.
enum class Wish { show, toggle, hide, quit };

/// What the user started the program for.
struct CommandLine {
    enum class Request {
        start,    ///< no option: run, or show the panel of the one that runs
        wish,     ///< one of the wishes
        platform, ///< what the desktop gives and what not
        version,
        help,
        misuse, ///< the arguments make no sense; `text` says why, exit status 2
    };

    Request request = Request::start;
    /// What the one that runs is told: to show its panel when nothing else was asked for.
    Wish wish = Wish::show;
    /// For `version`, `help` and `misuse`: what is printed, without the last line feed; the first
    /// two on standard output, the third on standard error.
    std::string text;

    /// When none runs: whether this one goes on to run. There is nothing to hide and nobody to quit.
    bool startsProgram() const { return wish == Wish::show || wish == Wish::toggle; }
    /// Whether a program that starts now opens its panel at once. Only when it was asked to.
    bool opensPanel() const { return request == Request::wish && startsProgram(); }

    friend bool operator==(const CommandLine&, const CommandLine&) = default;
};

/// Reads the arguments, without the program's name. At most one option, deliberately: "--show
/// --quit" has no meaning that a reader could guess.
CommandLine parseCommandLine(std::span<const std::string_view> arguments);

/// The word for a wish ("show"), which is its option without the dashes.
std::string_view wordFor(Wish wish);
std::optional<Wish> wishFor(std::string_view word);

} // namespace korvane
