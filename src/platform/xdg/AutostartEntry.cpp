#include "platform/xdg/AutostartEntry.h"

#include "model/Files.h"

#include <gio/gio.h>

#include <memory>
#include <string_view>
#include <system_error>
#include <utility>

namespace korvane {

namespace {
    constexpr const char* group = G_KEY_FILE_DESKTOP_GROUP;
    constexpr const char* gnomeSwitch = "X-GNOME-Autostart-enabled";

    struct FreeKeyFile {
        void operator()(GKeyFile* file) const { g_key_file_unref(file); }
    };
    using KeyFile = std::unique_ptr<GKeyFile, FreeKeyFile>;

    struct Free {
        void operator()(gpointer memory) const { g_free(memory); }
    };

    /// The entry; empty where there is none that can be read.
    KeyFile load(const std::filesystem::path& path)
    {
        KeyFile file(g_key_file_new());
        const auto text = readFileText(path, Links::follow);
        const auto flags
            = static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
        if (text
            && g_key_file_load_from_data(file.get(), text->data(), text->size(), flags, nullptr)
                != FALSE)
            return file;
        return KeyFile(g_key_file_new()); // nothing of one that was read half
    }

    bool isTrue(const KeyFile& file, const char* key, bool whenAbsent)
    {
        GError* error = nullptr;
        const bool value = g_key_file_get_boolean(file.get(), group, key, &error) != FALSE;
        if (!error)
            return value;
        g_error_free(error);
        return whenAbsent;
    }

    bool has(const KeyFile& file, const char* key)
    {
        return g_key_file_has_key(file.get(), group, key, nullptr) != FALSE;
    }
} // namespace

AutostartEntry::AutostartEntry(std::filesystem::path file, std::filesystem::path program)
    : m_file(std::move(file))
    , m_program(std::move(program))
{
}

bool AutostartEntry::isEnabled() const
{
    const auto entry = load(m_file);
    return has(entry, G_KEY_FILE_DESKTOP_KEY_EXEC)
        && !isTrue(entry, G_KEY_FILE_DESKTOP_KEY_HIDDEN, false) && isTrue(entry, gnomeSwitch, true);
}

std::optional<std::string> AutostartEntry::setEnabled(bool isEnabled)
{
    return isEnabled ? write() : remove();
}

std::optional<std::string> AutostartEntry::write() const
{
    const auto entry = load(m_file);
    const auto set = [&entry](const char* key, const std::string& value) {
        g_key_file_set_string(entry.get(), group, key, value.c_str());
    };
    set(G_KEY_FILE_DESKTOP_KEY_TYPE, "Application");
    if (!has(entry, G_KEY_FILE_DESKTOP_KEY_NAME))
        set(G_KEY_FILE_DESKTOP_KEY_NAME, "Korvane");
    if (!has(entry, G_KEY_FILE_DESKTOP_KEY_ICON))
        set(G_KEY_FILE_DESKTOP_KEY_ICON, m_file.stem().string());
    // The program may have been moved since the entry was written.
    set(G_KEY_FILE_DESKTOP_KEY_EXEC, quotedForExec(m_program.string()));
    g_key_file_remove_key(entry.get(), group, G_KEY_FILE_DESKTOP_KEY_HIDDEN, nullptr);
    g_key_file_remove_key(entry.get(), group, G_KEY_FILE_DESKTOP_KEY_TRY_EXEC, nullptr);
    g_key_file_set_boolean(entry.get(), group, gnomeSwitch, TRUE);

    gsize length = 0;
    const std::unique_ptr<gchar, Free> text(g_key_file_to_data(entry.get(), &length, nullptr));
    AtomicFile file(behindLinks(m_file));
    file.write({ text.get(), length });
    const auto error = file.commit();
    return error ? std::optional(m_file.string() + ": " + error.message()) : std::nullopt;
}

std::optional<std::string> AutostartEntry::remove() const
{
    std::error_code error;
    std::filesystem::remove(m_file, error); // one that is not there is no failure
    return error ? std::optional(m_file.string() + ": " + error.message()) : std::nullopt;
}

std::string quotedForExec(const std::string& argument)
{
    std::string quoted = "\"";
    for (const char character : argument) {
        if (std::string_view("\"`$\\").find(character) != std::string_view::npos)
            quoted += '\\';
        quoted += character;
        if (character == '%') // else it would stand for something
            quoted += '%';
    }
    return quoted + '"';
}

} // namespace korvane
