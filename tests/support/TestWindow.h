#pragma once

#include "platform/x11/X11Connection.h"

#include <xcb/xcb.h>

// The header of the keyboard extension names a field "explicit", which C++ keeps for itself.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::test {

/// Another program on the same X server, as far as the server can tell: a connection of its own.
/// It answers no events by itself; what it is asked, it asks the server and waits.
class TestClient {
public:
    TestClient()
        : m_connection(xcb_connect(nullptr, nullptr))
    {
        // As every toolkit does: for clients that do not, a second layout is disguised as a modifier.
        const X11Reply<xcb_xkb_use_extension_reply_t> answer(
            xcb_xkb_use_extension_reply(get(), xcb_xkb_use_extension(get(), 1, 0), nullptr));
    }

    xcb_connection_t* get() const { return m_connection.get(); }
    xcb_window_t root() const { return xcb_setup_roots_iterator(xcb_get_setup(get())).data->root; }

    /// Everything requested so far has been done by the server when this returns.
    void sync()
    {
        const X11Reply<xcb_get_input_focus_reply_t> answer(
            xcb_get_input_focus_reply(get(), xcb_get_input_focus(get()), nullptr));
    }
    xcb_window_t focus()
    {
        const X11Reply<xcb_get_input_focus_reply_t> answer(
            xcb_get_input_focus_reply(get(), xcb_get_input_focus(get()), nullptr));
        return answer ? answer->focus : XCB_NONE;
    }
    xcb_atom_t atom(std::string_view name)
    {
        const X11Reply<xcb_intern_atom_reply_t> answer(xcb_intern_atom_reply(get(),
            xcb_intern_atom(get(), 0, static_cast<std::uint16_t>(name.size()), name.data()),
            nullptr));
        return answer ? answer->atom : xcb_atom_t { XCB_ATOM_NONE };
    }
    /// The window that the window manager says is active; 0 for none.
    xcb_window_t activeWindow()
    {
        const X11Reply<xcb_get_property_reply_t> answer(xcb_get_property_reply(get(),
            xcb_get_property(get(), 0, root(), atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 0, 1),
            nullptr));
        xcb_window_t window = XCB_NONE;
        if (answer && xcb_get_property_value_length(answer.get()) == sizeof window)
            std::memcpy(&window, xcb_get_property_value(answer.get()), sizeof window);
        return window;
    }
    /// Did the server do it?
    bool succeeded(xcb_void_cookie_t cookie)
    {
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(get(), cookie));
        return !error;
    }

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
};

/// A key press that a window was given.
struct ReceivedKey {
    xcb_keycode_t key;
    std::uint16_t state;

    friend bool operator==(const ReceivedKey&, const ReceivedKey&) = default;
};

/// A window of another program.
class TestWindow {
public:
    enum class Kind { managed, overrideRedirect };

    /// Not on the screen yet.
    explicit TestWindow(TestClient& client, Kind kind = Kind::managed)
        : m_client(client)
        , m_id(xcb_generate_id(client.get()))
    {
        const std::uint32_t isOverride = kind == Kind::overrideRedirect ? 1 : 0;
        const std::uint32_t values[] { isOverride,
            XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_STRUCTURE_NOTIFY };
        xcb_create_window(m_client.get(), XCB_COPY_FROM_PARENT, m_id, m_client.root(), 100, 100,
            200, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
            XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;
    ~TestWindow() { destroy(); }

    xcb_window_t id() const { return m_id; }
    void destroy()
    {
        if (m_id == XCB_NONE)
            return;
        xcb_destroy_window(m_client.get(), m_id);
        m_client.sync();
        m_id = XCB_NONE;
    }
    void map()
    {
        xcb_map_window(m_client.get(), m_id);
        m_client.sync();
    }
    void unmap()
    {
        xcb_unmap_window(m_client.get(), m_id);
        m_client.sync();
    }
    void place(int x, int y, int width, int height)
    {
        const std::uint32_t values[] { static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y),
            static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height) };
        xcb_configure_window(m_client.get(), m_id,
            XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH
                | XCB_CONFIG_WINDOW_HEIGHT,
            values);
        m_client.sync();
    }
    bool isActive() { return m_client.activeWindow() == m_id; }
    bool hasKeyboard() { return m_client.focus() == m_id; }

    void setText(
        std::string_view property, std::string_view bytes, std::string_view type = "STRING")
    {
        xcb_change_property(m_client.get(), XCB_PROP_MODE_REPLACE, m_id, m_client.atom(property),
            m_client.atom(type), 8, static_cast<std::uint32_t>(bytes.size()), bytes.data());
        m_client.sync();
    }
    void setNumbers(std::string_view property, std::initializer_list<std::uint32_t> numbers,
        std::string_view type = "CARDINAL")
    {
        xcb_change_property(m_client.get(), XCB_PROP_MODE_REPLACE, m_id, m_client.atom(property),
            m_client.atom(type), 32, static_cast<std::uint32_t>(numbers.size()), numbers.begin());
        m_client.sync();
    }
    /// Both parts of WM_CLASS.
    void setClass(std::string_view instance, std::string_view windowClass)
    {
        std::string bytes(instance);
        bytes += '\0';
        bytes += windowClass;
        bytes += '\0';
        setText("WM_CLASS", bytes);
    }

    /// The key presses that have come since this was last asked.
    std::vector<ReceivedKey> takeKeys()
    {
        std::vector<ReceivedKey> keys;
        while (const auto event = X11Event(xcb_poll_for_event(m_client.get()))) {
            if ((event->response_type & 0x7F) != XCB_KEY_PRESS)
                continue;
            const auto& press = reinterpret_cast<const xcb_key_press_event_t&>(*event);
            if (press.event == m_id)
                keys.push_back({ press.detail, press.state });
        }
        return keys;
    }

private:
    TestClient& m_client;
    xcb_window_t m_id;
};

} // namespace korvane::test
