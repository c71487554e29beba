#include "platform/xdg/XdgApplications.h"

#include "platform/PasswordManagers.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace korvane {

namespace {

    namespace fs = std::filesystem;

    Application applicationOf(DesktopEntry entry)
    {
        const auto known = passwordManagerIdentifier(entry.id);
        return { known ? std::string(*known) : std::move(entry.id), std::move(entry.name),
            std::move(entry.icon), entry.file.string() };
    }

    /// How many entries lie in the folder itself.
    std::ptrdiff_t entriesIn(const fs::path& folder)
    {
        std::error_code error; // a folder that cannot be read has no entries for us
        std::ptrdiff_t count = 0;
        for (auto each = fs::directory_iterator(folder, error);
             !error && each != fs::directory_iterator(); each.increment(error))
            count += each->path().extension() == ".desktop" ? 1 : 0;
        return count;
    }

} // namespace

XdgApplications::XdgApplications(DesktopEntries& entries)
    : m_entries(entries)
    , m_changed(entries.changed.connect([this] { changed(); }))
{
}

std::optional<Application> XdgApplications::find(std::string_view identifier)
{
    auto entry = m_entries.withId(std::string(identifier));
    return entry ? std::optional(applicationOf(std::move(*entry))) : std::nullopt;
}

std::vector<Application> XdgApplications::installed()
{
    std::vector<Application> applications;
    for (auto& entry : m_entries.shown())
        applications.push_back(applicationOf(std::move(entry)));
    return applications;
}

std::optional<Application> XdgApplications::read(std::string_view file)
{
    auto entry = m_entries.in(fs::path(file));
    return entry && !entry->id.empty() ? std::optional(applicationOf(std::move(*entry)))
                                       : std::nullopt;
}

std::vector<std::string> XdgApplications::folders()
{
    std::vector<fs::path> folders;
    std::error_code error;
    for (const auto& folder : m_entries.folders())
        if (fs::is_directory(folder, error))
            folders.push_back(folder);
    // The first of all is the user's own, which has the exceptions and not the rule.
    const auto usersOwn = !folders.empty() && folders.front() == m_entries.folders().front();
    const auto systems = folders.begin() + (usersOwn ? 1 : 0);
    const auto fullest = std::ranges::max_element(systems, folders.end(), {}, entriesIn);
    if (fullest != folders.end())
        std::rotate(folders.begin(), fullest, fullest + 1);
    std::vector<std::string> paths;
    paths.reserve(folders.size());
    for (const auto& folder : folders)
        paths.push_back(folder.string());
    return paths;
}

} // namespace korvane
