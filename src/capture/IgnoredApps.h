#pragma once

#include <array>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

class Preferences;

/// The applications whose copies are never kept, whatever the user's own list says.
inline constexpr std::array<std::string_view, 6> passwordManagerBundleIDs {
    "com.apple.Passwords",
    "com.agilebits.onepassword7",
    "com.agilebits.onepassword-osx",
    "com.lastpass.lastpass",
    "com.apple.keychainaccess",
    "org.keepassx.keepassxc",
};

/// Exact comparison: letter case matters.
bool isPasswordManager(std::string_view bundleID);

/// The two lists of applications to ignore: the built-in one and the user's, which is a preference.
class IgnoredApps {
public:
    using BundleIDs = std::set<std::string, std::less<>>;

    /// Reads the user's list. Built-in identifiers, which earlier versions kept in it, are dropped,
    /// and the list is then written back without them.
    explicit IgnoredApps(Preferences& preferences);

    const BundleIDs& userIgnoredBundleIDs() const { return m_userIgnored; }
    /// Whether the application stands in either list.
    bool contains(std::string_view bundleID) const;

    /// Nothing happens, and nothing is written, for one of the built-in list.
    void add(std::string_view bundleID);
    void remove(std::string_view bundleID);
    /// Takes over what stands in the preferences now and writes nothing: it is the other program's
    /// file as much as ours. True when the list has changed.
    bool reload();

private:
    void write();

    Preferences& m_preferences;
    BundleIDs m_userIgnored;
};

} // namespace korvane
