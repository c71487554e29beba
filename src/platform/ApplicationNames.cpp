#include "platform/ApplicationNames.h"

#include "platform/PasswordManagers.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

namespace korvane {

namespace {

    // Terminals that are often installed without a desktop entry of theirs, by class.
    constexpr auto terminalClasses = std::to_array<std::string_view>({ "Alacritty",
        "Gnome-terminal", "Konsole", "Rxvt", "St", "Terminator", "URxvt", "UXTerm", "XTerm",
        "Xfce4-terminal", "foot", "kitty", "konsole", "org.wezfurlong.wezterm", "st-256color" });

    std::optional<std::string_view> passwordManager(
        const ProgramHints& program, const std::optional<DesktopEntry>& entry)
    {
        const auto names = std::to_array<std::string_view>(
            { entry ? std::string_view(entry->id) : std::string_view(), program.desktopFile,
                program.applicationId, program.windowClass, program.windowInstance,
                program.executable });
        for (const auto name : names)
            if (const auto identifier = passwordManagerIdentifier(name))
                return identifier;
        return std::nullopt;
    }

    // By custom a title ends with the program's name: "letter.txt - Editor".
    std::string programInTitle(std::string_view title)
    {
        std::size_t start = 0;
        for (const std::string_view dash : { " - ", " – ", " — " })
            if (const auto at = title.rfind(dash); at != std::string_view::npos)
                start = std::max(start, at + dash.size());
        return std::string(title.substr(start));
    }

    std::optional<std::string> unlessEmpty(std::string text)
    {
        return text.empty() ? std::nullopt : std::optional(std::move(text));
    }

} // namespace

RunningApplication applicationBehind(
    const ProgramHints& program, const std::optional<DesktopEntry>& entry, std::string_view title)
{
    RunningApplication application;
    if (const auto known = passwordManager(program, entry))
        application.bundleIdentifier = *known;
    else
        application.bundleIdentifier = unlessEmpty(entry ? entry->id : program.windowClass);
    application.localizedName = unlessEmpty(entry ? entry->name : program.windowClass);
    if (!application.localizedName)
        application.localizedName = unlessEmpty(programInTitle(title));
    return application;
}

bool isTerminal(const ProgramHints& program, const std::optional<DesktopEntry>& entry)
{
    return (entry && entry->isTerminal)
        || std::ranges::find(terminalClasses, program.windowClass) != terminalClasses.end();
}

std::string programName(std::uint32_t process)
{
    std::error_code error; // another user's program, or one that has ended: not told
    const auto file
        = std::filesystem::read_symlink("/proc/" + std::to_string(process) + "/exe", error);
    auto name = file.filename().string();
    // A program that was upgraded while it runs.
    constexpr std::string_view mark = " (deleted)";
    if (name.ends_with(mark))
        name.resize(name.size() - mark.size());
    return name;
}

} // namespace korvane
