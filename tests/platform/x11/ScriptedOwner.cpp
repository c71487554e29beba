#include "platform/x11/ScriptedOwner.h"

#include "platform/x11/X11Connection.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>

namespace korvane::test {

namespace {

    // A request of the protocol carries at most 16 MiB; a property can be appended to.
    constexpr std::size_t maxRequestBytes = 8UL * 1024 * 1024;

    bool readAll(int descriptor, char* bytes, std::size_t size)
    {
        while (size > 0) {
            const auto read = ::read(descriptor, bytes, size);
            if (read <= 0)
                return false;
            bytes += read;
            size -= static_cast<std::size_t>(read);
        }
        return true;
    }

} // namespace

int runScriptedOwner(const OwnerScript& script, int commands, int reports)
{
    return ScriptedOwner(script, commands, reports).run();
}

ScriptedOwner::ScriptedOwner(OwnerScript script, int commands, int reports)
    : m_script(std::move(script))
    , m_commands(commands)
    , m_reports(reports)
    , m_connection(xcb_connect(nullptr, nullptr))
{
}

int ScriptedOwner::run()
{
    auto* const connection = m_connection.get();
    if (xcb_connection_has_error(connection) != 0)
        return 1;
    xcb_get_maximum_request_length(connection); // this is what makes requests over 256 KiB possible
    m_window = xcb_generate_id(connection);
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, m_window, root, 0, 0, 1, 1, 0,
        XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    own();
    report("done");
    while (xcb_connection_has_error(connection) == 0) {
        while (const auto event = X11Event(xcb_poll_for_event(connection)))
            handle(*event);
        std::array<pollfd, 2> waiting { pollfd { xcb_get_file_descriptor(connection), POLLIN, 0 },
            pollfd { m_commands, POLLIN, 0 } };
        ::poll(waiting.data(), waiting.size(), -1);
        if (waiting[1].revents != 0 && !obeyCommand())
            return 0;
    }
    return 1;
}

void ScriptedOwner::own()
{
    auto* const connection = m_connection.get();
    xcb_set_selection_owner(connection, m_window, atom("CLIPBOARD"), XCB_CURRENT_TIME);
    const auto cookie = xcb_get_input_focus(connection);
    X11Reply<xcb_get_input_focus_reply_t>(xcb_get_input_focus_reply(connection, cookie, nullptr));
}

bool ScriptedOwner::obeyCommand()
{
    char letter = 0;
    std::uint32_t size = 0;
    if (!readAll(m_commands, &letter, 1)
        || !readAll(m_commands, reinterpret_cast<char*>(&size), sizeof size))
        return false;
    std::string text(size, '\0');
    if (!readAll(m_commands, text.data(), size))
        return false;
    m_sendings.clear();
    if (letter == 'c') {
        for (auto& offer : m_script.offers) {
            if (offer.target == "UTF8_STRING")
                offer.bytes = text;
        }
        own();
    } else {
        xcb_set_selection_owner(m_connection.get(), XCB_NONE, atom("CLIPBOARD"), XCB_CURRENT_TIME);
        xcb_flush(m_connection.get());
    }
    report("done");
    return true;
}

void ScriptedOwner::handle(const xcb_generic_event_t& event)
{
    const auto type = event.response_type & 0x7F;
    if (type == XCB_SELECTION_REQUEST) {
        answer(reinterpret_cast<const xcb_selection_request_event_t&>(event));
    } else if (type == XCB_PROPERTY_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        const auto found = m_sendings.find(change.window);
        if (found != m_sendings.end() && change.state == XCB_PROPERTY_DELETE
            && change.atom == found->second.property)
            sendPiece(found->second);
    }
    xcb_flush(m_connection.get());
}

void ScriptedOwner::answer(const xcb_selection_request_event_t& request)
{
    if (request.target == atom("TARGETS")) {
        report("TARGETS");
        deliverTargets(request);
        return;
    }
    for (const auto& offer : m_script.offers) {
        if (atom(offer.target) == request.target) {
            report(offer.target);
            deliver(request, offer);
            return;
        }
    }
    report("(not offered)");
    notify(request, XCB_ATOM_NONE);
}

void ScriptedOwner::deliverTargets(const xcb_selection_request_event_t& request)
{
    if (m_script.targets == Delivery::never)
        return;
    if (m_script.targets == Delivery::refused) {
        notify(request, XCB_ATOM_NONE);
        return;
    }
    std::vector<xcb_atom_t> targets { atom("TARGETS"), atom("TIMESTAMP") };
    for (const auto& offer : m_script.offers)
        targets.push_back(atom(offer.target));
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, request.requestor,
        request.property, XCB_ATOM_ATOM, 32, static_cast<std::uint32_t>(targets.size()),
        targets.data());
    notify(request, request.property);
}

