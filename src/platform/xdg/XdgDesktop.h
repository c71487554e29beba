#pragma once

#include "settings/Desktop.h"

#include <QDBusConnection>
#include <QObject>

#include <chrono>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace korvane {

class Log;

/// The desktop's file manager and browser, by D-Bus (org.freedesktop.FileManager1) and by the
/// user's default applications (freedesktop's MIME applications associations). Never waits; when
/// nobody can do what was asked for, one line in the log says so.
class XdgDesktop : public Desktop {
public:
    /// @param bus       the session bus; it may be out of reach
    /// @param patience  how long a file manager may take to answer, before the folder is opened by
    ///                  the default application instead
    XdgDesktop(QDBusConnection bus, Log& log,
        std::chrono::milliseconds patience = std::chrono::seconds(5));
    ~XdgDesktop() override;
    XdgDesktop(const XdgDesktop&) = delete;
    XdgDesktop& operator=(const XdgDesktop&) = delete;

    /// Programs that are started do not inherit this variable of the environment, which is meant for us alone.
    void withhold(std::string variable) { m_withheld.push_back(std::move(variable)); }

    /// A path that is not absolute is left alone.
    void revealFile(std::string_view path) override;
    void openAddress(std::string_view address) override;

private:
    class GioBus;

    void openFolderOf(const std::string& path);

    QDBusConnection m_bus;
    std::vector<std::string> m_withheld;
    Log& m_log;
    std::chrono::milliseconds m_patience;
    std::unique_ptr<GioBus> m_gioBus; // none where there is no bus
    QObject m_calls; // the parent of what watches the calls under way, so that they end with us
};

} // namespace korvane
