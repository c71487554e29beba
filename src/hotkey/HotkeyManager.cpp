#include "hotkey/HotkeyManager.h"

#include "model/Preferences.h"

#include <limits>

namespace korvane {

namespace {

    /// A stored number, its default where there is none, or nothing where it is out of range.
    std::optional<std::uint32_t> storedNumber(
        const Preferences& preferences, std::string_view key, std::uint32_t whenAbsent)
    {
        const auto stored = preferences.value<std::int64_t>(key).value_or(whenAbsent);
        if (stored < 0 || stored > std::numeric_limits<std::uint32_t>::max())
            return std::nullopt;
        return static_cast<std::uint32_t>(stored);
    }

    bool isSameChord(const std::optional<Shortcut>& a, const Shortcut& b)
    {
        return a && a->keyCode == b.keyCode && a->modifiers == b.modifiers;
    }

} // namespace

HotkeyManager::HotkeyManager(HotkeyGrabber& grabber, Preferences& preferences, MainLoop& loop)
    : m_grabber(grabber)
    , m_preferences(preferences)
    , m_loop(loop)
    , m_stored(loadShortcut())
    , m_pressed(grabber.pressed.connect([this] { pressed(); }))
    , m_preferencesChanged(preferences.changed.connect([this] { preferencesChanged(); }))
{
}

HotkeyManager::~HotkeyManager()
{
    m_grabber.release();
}

bool HotkeyManager::registerShortcut(KeyCode keyCode, ModifierMask modifiers)
{
    m_isStarted = true;
    return m_grabber.grab(keyCode, modifiers);
}

std::optional<Shortcut> HotkeyManager::loadShortcut() const
{
    Shortcut shortcut;
    const auto keyCode = storedNumber(m_preferences, keys::hotkeyKeyCode, shortcut.keyCode);
    const auto mask = storedNumber(m_preferences, keys::hotkeyModifiers, shortcut.modifiers);
    if (!keyCode || !mask)
        return std::nullopt;
    shortcut.keyCode = *keyCode;
    shortcut.modifiers = *mask;
    auto label = m_preferences.string(keys::hotkeyKeyLabel);
    if (label && !label->empty())
        shortcut.label = std::move(*label);
    return shortcut;
}

void HotkeyManager::saveShortcut(const Shortcut& shortcut)
{
    // Three keys are three changes; seen one by one they would make two shortcuts of nobody's.
    m_isSaving = true;
    m_preferences.set(keys::hotkeyKeyCode, std::int64_t { shortcut.keyCode });
    m_preferences.set(keys::hotkeyModifiers, std::int64_t { shortcut.modifiers });
    m_preferences.set(keys::hotkeyKeyLabel, shortcut.label);
    m_isSaving = false;
    m_stored = shortcut;
    m_refused.reset();
}

bool HotkeyManager::changeShortcut(const Shortcut& shortcut)
{
    const bool isAccepted = registerAndSave(shortcut);
    if (!isAccepted)
        refused();
    return isAccepted;
}

bool HotkeyManager::restoreDefaultShortcut()
{
    return registerAndSave({});
}

bool HotkeyManager::registerAndSave(const Shortcut& shortcut)
{
    if (!registerShortcut(shortcut.keyCode, shortcut.modifiers)) {
        // Nothing more can be done when the old one has been taken meanwhile.
        if (m_stored)
            static_cast<void>(registerShortcut(m_stored->keyCode, m_stored->modifiers));
        return false;
    }
    saveShortcut(shortcut);
    return true;
}

void HotkeyManager::pressed()
{
    m_loop.post([this, alive = std::weak_ptr(m_isAlive)] {
        if (!alive.expired() && onHotkey)
            onHotkey();
    });
}

/// Follows a change from outside. A shortcut that is taken, or cannot be one, leaves the one that
/// was held before, so that a slip of the pen does not lock the user out.
void HotkeyManager::preferencesChanged()
{
    if (m_isSaving)
        return;
    // Where none of it is stored any more, the file is broken or being written anew.
    if (!m_preferences.get(keys::hotkeyKeyCode) && !m_preferences.get(keys::hotkeyModifiers))
        return;
    const auto before = m_stored;
    const auto now = loadShortcut();
    if (!now || isSameChord(m_refused, *now))
        return;
    m_refused.reset();
    if (!m_isStarted || isSameChord(before, *now)) {
        m_stored = now;
        return;
    }
    if (registerShortcut(now->keyCode, now->modifiers)) {
        m_stored = now;
        return;
    }
    if (before)
        static_cast<void>(registerShortcut(before->keyCode, before->modifiers));
    m_refused = now;
    refused();
}

} // namespace korvane
