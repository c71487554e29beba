#pragma once

#include "model/Signal.h"
#include "platform/qt/PortalRequest.h"
#include "settings/FileDialogs.h"

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace korvane {

class Log;
class MainLoop;
class ParentWindow;

/// The desktop's own file dialogs, by its portal (XDG Desktop Portal, org.freedesktop.portal.FileChooser).
/// Where there is none, or none that answers, others serve. The dialogs open where the last one ended, and
/// go with the window that they stand over. They may ask about a file that is there already; it is not
/// replaced for all that.
class PortalFileDialogs : public FileDialogs {
public:
    using FindParent = std::function<std::unique_ptr<ParentWindow>()>;

    /// @param bus     the session bus; it may be out of reach
    /// @param others  serve where the portal does not
    /// @param parent  finds the window that a dialog is to stand over; null: none
    /// @param folder  where the first dialog opens
    PortalFileDialogs(QDBusConnection bus, MainLoop& loop, Log& log, FileDialogs& others,
        FindParent parent, std::filesystem::path folder);
    ~PortalFileDialogs() override;
    PortalFileDialogs(const PortalFileDialogs&) = delete;
    PortalFileDialogs& operator=(const PortalFileDialogs&) = delete;

    void chooseNewFile(std::string_view proposedName, Answer answer) override;
    void chooseFile(Answer answer) override;

    /// A dialog of another program is about to come, to which the user will turn.
    Signal<> opening;

private:
    struct Dialog {
        Answer answer;
        std::function<void(Answer)> askOthers;
        std::unique_ptr<ParentWindow> parent;
        Connection parentClosed;
        PortalRequest* request; // its own owner, until it has ended
        Connection taken;
    };

    void ask(
        PortalRequest::Question question, Answer answer, std::function<void(Answer)> askOthers);
    void withdraw(int number);
    void ended(
        int number, PortalRequest::End end, const QVariantMap& results, const QString& reason);
    std::optional<std::filesystem::path> chosenFile(const QVariantMap& results);
    Dialog take(int number);

    QDBusConnection m_bus;
    MainLoop& m_loop;
    Log& m_log;
    FileDialogs& m_others;
    FindParent m_findParent;
    std::filesystem::path m_folder;
    int m_lastNumber = 0;
    std::map<int, Dialog> m_dialogs;
    QObject m_requests; // the parent of all that are under way, so that they end with us
};

} // namespace korvane
