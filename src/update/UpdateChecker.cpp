#include "update/UpdateChecker.h"

#include "update/VersionDocument.h"
#include "update/VersionOrder.h"

#include <compare>
#include <optional>
#include <utility>

namespace korvane {

std::string versionAddress(std::string_view site)
{
    constexpr std::string_view separator = "://";
    const auto scheme = site.find(separator);
    const auto host = scheme == std::string_view::npos ? 0 : scheme + separator.size();
    return std::string(site.substr(0, site.find_first_of("/?#", host))) + "/korvane/version.json";
}

std::string runningVersion(std::string_view built)
{
    return std::string(built.empty() ? "1.0" : built);
}

UpdateChecker::UpdateChecker(World world, std::string versionURL, std::string version)
    : m_world(std::move(world))
    , m_versionURL(std::move(versionURL))
    , m_version(std::move(version))
{
}

void UpdateChecker::checkForUpdates(Check check)
{
    m_world.fetcher.fetch(m_versionURL,
        [this, check, alive = std::weak_ptr(m_isAlive)](const std::optional<std::string>& json) {
            if (!alive.expired())
                tell(json, check);
        });
}

void UpdateChecker::tell(const std::optional<std::string>& json, Check check)
{
    const auto document = json ? parseVersionDocument(*json) : std::nullopt;
    if (document && std::is_gt(compareVersions(document->version, m_version))) {
        m_world.show(updatealerts::available(*document),
            [open = m_world.openAddress, url = document->url](AlertAnswer answer) {
                if (answer.isFirst && !url.empty())
                    open(url);
            });
        return;
    }
    if (check == Check::silent)
        return;
    m_world.show(document ? updatealerts::upToDate() : updatealerts::failed(), {});
}

} // namespace korvane
