#pragma once

#include "support/TestWindow.h"

#include <xcb/xtest.h>

#include <QProcess>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace korvane::test {

/// A user's hands: keys and buttons, pressed and let go on the real server by way of XTEST. Whatever
/// is still down is let go at the end.
class TestInput {
public:
    TestInput() = default;
    TestInput(const TestInput&) = delete;
    TestInput& operator=(const TestInput&) = delete;
    ~TestInput()
    {
        for (const auto key : std::vector(m_down))
            release(key);
    }

    void press(xcb_keycode_t key)
    {
        fake(XCB_KEY_PRESS, key);
        m_down.push_back(key);
    }
    void release(xcb_keycode_t key)
    {
        fake(XCB_KEY_RELEASE, key);
        std::erase(m_down, key);
    }
    void tap(xcb_keycode_t key)
    {
        press(key);
        release(key);
    }
    /// Taps the last of these keys while the others are held.
    void chord(std::vector<xcb_keycode_t> keys)
    {
        for (const auto key : keys)
            press(key);
        while (!keys.empty()) {
            release(keys.back());
            keys.pop_back();
        }
    }
    void movePointer(int x, int y)
    {
        xcb_test_fake_input(m_client.get(), XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, m_client.root(),
            static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
        m_client.sync();
    }
    void click(std::uint8_t button)
    {
        fake(XCB_BUTTON_PRESS, button);
        fake(XCB_BUTTON_RELEASE, button);
    }
    /// Is the key down, as far as the server knows?
    bool isDown(xcb_keycode_t key)
    {
        const X11Reply<xcb_query_keymap_reply_t> answer(
            xcb_query_keymap_reply(m_client.get(), xcb_query_keymap(m_client.get()), nullptr));
        return answer && (answer->keys[key / 8U] & (1U << (key % 8U))) != 0;
    }
    TestClient& client() { return m_client; }

private:
    void fake(std::uint8_t type, std::uint8_t detail)
    {
        xcb_test_fake_input(
            m_client.get(), type, detail, XCB_CURRENT_TIME, m_client.root(), 0, 0, 0);
        m_client.sync();
    }

    TestClient m_client;
    std::vector<xcb_keycode_t> m_down;
};

/// The key codes of the server that the tests run on, by what is printed on a US keyboard.
namespace keys {
    inline constexpr xcb_keycode_t control = 37;
    inline constexpr xcb_keycode_t shift = 50;
    inline constexpr xcb_keycode_t alt = 64;
    inline constexpr xcb_keycode_t super = 133;
    inline constexpr xcb_keycode_t capsLock = 66;
    inline constexpr xcb_keycode_t numLock = 77;
    inline constexpr xcb_keycode_t space = 65;
    inline constexpr xcb_keycode_t v = 55;
    inline constexpr xcb_keycode_t dot = 60; // "v" on a Dvorak keyboard
    inline constexpr xcb_keycode_t insert = 118;
    inline constexpr xcb_keycode_t f9 = 75;
} // namespace keys

/// Runs a small program to its end; true when it ended well.
inline bool run(const QString& program, const QStringList& arguments)
{
    return QProcess::execute(program, arguments) == 0;
}

/// Another keyboard layout for as long as it lives; the plain US one afterwards.
class TestLayout {
public:
    explicit TestLayout(const QStringList& arguments) { isSet = set(arguments); }
    ~TestLayout() { set({ QStringLiteral("-layout"), QStringLiteral("us") }); }
    TestLayout(const TestLayout&) = delete;
    TestLayout& operator=(const TestLayout&) = delete;

    bool isSet = false;

private:
    static bool set(QStringList arguments)
    {
        // The empty option drops those of the layout before, which would stay.
        arguments = QStringList { QStringLiteral("-rules"), QStringLiteral("evdev"),
            QStringLiteral("-model"), QStringLiteral("pc105"), QStringLiteral("-option"),
            QString() }
            + arguments;
        return run(QStringLiteral("setxkbmap"), arguments);
    }
};

} // namespace korvane::test
