#include "platform/CommandLine.h"

#include <array>

namespace korvane {

namespace {
    constexpr std::array allWishes { Wish::show, Wish::toggle, Wish::hide, Wish::quit };

    constexpr std::string_view versionText = "Korvane " KORVANE_VERSION;

    constexpr std::string_view helpText
        = "Usage: korvane [option]\n"
          "\n"
          "Keeps the history of what you copy. One Korvane runs at a time: a second start passes\n"
          "its wish to the first and ends. Without an option Korvane starts, or shows its panel.\n"
          "\n"
          "  --show     show the panel, after starting Korvane if need be\n"
          "  --toggle   show the panel, or hide it when it is shown\n"
          "  --hide     hide the panel\n"
          "  --quit     end Korvane\n"
          "  --platform print what Korvane can do on this desktop, and what not\n"
          "  --version  print the version\n"
          "  --help     print this text";

    CommandLine printing(CommandLine::Request request, std::string_view text)
    {
        return { request, Wish::show, std::string(text) };
    }
} // namespace

std::string_view wordFor(Wish wish)
{
    switch (wish) {
    case Wish::show:
        return "show";
    case Wish::toggle:
        return "toggle";
    case Wish::hide:
        return "hide";
    case Wish::quit:
        break;
    }
    return "quit";
}

std::optional<Wish> wishFor(std::string_view word)
{
    for (const auto wish : allWishes) {
        if (wordFor(wish) == word)
            return wish;
    }
    return std::nullopt;
}

CommandLine parseCommandLine(std::span<const std::string_view> arguments)
{
    using Request = CommandLine::Request;
    if (arguments.empty())
        return {};
    const auto option = arguments.front();
    const auto word = option.starts_with("--") ? option.substr(2) : "";
    const auto wish = wishFor(word);
    if (!wish && word != "platform" && word != "version" && word != "help")
        return printing(Request::misuse,
            "korvane: unknown argument \"" + std::string(option) + "\"; see korvane --help");
    if (arguments.size() > 1)
        return printing(Request::misuse, "korvane: one option at a time; see korvane --help");
    if (wish)
        return { Request::wish, *wish, {} };
    if (word == "platform")
        return printing(Request::platform, {});
    return word == "version" ? printing(Request::version, versionText)
                             : printing(Request::help, helpText);
}

} // namespace korvane