void ScriptedOwner::deliver(const xcb_selection_request_event_t& request, const Offer& offer)
{
    switch (offer.delivery) {
    case Delivery::whole:
        putWhole(request, offer.bytes);
        notify(request, request.property);
        break;
    case Delivery::refused:
        notify(request, XCB_ATOM_NONE);
        break;
    case Delivery::announcedOnly:
        notify(request, request.property);
        break;
    case Delivery::never:
        break;
    case Delivery::inPieces:
    case Delivery::stopsMidway:
    case Delivery::endless:
        beginPieces(request, offer);
        break;
    }
}

void ScriptedOwner::putWhole(const xcb_selection_request_event_t& request, std::string_view bytes)
{
    auto mode = XCB_PROP_MODE_REPLACE;
    do {
        const auto part = bytes.substr(0, maxRequestBytes);
        xcb_change_property(m_connection.get(), static_cast<std::uint8_t>(mode), request.requestor,
            request.property, request.target, 8, static_cast<std::uint32_t>(part.size()),
            part.data());
        bytes.remove_prefix(part.size());
        mode = XCB_PROP_MODE_APPEND;
    } while (!bytes.empty());
}

void ScriptedOwner::beginPieces(const xcb_selection_request_event_t& request, const Offer& offer)
{
    constexpr std::array<std::uint32_t, 1> events { XCB_EVENT_MASK_PROPERTY_CHANGE };
    xcb_change_window_attributes(
        m_connection.get(), request.requestor, XCB_CW_EVENT_MASK, events.data());
    m_sendings[request.requestor] = { request.requestor, request.property, &offer };
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, request.requestor,
        request.property, atom("INCR"), 32, 1, &offer.announced);
    notify(request, request.property);
}

void ScriptedOwner::sendPiece(Sending& sending)
{
    const auto& offer = *sending.offer;
    const auto isPastHalf = sending.sent >= offer.bytes.size() / 2;
    if (sending.isEnded || (offer.delivery == Delivery::stopsMidway && isPastHalf))
        return;
    if (offer.delivery == Delivery::endless && sending.sent == offer.bytes.size())
        sending.sent = 0;
    ::poll(nullptr, 0, static_cast<int>(offer.pause.count()));
    const auto wanted = offer.pieces[sending.pieceNumber++ % offer.pieces.size()];
    const auto size = std::min(wanted, offer.bytes.size() - sending.sent);
    // The piece of no bytes after the last one is the end.
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, sending.requestor,
        sending.property, atom(offer.target), 8, static_cast<std::uint32_t>(size),
        offer.bytes.data() + sending.sent);
    sending.sent += size;
    sending.isEnded = size == 0;
}

void ScriptedOwner::notify(const xcb_selection_request_event_t& request, xcb_atom_t property)
{
    xcb_selection_notify_event_t event {};
    event.response_type = XCB_SELECTION_NOTIFY;
    event.time = request.time;
    event.requestor = request.requestor;
    event.selection = request.selection;
    event.target = request.target;
    event.property = property;
    xcb_send_event(m_connection.get(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
        reinterpret_cast<const char*>(&event));
}

xcb_atom_t ScriptedOwner::atom(const std::string& name)
{
    auto& known = m_atoms[name];
    if (known == XCB_ATOM_NONE) {
        const auto cookie = xcb_intern_atom(
            m_connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
        const X11Reply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(m_connection.get(), cookie, nullptr));
        if (reply)
            known = reply->atom;
    }
    return known;
}

void ScriptedOwner::report(const std::string& line) const
{
    const auto whole = line + "\n";
    [[maybe_unused]] const auto written = ::write(m_reports, whole.data(), whole.size());
}

} // namespace korvane::test
