#pragma once

#include "hotkey/Keyboard.h"
#include "platform/wayland/SeatKeyboard.h"
#include "platform/wayland/WaylandConnection.h"

#include <functional>
#include <memory>

struct org_kde_kwin_fake_input;
struct zwp_virtual_keyboard_manager_v1;

namespace korvane {

struct ChordKeys;

/// Types by a keyboard of our own where the compositor takes one (virtual-keyboard), or on the user's
/// (fake-input, on KDE). What the user types into other programs no compositor tells anybody.
class WaylandKeyboard : public Keyboard {
public:
    /// How a terminal is pasted into: it takes Ctrl+V for a character of its own, but every one of them
    /// pastes at Shift+Insert, some from the clipboard and some from the primary selection.
    struct Terminals {
        /// Is the window in front a terminal?
        std::function<bool()> isInFront;
        /// Puts what is on the clipboard into the primary selection as well; it is there when this returns.
        std::function<void()> takePrimary;
    };

    /// @param user  the keyboard of the connection on which our windows are: what the user holds when one
    ///              of them closes changes a chord that is typed on the same keyboard
    WaylandKeyboard(WaylandConnection& connection, const SeatKeyboard& user, Terminals terminals);
    WaylandKeyboard(const WaylandKeyboard&) = delete;
    WaylandKeyboard& operator=(const WaylandKeyboard&) = delete;
    ~WaylandKeyboard() override;

    /// False where the compositor takes no keys from us: nothing is then ever typed.
    bool canType() const { return m_virtual != nullptr || m_fakeInput != nullptr; }
    void typeChord(KeyCode keyCode, ModifierMask modifiers) override;
    /// Never: see above.
    bool listen() override { return false; }

private:
    struct Release {
        void operator()(zwp_virtual_keyboard_manager_v1* manager) const;
        void operator()(org_kde_kwin_fake_input* input) const;
    };

    void typeOnOwnKeyboard(const ChordKeys& keys);
    void typeOnUsersKeyboard(const ChordKeys& keys);

    WaylandConnection& m_connection;
    const SeatKeyboard& m_user;
    Terminals m_terminals;
    XkbContext m_context;
    /// What the keys of our own keyboard mean, whatever the user's layout is.
    XkbKeymap m_ownKeymap;
    std::unique_ptr<zwp_virtual_keyboard_manager_v1, Release> m_virtual;
    std::unique_ptr<org_kde_kwin_fake_input, Release> m_fakeInput;
};

} // namespace korvane
