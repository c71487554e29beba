// The user's hands on a Wayland desktop without devices: a keyboard and a mouse that do what the lines of
// the standard input say, until it ends. Each line is answered by "ok" when the compositor has taken it, or
// by "what?" when it cannot be read; the first answer, before any line, tells that the devices are there.
//
//   korvane-hands WIDTH HEIGHT      the size of all outputs together
//
//   down KEY, up KEY                a key, by the kernel's number
//   move X Y                        in points, from the top left
//   press BUTTON, release BUTTON    a button of the mouse, by the kernel's number

#include "platform/wayland/KeyTarget.h"
#include "platform/wayland/UsersPointer.h"

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>

namespace {

std::uint32_t number(const char* text)
{
    return static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10));
}

bool obey(const std::string& line, korvane::test::UsersKeyboard& keyboard,
    korvane::test::UsersPointer& pointer)
{
    std::istringstream words(line);
    std::string what;
    std::uint32_t first = 0;
    std::uint32_t second = 0;
    if (!(words >> what >> first))
        return false;
    if (what == "down")
        keyboard.press(first);
    else if (what == "up")
        keyboard.release(first);
    else if (what == "press")
        pointer.press(first);
    else if (what == "release")
        pointer.release(first);
    else if (what == "move" && words >> second)
        pointer.moveTo(first, second);
    else
        return false;
    return true;
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 3)
        return 2;
    korvane::test::UsersKeyboard keyboard;
    korvane::test::UsersPointer pointer(number(arguments[1]), number(arguments[2]));
    if (!keyboard.isThere() || !pointer.isThere()) {
        std::cout << "the compositor gives no devices" << std::endl;
        return 1;
    }
    std::cout << "ok" << std::endl;
    for (std::string line; std::getline(std::cin, line);)
        std::cout << (obey(line, keyboard, pointer) ? "ok" : "what?") << std::endl;
    return 0;
}
