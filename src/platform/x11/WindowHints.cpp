#include "platform/x11/WindowHints.h"

#include "model/Text.h"
#include "platform/ApplicationNames.h"
#include "platform/x11/X11Connection.h"

#include <array>
#include <cstring>
#include <string_view>

#include <unistd.h>

namespace korvane {

namespace {

    // No name of a program is longer, and a title of this length says all that is used of it.
    constexpr std::uint32_t maxTextLongs = 256;

    using PropertyReply = X11Reply<xcb_get_property_reply_t>;

    std::string_view bytesOf(const PropertyReply& reply)
    {
        if (!reply || reply->format != 8)
            return {};
        return { static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get())) };
    }

    std::string_view untilNul(std::string_view bytes)
    {
        return bytes.substr(0, bytes.find('\0'));
    }

    // A property that holds UTF-8 by its definition.
    std::string textOf(std::string_view bytes)
    {
        return repairedUtf8(std::string(untilNul(bytes)));
    }

    // One that holds Latin-1 by its definition, where many programs write UTF-8 all the same.
    std::string olderTextOf(std::string_view bytes)
    {
        const auto text = untilNul(bytes);
        return isValidUtf8(text) ? std::string(text) : utf8FromLatin1(text);
    }

    std::uint32_t numberOf(const PropertyReply& reply)
    {
        if (!reply || reply->format != 32 || xcb_get_property_value_length(reply.get()) < 4)
            return 0;
        std::uint32_t number = 0;
        std::memcpy(&number, xcb_get_property_value(reply.get()), sizeof number);
        return number;
    }

    // A process number means something only on the machine that gave it.
    bool isThisMachine(std::string_view machine)
    {
        std::array<char, 256> name {};
        return ::gethostname(name.data(), name.size() - 1) == 0 && machine == name.data();
    }

} // namespace

std::optional<WindowHints> readWindowHints(X11Connection& connection, xcb_window_t window)
{
    constexpr auto properties
        = std::to_array<std::string_view>({ "_KDE_NET_WM_DESKTOP_FILE", "_GTK_APPLICATION_ID",
            "WM_CLASS", "_NET_WM_PID", "WM_CLIENT_MACHINE", "_NET_WM_NAME", "WM_NAME" });
    std::array<xcb_get_property_cookie_t, properties.size()> cookies {};
    for (std::size_t i = 0; i < properties.size(); ++i)
        cookies.at(i) = xcb_get_property(connection.get(), 0, window,
            connection.atom(properties.at(i)), XCB_GET_PROPERTY_TYPE_ANY, 0, maxTextLongs);
    std::array<PropertyReply, properties.size()> replies;
    for (std::size_t i = 0; i < properties.size(); ++i)
        replies.at(i) = connection.reply(xcb_get_property_reply, cookies.at(i));
    const auto& [desktopFile, applicationId, windowClass, process, machine, title, olderTitle]
        = replies;
    if (!olderTitle) // the last question was answered with an error: no such window any more
        return std::nullopt;

    WindowHints hints;
    hints.program.desktopFile = textOf(bytesOf(desktopFile));
    hints.program.applicationId = textOf(bytesOf(applicationId));
    const auto classBytes = bytesOf(windowClass);
    const auto instance = untilNul(classBytes);
    hints.program.windowInstance = olderTextOf(instance);
    if (instance.size() < classBytes.size())
        hints.program.windowClass = olderTextOf(classBytes.substr(instance.size() + 1));
    if (numberOf(process) != 0 && isThisMachine(untilNul(bytesOf(machine))))
        hints.program.executable = programName(numberOf(process));
    hints.title = textOf(bytesOf(title));
    if (hints.title.empty())
        hints.title = olderTextOf(bytesOf(olderTitle));
    return hints;
}

std::vector<std::uint32_t> readNumbers(
    X11Connection& connection, xcb_window_t window, xcb_atom_t property, xcb_atom_t type)
{
    constexpr std::uint32_t most = 65'536; // more windows than any desktop has
    const auto reply = connection.reply(xcb_get_property_reply,
        xcb_get_property(connection.get(), 0, window, property, type, 0, most));
    if (!reply || reply->format != 32)
        return {};
    std::vector<std::uint32_t> numbers(reply->value_len);
    if (!numbers.empty())
        std::memcpy(numbers.data(), xcb_get_property_value(reply.get()),
            numbers.size() * sizeof(std::uint32_t));
    return numbers;
}

std::uint32_t readNumber(
    X11Connection& connection, xcb_window_t window, xcb_atom_t property, xcb_atom_t type)
{
    return numberOf(connection.reply(xcb_get_property_reply,
        xcb_get_property(connection.get(), 0, window, property, type, 0, 1)));
}

} // namespace korvane
