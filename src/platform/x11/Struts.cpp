#include "platform/x11/Struts.h"

#include "platform/x11/X11Connection.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

namespace korvane {

namespace {

    constexpr std::size_t numbersInPartialStrut = 12;
    constexpr std::size_t numbersInStrut = 4;

    struct Atoms {
        xcb_atom_t partial;
        xcb_atom_t whole;
    };

    /// What was asked of one window; the answers are collected after all have been asked.
    struct Question {
        xcb_window_t window;
        xcb_get_property_cookie_t partial;
        xcb_get_property_cookie_t whole;
        xcb_query_tree_cookie_t children;
    };

    Question ask(X11Connection& connection, xcb_window_t window, const Atoms& atoms)
    {
        auto* const server = connection.get();
        const auto property = [&](xcb_atom_t atom, std::size_t count) {
            return xcb_get_property(
                server, 0, window, atom, XCB_ATOM_CARDINAL, 0, static_cast<std::uint32_t>(count));
        };
        return { window, property(atoms.partial, numbersInPartialStrut),
            property(atoms.whole, numbersInStrut), xcb_query_tree(server, window) };
    }

    std::optional<Strut> strutFrom(
        const X11Reply<xcb_get_property_reply_t>& reply, std::size_t count)
    {
        if (!reply || reply->format != 32 || reply->value_len < count)
            return std::nullopt;
        const std::span given(
            static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get())), count);
        // The shorter form ends after the depths, and its zeros mean whole edges.
        std::array<std::uint32_t, numbersInPartialStrut> n {};
        std::ranges::copy(given, n.begin());
        return Strut { { n[0], n[4], n[5] }, { n[1], n[6], n[7] }, { n[2], n[8], n[9] },
            { n[3], n[10], n[11] } };
    }

    // A bar that is hidden keeps nothing free.
    bool isViewable(X11Connection& connection, xcb_window_t window)
    {
        const auto attributes = connection.reply(
            xcb_get_window_attributes_reply, xcb_get_window_attributes(connection.get(), window));
        return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    }

    // Reads one level; the result is the windows of the next.
    std::vector<xcb_window_t> readLevel(X11Connection& connection,
        std::span<const xcb_window_t> windows, const Atoms& atoms, std::vector<Strut>& struts)
    {
        std::vector<Question> questions;
        questions.reserve(windows.size());
        for (const auto window : windows)
            questions.push_back(ask(connection, window, atoms));
        std::vector<xcb_window_t> below;
        for (const auto& question : questions) {
            const auto partial = strutFrom(
                connection.reply(xcb_get_property_reply, question.partial), numbersInPartialStrut);
            const auto whole = strutFrom(
                connection.reply(xcb_get_property_reply, question.whole), numbersInStrut);
            const auto tree = connection.reply(xcb_query_tree_reply, question.children);
            const auto& strut = partial ? partial : whole;
            if (strut && isViewable(connection, question.window))
                struts.push_back(*strut);
            if (tree) {
                const std::span children(xcb_query_tree_children(tree.get()),
                    static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
                below.insert(below.end(), children.begin(), children.end());
            }
        }
        return below;
    }

} // namespace

std::vector<Strut> readStruts(X11Connection& connection)
{
    if (!connection.isOpen())
        return {};
    const Atoms atoms { connection.atom("_NET_WM_STRUT_PARTIAL"),
        connection.atom("_NET_WM_STRUT") };
    std::vector<Strut> struts;
    std::vector<xcb_window_t> windows { connection.root() };
    for (int level = 0; level <= 3 && !windows.empty(); ++level)
        windows = readLevel(connection, windows, atoms, struts);
    return struts;
}

} // namespace korvane
