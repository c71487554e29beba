#pragma once

#include "settings/Applications.h"

#include "platform/xdg/DesktopEntries.h"

namespace korvane {

/// The applications that have a desktop entry. A password manager that the built-in list knows goes by
/// its identifier there, as wherever else an application is named.
class XdgApplications : public Applications {
public:
    explicit XdgApplications(DesktopEntries& entries);

    std::optional<Application> find(std::string_view identifier) override;
    std::vector<Application> installed() override;
    /// @param file  a desktop entry, which must be of the type "Application"
    std::optional<Application> read(std::string_view file) override;
    /// The system's folder with the most entries comes first.
    std::vector<std::string> folders() override;

private:
    DesktopEntries& m_entries;
    Connection m_changed;
};

} // namespace korvane
