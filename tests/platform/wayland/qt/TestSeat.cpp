#include "platform/wayland/qt/TestSeat.h"

#include "platform/wayland/qt/TestConnection.h"

#include <fake-input-client-protocol.h>
#include <virtual-keyboard-unstable-v1-client-protocol.h>
#include <wlr-virtual-pointer-unstable-v1-client-protocol.h>

#include <QGuiApplication>
#include <QScreen>

#include <xkbcommon/xkbcommon.h>

#include <linux/input-event-codes.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <string>

namespace korvane::test {

namespace {

    constexpr unsigned up = 0;
    constexpr unsigned down = 1;

    unsigned numberOf(TestSeat::Button button)
    {
        return button == TestSeat::Button::left ? BTN_LEFT : BTN_RIGHT;
    }

    struct Freed {
        void operator()(char* text) const
        {
            std::free(text); // NOLINT(cppcoreguidelines-owning-memory): the library's text
        }
    };

    /// The whole of a layout, as text.
    std::string keymap(const char* layout, const char* variant)
    {
        auto* const context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
        const xkb_rule_names names { nullptr, nullptr, layout, variant, nullptr };
        auto* const map = xkb_keymap_new_from_names(context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS);
        std::string text;
        if (map != nullptr) {
            const std::unique_ptr<char, Freed> written(
                xkb_keymap_get_as_string(map, XKB_KEYMAP_FORMAT_TEXT_V1));
            text = written.get();
        }
        xkb_keymap_unref(map);
        xkb_context_unref(context);
        return text;
    }

} // namespace

struct TestSeat::Devices {
    TestConnection connection;
    wl_seat* seat = connection.bind<wl_seat>(wl_seat_interface, 1);
    zwlr_virtual_pointer_v1* pointer = nullptr;
    zwp_virtual_keyboard_v1* keyboard = nullptr;
    org_kde_kwin_fake_input* both = nullptr;
    unsigned time = 0;
};

TestSeat::TestSeat()
    : m_devices(std::make_unique<Devices>())
{
    auto& devices = *m_devices;
    auto& connection = devices.connection;
    if (auto* const pointers = connection.bind<zwlr_virtual_pointer_manager_v1>(
            zwlr_virtual_pointer_manager_v1_interface, 1))
        devices.pointer
            = zwlr_virtual_pointer_manager_v1_create_virtual_pointer(pointers, devices.seat);
    if (auto* const keyboards = connection.bind<zwp_virtual_keyboard_manager_v1>(
            zwp_virtual_keyboard_manager_v1_interface, 1)) {
        devices.keyboard
            = zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(keyboards, devices.seat);
        setLayout("us", "");
    }
    devices.both = connection.bind<org_kde_kwin_fake_input>(org_kde_kwin_fake_input_interface, 4);
    if (devices.both)
        org_kde_kwin_fake_input_authenticate(devices.both, "korvane tests", "tests");
    connection.roundTrip();
}

TestSeat::~TestSeat() = default;

bool TestSeat::isReady() const
{
    return m_devices->both || (m_devices->pointer && m_devices->keyboard);
}

bool TestSeat::setLayout(const char* layout, const char* variant)
{
    const auto text = keymap(layout, variant);
    if (!m_devices->keyboard || text.empty())
        return false;
    const int memory = ::memfd_create("keymap", MFD_CLOEXEC);
    const auto size = text.size() + 1;
    if (memory < 0 || ::write(memory, text.c_str(), size) != static_cast<ssize_t>(size))
        return false;
    zwp_virtual_keyboard_v1_keymap(
        m_devices->keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, memory, static_cast<unsigned>(size));
    m_devices->connection.roundTrip();
    ::close(memory);
    return true;
}

void TestSeat::moveTo(const QPoint& place)
{
    const QSize desktop = QGuiApplication::primaryScreen()->virtualSize();
    auto& devices = *m_devices;
    if (devices.pointer) {
        const auto whole = [](int points) { return static_cast<unsigned>(points); };
        zwlr_virtual_pointer_v1_motion_absolute(devices.pointer, ++devices.time, whole(place.x()),
            whole(place.y()), whole(desktop.width()), whole(desktop.height()));
        zwlr_virtual_pointer_v1_frame(devices.pointer);
    } else {
        org_kde_kwin_fake_input_pointer_motion_absolute(
            devices.both, wl_fixed_from_int(place.x()), wl_fixed_from_int(place.y()));
    }
    devices.connection.roundTrip();
}

void TestSeat::press(Button button)
{
    auto& devices = *m_devices;
    if (devices.pointer) {
        zwlr_virtual_pointer_v1_button(devices.pointer, ++devices.time, numberOf(button), down);
        zwlr_virtual_pointer_v1_frame(devices.pointer);
    } else {
        org_kde_kwin_fake_input_button(devices.both, numberOf(button), down);
    }
    devices.connection.roundTrip();
}

void TestSeat::release(Button button)
{
    auto& devices = *m_devices;
    if (devices.pointer) {
        zwlr_virtual_pointer_v1_button(devices.pointer, ++devices.time, numberOf(button), up);
        zwlr_virtual_pointer_v1_frame(devices.pointer);
    } else {
        org_kde_kwin_fake_input_button(devices.both, numberOf(button), up);
    }
    devices.connection.roundTrip();
}

void TestSeat::clickAt(const QPoint& place, Button button)
{
    moveTo(place);
    press(button);
    release(button);
}

void TestSeat::type(unsigned key)
{
    auto& devices = *m_devices;
    for (const auto state : { down, up }) {
        if (devices.keyboard)
            zwp_virtual_keyboard_v1_key(devices.keyboard, ++devices.time, key, state);
        else
            org_kde_kwin_fake_input_keyboard_key(devices.both, key, state);
        devices.connection.roundTrip();
    }
}

} // namespace korvane::test
