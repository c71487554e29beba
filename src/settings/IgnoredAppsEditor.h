#pragma once

#include "model/Signal.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

class Alerts;
struct Application;
class ApplicationChooser;
class Applications;
class ClipboardMonitor;

/// An application whose copies are not kept, as the list of them shows it.
struct IgnoredApp {
    std::string bundleID;
    std::string name;
    /// See `Application::icon`.
    std::string icon;

    friend bool operator==(const IgnoredApp&, const IgnoredApp&) = default;
};

/// The user's list of applications to ignore: one can be selected, added or removed.
class IgnoredAppsEditor {
public:
    IgnoredAppsEditor(ClipboardMonitor& monitor, Applications& applications,
        ApplicationChooser& chooser, Alerts& alerts);
    IgnoredAppsEditor(const IgnoredAppsEditor&) = delete;
    IgnoredAppsEditor& operator=(const IgnoredAppsEditor&) = delete;

    /// By their names, in the order of the user's language, whatever the case. An application that is
    /// not installed any more goes by "Unknown app".
    const std::vector<IgnoredApp>& apps() const { return m_apps; }
    const std::optional<std::string>& selection() const { return m_selection; }

    /// Selects an application of the list, or none.
    void select(std::optional<std::string> bundleID);
    /// Asks the user which application, and adds that. Those that are ignored already, by whomever, are not
    /// offered: to add one would do nothing.
    void add();
    /// Nothing without a selection.
    void removeSelected();

    /// The list or the selection is another one.
    Signal<> changed;

private:
    std::vector<Application> addable() const;
    void addFrom(const std::string& file);
    void rebuild();

    ClipboardMonitor& m_monitor;
    Applications& m_applications;
    ApplicationChooser& m_chooser;
    Alerts& m_alerts;
    std::vector<IgnoredApp> m_apps;
    std::optional<std::string> m_selection;
    /// Shared with the choice under way, which comes to nothing when we have gone before it.
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
    std::array<Connection, 2> m_connections;
};

} // namespace korvane
