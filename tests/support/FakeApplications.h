#pragma once

#include "settings/ApplicationChooser.h"
#include "settings/Applications.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace korvane::test {

/// Applications that the test installs.
class FakeApplications : public Applications {
public:
    std::optional<Application> find(std::string_view identifier) override
    {
        return one([&](const auto& each) { return each.identifier == identifier; });
    }
    std::vector<Application> installed() override { return all; }
    std::optional<Application> read(std::string_view file) override
    {
        return one([&](const auto& each) { return each.file == file; });
    }
    std::vector<std::string> folders() override { return { "/" }; }

    /// Its file is called by its identifier.
    void install(const std::string& identifier, std::string name)
    {
        all.push_back({ identifier, std::move(name), "icon-of-" + identifier,
            "/apps/" + identifier + ".desktop" });
        changed();
    }
    void uninstall(std::string_view identifier)
    {
        std::erase_if(all, [&](const auto& each) { return each.identifier == identifier; });
        changed();
    }

    std::vector<Application> all;

private:
    template <typename Condition>
    std::optional<Application> one(const Condition& condition) const
    {
        const auto found = std::ranges::find_if(all, condition);
        return found == all.end() ? std::nullopt : std::optional(*found);
    }
};

/// A user who chooses when the test says so.
class FakeApplicationChooser : public ApplicationChooser {
public:
    void choose(std::vector<Application> applications,
        std::function<void(std::optional<std::string>)> chosen) override
    {
        ++questions;
        offered = std::move(applications);
        m_chosen = std::move(chosen);
    }
    /// Chooses the file, or gives up.
    void answer(std::optional<std::string> file)
    {
        if (const auto chosen = std::exchange(m_chosen, nullptr))
            chosen(std::move(file));
    }

    int questions = 0;
    std::vector<Application> offered; // by the last question

private:
    std::function<void(std::optional<std::string>)> m_chosen;
};

} // namespace korvane::test
