#include "hotkey/HotkeyManager.h"

#include "model/Preferences.h"

#include <utility>

namespace korvane {

namespace {

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
    , m_shortcut(m_stored.value_or(Shortcut {}))
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
    return storedShortcut(m_preferences);
}

void HotkeyManager::saveShortcut(const Shortcut& shortcut)
{
    // Three keys are three changes; seen one by one they would make two shortcuts of nobody's.
    m_isSaving = true;
    m_preferences.set(keys::hotkeyKeyCode, std::int64_t { shortcut.keyCode });
    m_preferences.set(keys::hotkeyModifiers, std::int64_t { shortcut.modifiers });
    m_preferences.set(keys::hotkeyKeyLabel, shortcut.label);
    m_isSaving = false;
    m_refused.reset();
    setStored(shortcut);
}

Connection HotkeyManager::observeShortcut(std::function<void(const Shortcut&)> slot)
{
    return m_shortcut.observe(std::move(slot));
}

void HotkeyManager::setStored(const Shortcut& shortcut)
{
    m_stored = shortcut;
    m_shortcut.set(shortcut);
}

bool HotkeyManager::changeShortcut(const Shortcut& shortcut)
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

bool HotkeyManager::restoreDefaultShortcut()
{
    return changeShortcut({});
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
    const auto before = m_stored;
    const auto now = loadShortcut();
    // Where no chord is stored any more, the file is broken or being written anew.
    if (!m_preferences.get(keys::hotkeyKeyCode) && !m_preferences.get(keys::hotkeyModifiers)) {
        if (now && isSameChord(before, *now) && m_preferences.get(keys::hotkeyKeyLabel))
            setStored(*now); // the default, under another name
        return;
    }
    if (!now || isSameChord(m_refused, *now))
        return;
    m_refused.reset();
    if (!m_isStarted || isSameChord(before, *now) || registerShortcut(now->keyCode, now->modifiers))
        return setStored(*now);
    if (before)
        static_cast<void>(registerShortcut(before->keyCode, before->modifiers));
    m_refused = now;
    refused();
}

} // namespace korvane
