#include "platform/x11/X11Pasteboard.h"

#include <utility>

namespace korvane {

namespace {

    const xcb_xfixes_selection_notify_event_t& ownerEvent(const xcb_generic_event_t& event)
    {
        return reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
    }

} // namespace

X11Pasteboard::X11Pasteboard(X11Connection& connection, MainLoop& loop, ClipboardWriter& writer)
    : m_connection(connection)
    , m_loop(loop)
    , m_writer(writer)
    , m_windows(connection)
    , m_clipboard(connection.atom("CLIPBOARD"))
{
    if (const auto xfixes = m_connection.extension(&xcb_xfixes_id))
        watchOwner(static_cast<std::uint8_t>(xfixes->firstEvent + XCB_XFIXES_SELECTION_NOTIFY));
    const auto owner = m_connection.reply(
        xcb_get_selection_owner_reply, xcb_get_selection_owner(m_connection.get(), m_clipboard));
    if (owner)
        m_owner = owner->owner;
}

void X11Pasteboard::watchOwner(std::uint8_t eventType)
{
    m_ownerEvent = eventType;
    m_ownerChanged = m_connection.onEvent(eventType, [this](const auto& event) {
        if (ownerEvent(event).selection == m_clipboard)
            tell(note(ownerEvent(event)));
    });
    // The server serves no request of an extension before the two have agreed on a version.
    m_connection.reply(xcb_xfixes_query_version_reply,
        xcb_xfixes_query_version(
            m_connection.get(), XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION));
    xcb_xfixes_select_selection_input(m_connection.get(), m_connection.root(), m_clipboard,
        XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
            | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
            | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    m_connection.flush();
}

X11Pasteboard::Change X11Pasteboard::note(const xcb_xfixes_selection_notify_event_t& event)
{
    const auto previous = std::exchange(m_owner, event.owner);
    m_ownedSince = event.timestamp;
    ++m_changeCount;
    abandonReads();
    const auto wasForeign = previous != XCB_NONE && !m_writer.ownsWindow(previous);
    // An owner that gives the selection up on purpose, as password managers do when they clear it,
    // sends the other subtype.
    const auto hasEnded = event.subtype != XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER;
    return { .isForeign = m_owner == XCB_NONE ? wasForeign : !m_writer.ownsWindow(m_owner),
        .hasOwnerVanished = hasEnded && wasForeign };
}

void X11Pasteboard::tell(Change change)
{
    // In this order, so that who puts the vanished text back has done so before anyone looks.
    const auto life = std::weak_ptr(m_life);
    // Another program may have taken the clipboard meanwhile; its copy is not to be replaced.
    if (change.hasOwnerVanished && !hasOwner())
        ownerVanished();
    if (change.isForeign && !life.expired())
        changed();
}

bool X11Pasteboard::hasOwner()
{
    const auto owner = m_connection.reply(
        xcb_get_selection_owner_reply, xcb_get_selection_owner(m_connection.get(), m_clipboard));
    return owner && owner->owner != XCB_NONE;
}

void X11Pasteboard::synchronise()
{
    static_cast<void>(hasOwner()); // before it answers, the server tells what has happened so far
    for (const auto& arrived : m_connection.takeArrived(m_ownerEvent)) {
        const auto& event = ownerEvent(*arrived);
        if (event.selection == m_clipboard)
            post([this, change = note(event)] { tell(change); });
    }
}

void X11Pasteboard::read(Answer answer, ListTest isEnough)
{
    if (m_owner == XCB_NONE) {
        post([answer = std::move(answer)] { answer(std::nullopt); });
        return;
    }
    const auto reading = m_readings.emplace(m_readings.end());
    reading->answer = std::move(answer);
    reading->reader = std::make_unique<ContentsReader>(
        m_connection, m_loop, m_windows, m_ownedSince,
        [this, reading](std::optional<Contents> contents) {
            const auto done = std::move(reading->answer);
            m_readings.erase(reading);
            done(std::move(contents));
        },
        std::move(isEnough));
}

void X11Pasteboard::abandonReads()
{
    for (auto& reading : std::exchange(m_readings, {}))
        post([answer = std::move(reading.answer)] { answer(std::nullopt); });
}

void X11Pasteboard::writeText(std::string_view text)
{
    m_writer.writeClipboard(text);
    // The server has told us of it before it answers this. What listeners make of other programs'
    // changes among it comes on the next turn, so that nobody acts in the middle of our caller.
    m_connection.reply(
        xcb_get_selection_owner_reply, xcb_get_selection_owner(m_connection.get(), m_clipboard));
    // Only as far as our own change: a copy that another program has made since then is still to come.
    const auto isOwn = [this](const auto& event) {
        return ownerEvent(event).selection == m_clipboard
            && m_writer.ownsWindow(ownerEvent(event).owner);
    };
    bool isCounted = false;
    for (const auto& arrived : m_connection.takeArrived(m_ownerEvent, isOwn)) {
        const auto& event = ownerEvent(*arrived);
        if (event.selection != m_clipboard)
            continue;
        // The toolkit may have taken the selection twice over for this one text.
        if (isCounted && event.owner == m_owner)
            continue;
        const auto change = note(event);
        isCounted = m_writer.ownsWindow(m_owner);
        post([this, change] { tell(change); });
    }
}

void X11Pasteboard::writePrimaryToo()
{
    m_writer.copyToPrimary();
}

void X11Pasteboard::post(MainLoop::Task task)
{
    m_loop.post([task = std::move(task), life = std::weak_ptr(m_life)] {
        if (!life.expired())
            task();
    });
}

} // namespace korvane
