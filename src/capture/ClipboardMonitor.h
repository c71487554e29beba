#pragma once

#include "capture/IgnoredApps.h"
#include "capture/Pasteboard.h"
#include "capture/Workspace.h"
#include "model/ClipItem.h"
#include "model/MainLoop.h"
#include "model/Signal.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

class Preferences;

/// Watches the pasteboard and makes a clip of every copy that may be kept: not in private mode, not
/// from an application that is to be ignored, not marked as a secret, and not written by us.
class ClipboardMonitor {
public:
    ClipboardMonitor(
        Pasteboard& pasteboard, Workspace& workspace, Preferences& preferences, MainLoop& loop);
    ClipboardMonitor(const ClipboardMonitor&) = delete;
    ClipboardMonitor& operator=(const ClipboardMonitor&) = delete;

    /// Receives every captured clip, in the order of the copies.
    std::function<void(ClipItem)> onNewClip;

    /// Called with what delivers several files of one copy, one after the other, to `onNewClip`: who
    /// saves each clip can save them together. None: they are delivered all the same.
    std::function<void(const std::function<void()>& deliver)> deliverTogether;

    /// Looks twice a second from now on, and at once when the pasteboard tells of a change. What is
    /// on the pasteboard at this moment is not captured.
    void startMonitoring();
    /// One look. The application in front at this moment is taken for the one that copied; the
    /// contents are asked for only when neither it nor private mode forbids that, and are judged
    /// once more when they come.
    void checkPasteboard();

    /// Delivers at once what has been read and waits for its turn, before the program ends.
    void deliverWaiting();

    bool isPrivateModeEnabled() const { return m_isPrivateModeEnabled; }
    /// Written to the preferences each time, also when it is what it was. What is being read is
    /// dropped when private mode begins, and what was copied in it is not captured when it ends.
    void setPrivateModeEnabled(bool isEnabled);

    /// The one door for our own writes. Called just before or just after one: everything that has
    /// happened to the pasteboard until now is taken as seen.
    /// @param text  what we wrote or are about to write, and must not take for a copy when it is
    ///              seen later; none leaves the present one standing
    void absorbOwnWrite(std::optional<std::string> text);
    std::int64_t lastChangeCount() const { return m_lastChangeCount; }
    const std::optional<std::string>& lastOwnText() const { return m_lastOwnText; }

    /// Whether what is on the pasteboard now may be looked at, for showing which clip it is: not
    /// when it was refused, not when it is newer than the last look, and not while an application
    /// is in front from which nothing would be captured.
    bool mayBeRead() const;
    /// What is on the pasteboard now has turned out to be a secret.
    void refusePresentContents() { m_refusedChangeCount = m_pasteboard.changeCount(); }

    /// The change count of the copy that the latest clip was made of. While `onNewClip` is called,
    /// the pasteboard may have changed again since then.
    std::int64_t deliveredChangeCount() const { return m_deliveredChangeCount; }

    const IgnoredApps::BundleIDs& userIgnoredBundleIDs() const
    {
        return m_ignoredApps.userIgnoredBundleIDs();
    }
    void addIgnoredApp(std::string_view bundleID);
    void removeIgnoredApp(std::string_view bundleID);

    /// Private mode has begun or ended, here or by a change of the preferences from outside.
    Signal<bool> privateModeChanged;
    /// The user's list of ignored applications has changed.
    Signal<> ignoredAppsChanged;

private:
    /// A copy whose contents have been asked for.
    struct Copy {
        std::optional<RunningApplication> application;
        /// `m_ownWrites` when the copy was seen: a text of our own that was announced later is not
        /// this one.
        std::int64_t ownWritesBefore = 0;
        std::int64_t changeCount = 0;
        bool isAnswered = false;
        std::optional<Pasteboard::Contents> contents;
        /// The paths that are still to become clips.
        std::deque<std::string> files;
    };

    void readContents(std::optional<RunningApplication> application);
    void contentsCame(std::int64_t number, std::optional<Pasteboard::Contents> contents);
    void captureAnswered();
    void capture(Copy& copy);
    void captureNextFiles(Copy& copy);
    void captureText(const Copy& copy, std::string text);
    bool isOwnWrite(const Copy& copy, std::string_view text);
    bool isRefused(const std::optional<RunningApplication>& application) const;
    void deliver(const Copy& copy, std::string text, ClipType type);
    void privateModeWasSet(bool hasChanged);
    void preferencesChanged();

    Pasteboard& m_pasteboard;
    Workspace& m_workspace;
    Preferences& m_preferences;
    MainLoop& m_loop;
    IgnoredApps m_ignoredApps;
    bool m_isPrivateModeEnabled;
    std::int64_t m_lastChangeCount;
    /// The count at which contents were last refused.
    std::optional<std::int64_t> m_refusedChangeCount;
    std::optional<std::string> m_lastOwnText;
    std::int64_t m_ownWrites = 0;
    std::int64_t m_deliveredChangeCount = 0;
    std::deque<Copy> m_copies;
    /// The number of the first of `m_copies`, counting all that there have been.
    std::int64_t m_firstCopy = 0;
    /// Shared with the answers under way, which come to nothing when we have gone before them.
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
    Timer m_timer;
    Timer m_nextFile;
    std::vector<Connection> m_connections;
};

} // namespace korvane
