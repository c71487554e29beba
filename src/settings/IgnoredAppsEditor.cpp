#include "settings/IgnoredAppsEditor.h"

#include "capture/ClipboardMonitor.h"
#include "capture/IgnoredApps.h"
#include "model/Alerts.h"
#include "model/NameOrder.h"
#include "settings/ApplicationChooser.h"
#include "settings/Applications.h"
#include "settings/PrivacyTexts.h"

#include <algorithm>
#include <utility>

namespace korvane {

IgnoredAppsEditor::IgnoredAppsEditor(ClipboardMonitor& monitor, Applications& applications,
    ApplicationChooser& chooser, Alerts& alerts)
    : m_monitor(monitor)
    , m_applications(applications)
    , m_chooser(chooser)
    , m_alerts(alerts)
    , m_connections { monitor.ignoredAppsChanged.connect([this] { rebuild(); }),
        applications.changed.connect([this] { rebuild(); }) }
{
    rebuild();
}

void IgnoredAppsEditor::select(std::optional<std::string> bundleID)
{
    if (bundleID == m_selection)
        return;
    m_selection = std::move(bundleID);
    changed();
}

void IgnoredAppsEditor::add()
{
    m_chooser.choose(
        addable(), [this, alive = std::weak_ptr(m_isAlive)](std::optional<std::string> file) {
            if (file && !alive.expired())
                addFrom(*file);
        });
}

std::vector<Application> IgnoredAppsEditor::addable() const
{
    auto applications = m_applications.installed();
    std::erase_if(applications, [this](const Application& each) {
        return isPasswordManager(each.identifier)
            || m_monitor.userIgnoredBundleIDs().contains(each.identifier);
    });
    return applications;
}

void IgnoredAppsEditor::addFrom(const std::string& file)
{
    const auto application = m_applications.read(file);
    if (!application || application->identifier.empty()) {
        m_alerts.tell(privacytexts::couldNotRead(), {});
        return;
    }
    m_selection.reset();
    m_monitor.addIgnoredApp(application->identifier);
    rebuild();
}

void IgnoredAppsEditor::removeSelected()
{
    if (const auto selected = std::exchange(m_selection, std::nullopt))
        m_monitor.removeIgnoredApp(*selected);
    else
        return;
    rebuild();
}

void IgnoredAppsEditor::rebuild()
{
    m_apps.clear();
    for (const auto& bundleID : m_monitor.userIgnoredBundleIDs()) {
        const auto application = m_applications.find(bundleID);
        m_apps.push_back(
            { bundleID, application ? application->name : std::string(privacytexts::unknownApp),
                application ? application->icon : std::string() });
    }
    // The set is ordered by identifiers, so that of two equal names the same one is always first.
    const NameOrder order;
    std::ranges::stable_sort(m_apps, [&](const IgnoredApp& a, const IgnoredApp& b) {
        return order.compare(a.name, b.name) < 0;
    });
    if (m_selection && !m_monitor.userIgnoredBundleIDs().contains(*m_selection))
        m_selection.reset();
    changed();
}

} // namespace korvane
