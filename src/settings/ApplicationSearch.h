#pragma once

#include "settings/Applications.h"

#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// Finds applications among many while the user types, as the panel finds clips: whatever the case of
/// letters, and however accents are encoded.
class ApplicationSearch {
public:
    explicit ApplicationSearch(std::vector<Application> applications);

    /// Those whose name or identifier holds the text, by their names in the order of the user's
    /// language. All of them while nothing is typed.
    std::vector<Application> matching(std::string_view typed) const;

private:
    struct Entry {
        Application application;
        std::string key;
    };

    std::string m_locale;
    std::vector<Entry> m_entries; // in their order
};

} // namespace korvane
