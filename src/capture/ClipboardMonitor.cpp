#include "capture/ClipboardMonitor.h"

#include "capture/UriList.h"
#include "model/Classifier.h"
#include "model/Preferences.h"
#include "model/Text.h"

#include <utility>

namespace korvane {

using namespace std::chrono_literals;

namespace {
    constexpr int filesATurn = 64;
} // namespace

ClipboardMonitor::ClipboardMonitor(
    Pasteboard& pasteboard, Workspace& workspace, Preferences& preferences, MainLoop& loop)
    : m_pasteboard(pasteboard)
    , m_workspace(workspace)
    , m_preferences(preferences)
    , m_loop(loop)
    , m_ignoredApps(preferences)
    , m_isPrivateModeEnabled(preferences.boolean(keys::privateModeEnabled))
    , m_lastChangeCount(pasteboard.changeCount())
{
    m_connections.push_back(m_preferences.changed.connect([this] { preferencesChanged(); }));
}

void ClipboardMonitor::startMonitoring()
{
    m_pasteboard.synchronise();
    m_lastChangeCount = m_pasteboard.changeCount();
    m_timer = m_loop.every(500ms, [this] { checkPasteboard(); });
    m_connections.push_back(m_pasteboard.changed.connect([this] { checkPasteboard(); }));
}

void ClipboardMonitor::checkPasteboard()
{
    // The count stays unseen in private mode; leaving it takes everything until then as seen.
    if (m_isPrivateModeEnabled)
        return;
    const auto count = m_pasteboard.changeCount();
    if (count == m_lastChangeCount)
        return;
    m_lastChangeCount = count;
    auto application = m_workspace.frontmost();
    if (isRefused(application))
        m_refusedChangeCount = count;
    else
        readContents(std::move(application));
}

bool ClipboardMonitor::mayBeRead() const
{
    const auto count = m_pasteboard.changeCount();
    return !m_isPrivateModeEnabled && count == m_lastChangeCount && count != m_refusedChangeCount
        && !isRefused(m_workspace.frontmost());
}

void ClipboardMonitor::setPrivateModeEnabled(bool isEnabled)
{
    const bool hasChanged = std::exchange(m_isPrivateModeEnabled, isEnabled) != isEnabled;
    m_preferences.set(keys::privateModeEnabled, isEnabled);
    privateModeWasSet(hasChanged);
}

void ClipboardMonitor::absorbOwnWrite(std::optional<std::string> text)
{
    m_lastChangeCount = m_pasteboard.changeCount();
    if (!text)
        return;
    m_lastOwnText = repairedUtf8(std::move(*text)); // as it will be read
    ++m_ownWrites;
}

void ClipboardMonitor::addIgnoredApp(std::string_view bundleID)
{
    const auto before = userIgnoredBundleIDs().size();
    m_ignoredApps.add(bundleID);
    if (userIgnoredBundleIDs().size() != before)
        ignoredAppsChanged();
}

void ClipboardMonitor::removeIgnoredApp(std::string_view bundleID)
{
    const auto before = userIgnoredBundleIDs().size();
    m_ignoredApps.remove(bundleID);
    if (userIgnoredBundleIDs().size() != before)
        ignoredAppsChanged();
}

void ClipboardMonitor::readContents(std::optional<RunningApplication> application)
{
    const auto number = m_firstCopy + static_cast<std::int64_t>(m_copies.size());
    Copy copy;
    copy.application = std::move(application);
    copy.ownWritesBefore = m_ownWrites;
    copy.changeCount = m_lastChangeCount;
    m_copies.push_back(std::move(copy));
    m_pasteboard.read(
        [this, number, alive = std::weak_ptr(m_isAlive)](
            std::optional<Pasteboard::Contents> contents) {
            if (!alive.expired())
                contentsCame(number, std::move(contents));
        },
        [](std::string_view uriList) { return !filePathsFrom(uriList).empty(); });
}

void ClipboardMonitor::contentsCame(
    std::int64_t number, std::optional<Pasteboard::Contents> contents)
{
    if (number < m_firstCopy)
        return; // dropped meanwhile
    auto& copy = m_copies[static_cast<std::size_t>(number - m_firstCopy)];
    copy.isAnswered = true;
    copy.contents = std::move(contents);
    captureAnswered();
}

/// A slow answer holds back the later copies, so that the history has them in their order.
void ClipboardMonitor::captureAnswered()
{
    while (!m_copies.empty() && m_copies.front().isAnswered) {
        // Taken out first: whoever receives a clip may drop what is still waiting.
        auto copy = std::move(m_copies.front());
        m_copies.pop_front();
        ++m_firstCopy;
        capture(copy);
        if (copy.files.empty())
            continue;
        m_copies.push_front(std::move(copy));
        --m_firstCopy;
        m_nextFile = m_loop.after(0ms, [this] { captureAnswered(); });
        return;
    }
}

void ClipboardMonitor::deliverWaiting()
{
    while (!m_copies.empty() && m_copies.front().isAnswered)
        captureAnswered();
}

void ClipboardMonitor::capture(Copy& copy)
{
    // The user may have put the application on the list while it was still answering.
    if (isRefused(copy.application)) {
        copy.files.clear();
        return;
    }
    auto contents = std::exchange(copy.contents, std::nullopt);
    if (contents && contents->isSecret) {
        m_refusedChangeCount = copy.changeCount;
    } else if (contents) {
        if (contents->uriList)
            copy.files = filePathsFrom(*contents->uriList);
        if (copy.files.empty() && contents->text)
            captureText(copy, std::move(*contents->text));
    }
    captureNextFiles(copy);
}

/// Each file is a clip of its own. A folder full of them would hold up the panel if they all came in
/// one turn of the loop, and hold back the next copy if each of them were saved by itself.
void ClipboardMonitor::captureNextFiles(Copy& copy)
{
    if (copy.files.empty())
        return;
    const std::function<void()> deliverSome = [this, &copy] {
        for (int left = filesATurn; left > 0 && !copy.files.empty(); --left) {
            auto path = std::move(copy.files.front());
            copy.files.pop_front();
            deliver(copy, std::move(path), ClipType::file);
            if (m_isPrivateModeEnabled)
                copy.files.clear();
        }
    };
    if (deliverTogether)
        deliverTogether(deliverSome);
    else
        deliverSome();
}

void ClipboardMonitor::captureText(const Copy& copy, std::string text)
{
    if (isBlank(text) || isOwnWrite(copy, text))
        return;
    const auto type = classifyContent(text);
    deliver(copy, std::move(text), type);
}

/// Whatever text comes first after an own write uses its announcement up.
bool ClipboardMonitor::isOwnWrite(const Copy& copy, std::string_view text)
{
    if (copy.ownWritesBefore != m_ownWrites)
        return false;
    const auto own = std::exchange(m_lastOwnText, std::nullopt);
    return own && canonicallyEqual(*own, text);
}

bool ClipboardMonitor::isRefused(const std::optional<RunningApplication>& application) const
{
    if (!application)
        return false;
    return !application->isKnown
        || (application->bundleIdentifier
            && m_ignoredApps.contains(*application->bundleIdentifier));
}

void ClipboardMonitor::deliver(const Copy& copy, std::string text, ClipType type)
{
    m_deliveredChangeCount = copy.changeCount;
    if (!onNewClip)
        return;
    ClipItem clip;
    clip.id = ClipId::random();
    clip.text = std::move(text);
    clip.type = type;
    if (copy.application)
        clip.sourceApp = copy.application->localizedName;
    clip.createdAt = m_loop.now();
    onNewClip(std::move(clip));
}

void ClipboardMonitor::privateModeWasSet(bool hasChanged)
{
    if (m_isPrivateModeEnabled) {
        // A copy that is still being read is no longer wanted: better lost than kept.
        m_firstCopy += static_cast<std::int64_t>(m_copies.size());
        m_copies.clear();
        m_pasteboard.abandonReads();
    } else {
        m_pasteboard.synchronise(); // of a private copy we may not have heard yet
        m_lastChangeCount = m_pasteboard.changeCount();
        m_refusedChangeCount = m_lastChangeCount;
    }
    if (hasChanged)
        privateModeChanged(m_isPrivateModeEnabled);
}

/// Follows a change from outside; after one of our own there is nothing left to follow. What is not
/// stored stays as it is: a file that was broken by hand must not end anybody's private mode.
void ClipboardMonitor::preferencesChanged()
{
    const bool stored
        = m_preferences.value<bool>(keys::privateModeEnabled).value_or(m_isPrivateModeEnabled);
    if (std::exchange(m_isPrivateModeEnabled, stored) != stored)
        privateModeWasSet(true);
    if (m_ignoredApps.reload())
        ignoredAppsChanged();
}

} // namespace korvane
