#pragma once

#include "support/SelectionOwner.h"

#include <xcb/xcb.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace korvane::test {

/// The other process of a `SelectionOwner` on X11; see `runScriptedOwner`.
class ScriptedOwner {
public:
    ScriptedOwner(OwnerScript script, int commands, int reports);
    /// Serves until the other side closes the commands; the exit status.
    int run();

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    /// A delivery by INCR that is under way.
    struct Sending {
        xcb_window_t requestor = XCB_NONE;
        xcb_atom_t property = XCB_ATOM_NONE;
        const Offer* offer = nullptr;
        std::size_t sent = 0;
        std::size_t pieceNumber = 0;
        bool isEnded = false;
    };

    void own();
    bool obeyCommand();
    void handle(const xcb_generic_event_t& event);
    void answer(const xcb_selection_request_event_t& request);
    void deliver(const xcb_selection_request_event_t& request, const Offer& offer);
    void deliverTargets(const xcb_selection_request_event_t& request);
    void putWhole(const xcb_selection_request_event_t& request, std::string_view bytes);
    void beginPieces(const xcb_selection_request_event_t& request, const Offer& offer);
    void sendPiece(Sending& sending);
    void notify(const xcb_selection_request_event_t& request, xcb_atom_t property);
    xcb_atom_t atom(const std::string& name);
    void report(const std::string& line) const;

    OwnerScript m_script;
    int m_commands;
    int m_reports;
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_window = XCB_NONE;
    std::map<std::string, xcb_atom_t> m_atoms;
    std::map<xcb_window_t, Sending> m_sendings;
};

} // namespace korvane::test
