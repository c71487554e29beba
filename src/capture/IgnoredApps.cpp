#include "capture/IgnoredApps.h"

#include "model/Preferences.h"

#include <algorithm>
#include <cstddef>

namespace korvane {

namespace {

    std::vector<std::string> storedList(const Preferences& preferences)
    {
        using List = std::vector<std::string>;
        return preferences.value<List>(keys::ignoredBundleIDs).value_or(List {});
    }

} // namespace

bool isPasswordManager(std::string_view bundleID)
{
    return std::ranges::find(passwordManagerBundleIDs, bundleID) != passwordManagerBundleIDs.end();
}

IgnoredApps::IgnoredApps(Preferences& preferences)
    : m_preferences(preferences)
{
    auto stored = storedList(m_preferences);
    const bool hadPasswordManagers = std::erase_if(stored, isPasswordManager) > 0;
    m_userIgnored = BundleIDs(stored.begin(), stored.end());
    if (hadPasswordManagers)
        write();
}

bool IgnoredApps::contains(std::string_view bundleID) const
{
    return isPasswordManager(bundleID) || m_userIgnored.contains(bundleID);
}

void IgnoredApps::add(std::string_view bundleID)
{
    if (isPasswordManager(bundleID))
        return;
    m_userIgnored.emplace(bundleID);
    write();
}

void IgnoredApps::remove(std::string_view bundleID)
{
    if (const auto found = m_userIgnored.find(bundleID); found != m_userIgnored.end())
        m_userIgnored.erase(found);
    write();
}

bool IgnoredApps::reload()
{
    // Not stored at all: the file was broken by hand, and that must ignore nobody less.
    if (!m_preferences.value<std::vector<std::string>>(keys::ignoredBundleIDs))
        return false;
    auto stored = storedList(m_preferences);
    std::erase_if(stored, isPasswordManager);
    BundleIDs reloaded(stored.begin(), stored.end());
    if (reloaded == m_userIgnored)
        return false;
    m_userIgnored = std::move(reloaded);
    return true;
}

void IgnoredApps::write()
{
    m_preferences.set(keys::ignoredBundleIDs,
        std::vector<std::string>(m_userIgnored.begin(), m_userIgnored.end()));
}

} // namespace korvane
