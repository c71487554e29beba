#pragma once

#include "model/Preferences.h"

#include <map>
#include <string>

namespace korvane::test {

/// Preferences that live in memory, and count how often they were written.
class MemoryPreferences : public Preferences {
public:
    std::optional<PreferenceValue> get(std::string_view key) const override
    {
        const auto found = values.find(std::string(key));
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    void set(std::string_view key, PreferenceValue value) override
    {
        ++writes;
        values.insert_or_assign(std::string(key), std::move(value));
        changed();
    }
    void remove(std::string_view key) override
    {
        ++writes;
        if (values.erase(std::string(key)) > 0)
            changed();
    }

    std::map<std::string, PreferenceValue> values;
    int writes = 0;
};

} // namespace korvane::test
