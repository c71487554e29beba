#pragma once

#include "ShortcutService.h"
#include "platform/qt/KGlobalAccelGrabber.h"
#include "support/ManualLoop.h"

#include <map>
#include <string>
#include <vector>

namespace korvane::test {

using Asked = std::vector<std::string>;

inline const QString down = "globalShortcutPressed";
inline const QString up = "globalShortcutReleased";
inline const std::string registered = "doRegister com.VNT.Korvane|open|Korvane|Open Korvane";
inline const std::string freed = "unregister com.VNT.Korvane open";

inline std::string askedFor(int number)
{
    return "setShortcutKeys com.VNT.Korvane|open|Korvane|Open Korvane " + std::to_string(number)
        + ",0,0,0, 6";
}

/// A desktop whose service numbers the chords of Space and Tab, and knows no other key.
struct KGlobalAccelFixture {
    bool grab(KeyCode key = keycodes::space) { return grabber.grab(key, modifiers::control); }
    bool hears(int count)
    {
        return waitUntil([&] { return presses >= count; }) && settle() && presses == count;
    }
    bool settle() { return service.settle(connection); }

    SessionBus bus;
    ShortcutService service { bus };
    QDBusConnection connection = bus.connection("korvane");
    ManualLoop loop;
    std::map<KeyCode, std::int32_t> numbers { { keycodes::space, 100 }, { keycodes::tab, 200 } };
    KGlobalAccelGrabber grabber { loop,
        [this](KeyCode key, ModifierMask mask) -> std::optional<std::int32_t> {
            const auto known = numbers.find(key);
            if (known == numbers.end() || mask != modifiers::control)
                return std::nullopt;
            return known->second;
        },
        connection };
    int presses = 0;
    Connection pressed = grabber.pressed.connect([this] { ++presses; });
};

} // namespace korvane::test
