#include "settings/ApplicationSearch.h"

#include "model/NameOrder.h"
#include "model/SearchText.h"

#include <algorithm>
#include <utility>

namespace korvane {

ApplicationSearch::ApplicationSearch(std::vector<Application> applications)
    : m_locale(currentLocaleId())
{
    const NameOrder order;
    std::ranges::sort(applications, [&](const Application& a, const Application& b) {
        const int byName = order.compare(a.name, b.name);
        return byName != 0 ? byName < 0 : a.identifier < b.identifier;
    });
    for (auto& application : applications) {
        auto key = searchKey(application.name + '\n' + application.identifier, m_locale);
        m_entries.push_back({ std::move(application), std::move(key) });
    }
}

std::vector<Application> ApplicationSearch::matching(std::string_view typed) const
{
    const SearchNeedle needle(typed, m_locale);
    std::vector<Application> found;
    for (const auto& entry : m_entries)
        if (needle.occursIn(entry.key))
            found.push_back(entry.application);
    return found;
}

} // namespace korvane
