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
        xcb_atom_t state;
    };

    /// What was asked of one window; the answers are collected after all have been asked, because
    /// there may be a thousand.
    struct Question {
        xcb_window_t window;
        xcb_list_properties_cookie_t properties;
        std::optional<xcb_query_tree_cookie_t> children;
    };

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

    std::optional<Strut> readStrut(
        X11Connection& connection, xcb_window_t window, xcb_atom_t property, std::size_t count)
    {
        return strutFrom(connection.reply(xcb_get_property_reply,
                             xcb_get_property(connection.get(), 0, window, property,
                                 XCB_ATOM_CARDINAL, 0, static_cast<std::uint32_t>(count))),
            count);
    }

    // Of a bar that says it in both forms the partial one counts (EWMH).
    std::optional<Strut> strutOf(X11Connection& connection, xcb_window_t window,
        std::span<const xcb_atom_t> properties, const Atoms& atoms)
    {
        const auto has = [&](xcb_atom_t atom) {
            return std::ranges::find(properties, atom) != properties.end();
        };
        std::optional<Strut> strut;
        if (has(atoms.partial))
            strut = readStrut(connection, window, atoms.partial, numbersInPartialStrut);
        if (!strut && has(atoms.whole))
            strut = readStrut(connection, window, atoms.whole, numbersInStrut);
        return strut && isViewable(connection, window) ? strut : std::nullopt;
    }

    enum class Below { asked, notAsked };

    std::vector<Question> ask(
        X11Connection& connection, std::span<const xcb_window_t> windows, Below below)
    {
        std::vector<Question> questions;
        questions.reserve(windows.size());
        for (const auto window : windows) {
            questions.push_back(
                { window, xcb_list_properties(connection.get(), window), std::nullopt });
            if (below == Below::asked)
                questions.back().children = xcb_query_tree(connection.get(), window);
        }
        return questions;
    }

    // Reads one level; the result is the windows of the next.
    std::vector<xcb_window_t> readLevel(X11Connection& connection,
        std::span<const Question> questions, const Atoms& atoms, std::vector<Strut>& struts)
    {
        std::vector<xcb_window_t> below;
        for (const auto& question : questions) {
            const auto listed = connection.reply(xcb_list_properties_reply, question.properties);
            const auto tree = question.children
                ? connection.reply(xcb_query_tree_reply, *question.children)
                : nullptr;
            if (!listed)
                continue; // it has vanished
            const std::span properties(xcb_list_properties_atoms(listed.get()),
                static_cast<std::size_t>(xcb_list_properties_atoms_length(listed.get())));
            if (const auto strut = strutOf(connection, question.window, properties, atoms))
                struts.push_back(*strut);
            // Within a program's own window there are no bars, only the parts of that window.
            if (!tree || std::ranges::find(properties, atoms.state) != properties.end())
                continue;
            const std::span children(xcb_query_tree_children(tree.get()),
                static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
            below.insert(below.end(), children.begin(), children.end());
        }
        return below;
    }

} // namespace

std::vector<Strut> readStruts(X11Connection& connection)
{
    if (!connection.isOpen())
        return {};
    const Atoms atoms { connection.atom("_NET_WM_STRUT_PARTIAL"), connection.atom("_NET_WM_STRUT"),
        connection.atom("WM_STATE") };
    constexpr int deepest = 3;
    std::vector<Strut> struts;
    std::vector<xcb_window_t> windows { connection.root() };
    for (int level = 0; level <= deepest && !windows.empty(); ++level)
        windows = readLevel(connection,
            ask(connection, windows, level < deepest ? Below::asked : Below::notAsked), atoms,
            struts);
    return struts;
}

} // namespace korvane
