#include "platform/xdg/DesktopEntries.h"

#include <gio/gdesktopappinfo.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <system_error>
#include <tuple>
#include <utility>

namespace korvane {

namespace {

    struct Unref {
        void operator()(GDesktopAppInfo* info) const { g_object_unref(info); }
    };
    using AppInfo = std::unique_ptr<GDesktopAppInfo, Unref>;

    std::string textOf(const char* text)
    {
        return text == nullptr ? std::string() : std::string(text);
    }

    // Only the case of ASCII letters differs between what programs call themselves here and there.
    std::string withoutCase(std::string text)
    {
        std::ranges::transform(text, text.begin(),
            [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
        return text;
    }

    std::string withoutEnding(std::string id)
    {
        constexpr std::string_view ending = ".desktop";
        if (id.ends_with(ending))
            id.resize(id.size() - ending.size());
        return id;
    }

    // An entry in a subfolder is named by the whole way to it, with dashes.
    std::string idOf(const std::filesystem::path& wayFromFolder)
    {
        auto id = withoutEnding(wayFromFolder.string());
        std::ranges::replace(id, '/', '-');
        return id;
    }

    std::string lastPart(const std::string& id)
    {
        const auto mark = id.find_last_of(".-");
        return mark == std::string::npos ? std::string() : id.substr(mark + 1);
    }

    // These start other programs, so that an entry that runs one says nothing of the process.
    bool startsOtherPrograms(std::string_view executable)
    {
        constexpr auto starters = std::to_array<std::string_view>(
            { "bash", "dash", "env", "exo-open", "flatpak", "gjs", "gtk-launch", "java", "mono",
                "node", "perl", "pkexec", "ruby", "sh", "snap", "sudo", "wine", "xdg-open" });
        return executable.starts_with("python") || executable.starts_with("electron")
            || std::ranges::find(starters, executable) != starters.end();
    }

    std::string iconOf(GDesktopAppInfo* info)
    {
        struct Free {
            void operator()(char* text) const { g_free(text); }
        };
        return textOf(
            std::unique_ptr<char, Free>(g_desktop_app_info_get_string(info, "Icon")).get());
    }

    bool isTerminal(GDesktopAppInfo* info)
    {
        const auto categories = ';' + textOf(g_desktop_app_info_get_categories(info)) + ';';
        return categories.find(";TerminalEmulator;") != std::string::npos;
    }

} // namespace

DesktopEntries::DesktopEntries(MainLoop& loop, std::vector<std::filesystem::path> folders)
    : m_folders(std::move(folders))
    , m_watch(loop)
    , m_changed(m_watch.changed.connect([this] {
        if (!std::exchange(m_isStale, true))
            changed();
    }))
{
}

std::vector<std::filesystem::path> DesktopEntries::standardFolders()
{
    const std::filesystem::path usersOwn(g_get_user_data_dir());
    std::vector folders { usersOwn / "applications" };
    for (const auto* const* folder = g_get_system_data_dirs(); *folder != nullptr; ++folder)
        folders.push_back(std::filesystem::path(*folder) / "applications");
    for (auto exported : { usersOwn / "flatpak/exports/share/applications",
             std::filesystem::path("/var/lib/flatpak/exports/share/applications"),
             std::filesystem::path("/var/lib/snapd/desktop/applications") })
        if (std::ranges::find(folders, exported) == folders.end())
            folders.push_back(std::move(exported));
    return folders;
}

std::optional<DesktopEntry> DesktopEntries::find(const ProgramHints& hints)
{
    ensureRead();
    const auto desktopFile
        = withoutEnding(std::filesystem::path(hints.desktopFile).filename().string());
    const auto foldedClass = withoutCase(hints.windowClass);
    const auto foldedInstance = withoutCase(hints.windowInstance);
    // The class goes before the instance: browsers put the name of a page or a profile into that.
    const auto tests = std::to_array<std::pair<const Index&, const std::string&>>({
        { m_byId, desktopFile },
        { m_byId, hints.applicationId },
        { m_byStartupClass, hints.windowClass },
        { m_byStartupClass, hints.windowInstance },
        { m_byStartupClassWithoutCase, foldedClass },
        { m_byStartupClassWithoutCase, foldedInstance },
        { m_byIdWithoutCase, foldedClass },
        { m_byIdWithoutCase, foldedInstance },
        { m_byLastPartOfId, foldedClass },
        { m_byExecutable, hints.executable },
    });
    for (const auto& [index, key] : tests)
        if (const auto* entry = at(index, key))
            return *entry;
    return std::nullopt;
}

std::optional<DesktopEntry> DesktopEntries::withId(const std::string& id)
{
    ensureRead();
    const auto* const entry = at(m_byId, id);
    return entry == nullptr ? std::nullopt : std::optional(*entry);
}

std::vector<DesktopEntry> DesktopEntries::shown()
{
    ensureRead();
    std::vector<DesktopEntry> entries;
    for (const auto& known : m_known)
        if (known.isShown)
            entries.push_back(known.entry);
    return entries;
}

std::optional<DesktopEntry> DesktopEntries::in(const std::filesystem::path& file) const
{
    if (file.extension() != ".desktop")
        return std::nullopt;
    auto id = withoutEnding(file.filename().string());
    for (const auto& folder : m_folders)
        if (const auto way = file.lexically_relative(folder); !way.empty() && *way.begin() != "..")
            id = idOf(way);
    if (auto known = readFile(file, std::move(id)))
        return std::move(known->entry);
    return std::nullopt;
}

void DesktopEntries::ensureRead()
{
    if (std::exchange(m_isStale, false))
        read();
}

const DesktopEntry* DesktopEntries::at(const Index& index, const std::string& key) const
{
    const auto found = key.empty() ? index.end() : index.find(key);
    return found == index.end() ? nullptr : &m_known[found->second].entry;
}

void DesktopEntries::read()
{
    // First watched, then read: what changes in between is read twice rather than missed.
    m_watch.setFolders(foldersWithSubfolders());
    m_known.clear();
    std::vector<std::string> seenIds;
    for (const auto& folder : m_folders)
        readFolder(folder, seenIds);
    buildIndexes();
}

std::vector<std::filesystem::path> DesktopEntries::foldersWithSubfolders() const
{
    namespace fs = std::filesystem;
    auto folders = m_folders;
    for (const auto& folder : m_folders) {
        std::error_code error; // a folder that cannot be read has no entries for us
        for (auto each = fs::recursive_directory_iterator(folder, error);
             !error && each != fs::recursive_directory_iterator(); each.increment(error)) {
            std::error_code ignored;
            if (each->is_directory(ignored))
                folders.push_back(each->path());
        }
    }
    return folders;
}

void DesktopEntries::readFolder(
    const std::filesystem::path& folder, std::vector<std::string>& seenIds)
{
    namespace fs = std::filesystem;
    std::error_code error;
    for (auto each = fs::recursive_directory_iterator(folder, error);
         !error && each != fs::recursive_directory_iterator(); each.increment(error)) {
        if (each->path().extension() != ".desktop")
            continue;
        auto id = idOf(each->path().lexically_relative(folder));
        // The first file of a name counts even if it says no more than that the entry is hidden.
        if (std::ranges::find(seenIds, id) != seenIds.end())
            continue;
        seenIds.push_back(id);
        if (auto known = readFile(each->path(), std::move(id)))
            m_known.push_back(std::move(*known));
    }
}

std::optional<DesktopEntries::Known> DesktopEntries::readFile(
    const std::filesystem::path& file, std::string id)
{
    const AppInfo info(g_desktop_app_info_new_from_filename(file.c_str()));
    if (!info || g_desktop_app_info_get_is_hidden(info.get()) != 0)
        return std::nullopt;
    auto* const application = G_APP_INFO(info.get());
    return Known { { std::move(id), textOf(g_app_info_get_name(application)),
                       isTerminal(info.get()), iconOf(info.get()), file },
        textOf(g_desktop_app_info_get_startup_wm_class(info.get())),
        std::filesystem::path(textOf(g_app_info_get_executable(application))).filename().string(),
        g_desktop_app_info_get_nodisplay(info.get()) == 0 };
}

void DesktopEntries::buildIndexes()
{
    // Where several entries fit, the program itself comes before its settings dialogue and other
    // things of its kin: what the user sees in menus first, then the shorter identifier.
    std::ranges::sort(m_known, {}, [](const Known& each) {
        return std::tuple(!each.isShown, each.entry.id.size(), std::string_view(each.entry.id));
    });
    for (auto* index : { &m_byId, &m_byIdWithoutCase, &m_byLastPartOfId, &m_byStartupClass,
             &m_byStartupClassWithoutCase, &m_byExecutable })
        index->clear();
    for (std::size_t i = 0; i < m_known.size(); ++i) {
        const auto& known = m_known[i];
        m_byId.emplace(known.entry.id, i);
        m_byIdWithoutCase.emplace(withoutCase(known.entry.id), i);
        m_byLastPartOfId.emplace(withoutCase(lastPart(known.entry.id)), i);
        m_byStartupClass.emplace(known.startupClass, i);
        m_byStartupClassWithoutCase.emplace(withoutCase(known.startupClass), i);
        if (!startsOtherPrograms(known.executable))
            m_byExecutable.emplace(known.executable, i);
    }
}

} // namespace korvane
