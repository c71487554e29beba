#include "model/ClipStore.h"

#include "model/Classifier.h"
#include "model/Files.h"
#include "model/HistoryTransfer.h"
#include "model/Preferences.h"
#include "model/SearchText.h"
#include "model/Text.h"

#include <algorithm>
#include <limits>
#include <system_error>
#include <utility>

namespace korvane {

namespace {

    using namespace std::chrono_literals;

    // Keys of a loaded history are made in pieces of a few milliseconds, so that no key press waits.
    constexpr std::size_t keyBytesAtOnce = 512UL * 1024;
    constexpr std::int64_t bytesInKibibyte = 1024;

    void repair(std::optional<std::string>& text)
    {
        if (text)
            text = repairedUtf8(std::move(*text));
    }

    /// Text comes from other programs and from file names, and the history holds only UTF-8: what is
    /// not is repaired here, so that list and file say the same.
    void repair(ClipItem& clip)
    {
        clip.text = repairedUtf8(std::move(clip.text));
        repair(clip.sourceApp);
        repair(clip.customName);
    }

} // namespace

ClipStore::ClipStore(
    const std::filesystem::path& dataFolder, Preferences& preferences, MainLoop& loop, Log& log)
    : m_preferences(preferences)
    , m_loop(loop)
    , m_history(dataFolder / "clips.json")
    , m_overflow(dataFolder / "overflow", log)
    , m_limits(readLimits(preferences))
    , m_keys(currentLocaleId())
{
    // Without the folders nothing can be written; that shows at the first write, and a later write
    // tries to make them again.
    static_cast<void>(makeFolder(dataFolder));
    static_cast<void>(makeFolder(m_overflow.folder()));
    AtomicFile::removeLeftover(dataFolder);
    AtomicFile::removeLeftover(m_overflow.folder());
    m_clips = m_history.load();
    m_keys.reset(m_clips.size());
    makeKeysSoon();
    // Nothing is evicted here: who saves a file has confirmed nothing yet.
    m_preferencesChanged = m_preferences.changed.connect([this] {
        const auto before = m_limits;
        followPreferences(m_preferences, m_limits);
        if (m_limits != before)
            limitsChanged();
    });
}

ClipStore::~ClipStore() = default;

const std::vector<const ClipItem*>& ClipStore::filteredClips() const
{
    return m_filtered.of(
        m_clips, m_keys, m_panel.panelFilterTab.value(), m_panel.panelSearch.value());
}

const ClipItem* ClipStore::find(const ClipId& id) const
{
    const auto index = indexOf(id);
    return index < m_clips.size() ? &m_clips[index] : nullptr;
}

std::optional<ClipId> ClipStore::add(ClipItem clip)
{
    repair(clip);
    const auto bytes = static_cast<std::int64_t>(clip.text.size());
    if (bytes > m_limits.maxClipSizeKB * bytesInKibibyte) {
        if (!m_overflow.divert(clip))
            return std::nullopt;
    } else {
        if (const auto* newest = newestUnpinned();
            newest && canonicallyEqual(newest->text, clip.text))
            return newest->id;
        clip.hasEmoji = containsEmoji(clip.text);
    }
    const auto id = clip.id;
    insertFirst(std::move(clip));
    enforceLimits();
    saveAndTell();
    return id;
}

void ClipStore::savingOnce(const std::function<void()>& changes)
{
    m_isSavingLater = true;
    changes();
    m_isSavingLater = false;
    if (std::exchange(m_hasUnsaved, false))
        saveAndTell();
}

void ClipStore::togglePin(const ClipId& id)
{
    const auto index = indexOf(id);
    if (index == m_clips.size())
        return;
    m_clips[index].isPinned = !m_clips[index].isPinned;
    m_filtered.forget();
    saveAndTell();
}

void ClipStore::rename(const ClipId& id, std::string_view name)
{
    const auto index = indexOf(id);
    if (index == m_clips.size())
        return;
    auto repaired = repairedUtf8(std::string(name));
    m_clips[index].customName
        = repaired.empty() ? std::nullopt : std::optional(std::move(repaired));
    m_keys.update(index, m_clips[index]);
    m_filtered.forget();
    saveAndTell();
}

void ClipStore::deleteClip(const ClipItem& clip)
{
    const auto id = clip.id; // the clip may be one of ours, and soon be gone
    if (clip.isOverflow)
        m_goneWithFiles.push_back(clip);
    const bool isChanged = removeWhere([&](std::size_t i) { return m_clips[i].id == id; }) > 0;
    save();
    if (isChanged)
        clipsChanged();
}

void ClipStore::markUsed(const ClipId& id)
{
    const auto index = indexOf(id);
    if (index == m_clips.size())
        return;
    auto& count = m_clips[index].useCount;
    if (count < std::numeric_limits<std::int64_t>::max())
        ++count;
    m_lastUsedID = id;
    m_lastUsedTimestamp = m_loop.now();
    saveAndTell();
}

void ClipStore::clearUnpinned()
{
    const bool isChanged = removeWhere([&](std::size_t i) { return !m_clips[i].isPinned; }) > 0;
    // Also when there was nothing in the list: a history file that could not be read may still lie
    // there, with everything that the user wants to be gone.
    save();
    if (isChanged)
        clipsChanged();
}

std::filesystem::path ClipStore::exportHistory() const
{
    return exportClips(m_clips, m_loop.now());
}

void ClipStore::importHistory(const std::filesystem::path& file)
{
    auto imported = readClips(file);
    if (!imported)
        return; // deliberately without a word
    m_clips = mergedClips(std::move(m_clips), std::move(*imported));
    m_keys.reset(m_clips.size());
    m_filtered.forget();
    enforceLimits();
    makeKeysSoon();
    saveAndTell();
}

void ClipStore::setMaxClips(int count)
{
    setLimit(m_limits.maxClips, keys::maxClips, count);
    enforceLimits();
    saveAndTell();
}

void ClipStore::setMaxClipSizeKB(int kilobytes)
{
    setLimit(m_limits.maxClipSizeKB, keys::maxClipSizeKB, kilobytes);
}

void ClipStore::setMaxTotalSizeMB(int megabytes)
{
    setLimit(m_limits.maxTotalSizeMB, keys::maxTotalSizeMB, megabytes);
    enforceLimits();
    saveAndTell();
}

void ClipStore::setLimit(int& limit, std::string_view key, int value)
{
    const bool hasChanged = std::exchange(limit, value) != value;
    m_preferences.set(key, std::int64_t { value });
    if (hasChanged)
        limitsChanged();
}

void ClipStore::enforceLimits()
{
    const auto start = evictionStart(m_clips, m_limits);
    if (start < m_clips.size())
        removeWhere([&](std::size_t i) { return i >= start && !m_clips[i].isPinned; });
}

std::int64_t ClipStore::totalBytes() const
{
    return korvane::totalBytes(m_clips);
}

std::string ClipStore::fullText(const ClipItem& clip) const
{
    return m_overflow.fullText(clip);
}

void ClipStore::save()
{
    auto failure = m_history.save(m_clips);
    if (isForWantOfRoom(failure) && !m_goneWithFiles.empty()) {
        // What is to go may be just the room that the rest needs.
        removeFilesOfGone();
        failure = m_history.save(m_clips);
    }
    // A failure is not told: the list in memory stays right, and the next change writes it again.
    if (!failure)
        removeFilesOfGone();
}

void ClipStore::saveAndTell()
{
    if (m_isSavingLater) {
        m_hasUnsaved = true;
        return;
    }
    save();
    clipsChanged(); // the last thing we do: a slot may destroy us
}

void ClipStore::removeFilesOfGone()
{
    m_overflow.remove(std::exchange(m_goneWithFiles, {}), m_clips);
}

void ClipStore::insertFirst(ClipItem clip)
{
    clip.text.shrink_to_fit(); // it stays for long, and the buffer may have been made for much more
    m_keys.insertFirst(clip);
    m_clips.insert(m_clips.begin(), std::move(clip));
    m_filtered.forget();
}

template <typename IsGone>
std::size_t ClipStore::removeWhere(const IsGone& isGone)
{
    std::size_t kept = 0;
    for (std::size_t i = 0; i < m_clips.size(); ++i) {
        if (isGone(i)) {
            if (m_clips[i].isOverflow)
                m_goneWithFiles.push_back(std::move(m_clips[i]));
            continue;
        }
        if (kept != i) {
            m_clips[kept] = std::move(m_clips[i]);
            m_keys.move(i, kept);
        }
        ++kept;
    }
    const auto removed = m_clips.size() - kept;
    m_clips.resize(kept);
    m_keys.truncate(kept);
    m_filtered.forget();
    return removed;
}

std::size_t ClipStore::indexOf(const ClipId& id) const
{
    const auto found = std::find_if(
        m_clips.begin(), m_clips.end(), [&](const ClipItem& clip) { return clip.id == id; });
    return static_cast<std::size_t>(found - m_clips.begin());
}

// Only this one is compared with a new clip, deliberately: A, B, A keeps three clips.
const ClipItem* ClipStore::newestUnpinned() const
{
    const auto newest = std::find_if(
        m_clips.begin(), m_clips.end(), [](const ClipItem& clip) { return !clip.isPinned; });
    return newest == m_clips.end() ? nullptr : &*newest;
}

void ClipStore::makeKeysSoon()
{
    m_makingKeys = m_loop.after(0ms, [this] {
        if (m_keys.makeSome(m_clips, keyBytesAtOnce))
            makeKeysSoon();
    });
}

} // namespace korvane
