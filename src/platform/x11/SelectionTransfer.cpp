#include "platform/x11/SelectionTransfer.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <utility>

namespace korvane {

namespace {

    using namespace std::chrono_literals;

    constexpr auto maxSilence = 2s;
    constexpr auto grace = 20ms;

    // So much of a property is fetched in one turn of the loop, in the protocol's units of four
    // bytes: one mebibyte takes about a millisecond.
    constexpr std::uint32_t partUnits = 262'144;

    // An owner announces a lower bound of the size, truly or not: room is made for so much at once.
    constexpr std::size_t maxReserve = 256UL * 1024 * 1024;

    // An owner that announces nothing: room is made in few and large steps, not by doubling, because
    // what is there is copied at each, and 64 MiB take 40 ms. Memory that is never touched costs
    // nothing.
    constexpr std::array<std::size_t, 4> rooms { 64UL * 1024, 4UL * 1024 * 1024,
        128UL * 1024 * 1024, 1024UL * 1024 * 1024 };
    // A text of up to this size does not keep the room that it has left over.
    constexpr std::size_t maxShrunk = 4UL * 1024 * 1024;

    void makeRoom(std::string& bytes, std::size_t size)
    {
        if (size <= bytes.capacity())
            return;
        const auto room = std::find_if(rooms.begin(), rooms.end(),
            [size](std::size_t candidate) { return size <= candidate; });
        bytes.reserve(room == rooms.end() ? size : *room);
    }

} // namespace

SelectionTransfer::SelectionTransfer(X11Connection& connection, MainLoop& loop,
    RequestWindows& windows, const Request& request, Answer answer)
    : m_connection(connection)
    , m_loop(loop)
    , m_window(windows)
    , m_property(windows.property())
    , m_incr(connection.atom("INCR"))
    , m_request(request)
    , m_answer(std::move(answer))
{
    m_notified = m_connection.onEvent(XCB_SELECTION_NOTIFY, [this](const auto& event) {
        takeNotify(reinterpret_cast<const xcb_selection_notify_event_t&>(event));
    });
    m_propertyChanged = m_connection.onEvent(XCB_PROPERTY_NOTIFY, [this](const auto& event) {
        takePropertyChange(reinterpret_cast<const xcb_property_notify_event_t&>(event));
    });
    xcb_convert_selection(m_connection.get(), m_window.id(), m_connection.atom("CLIPBOARD"),
        m_request.target, m_property, m_request.time);
    m_connection.flush();
    awaitOwner();
}

void SelectionTransfer::awaitOwner()
{
    m_silence = m_loop.after(maxSilence, [this] {
        // It may be our own loop that was held up for so long: what has arrived meanwhile comes first.
        m_silence = m_loop.after(grace, [this] { finish(TransferResult::Ending::silent); });
    });
}

void SelectionTransfer::takeNotify(const xcb_selection_notify_event_t& event)
{
    if (event.requestor != m_window.id() || m_stage != Stage::awaitingReply)
        return;
    if (event.property != m_property) {
        finish(TransferResult::Ending::refused);
        return;
    }
    m_stage = Stage::readingPiece;
    readNext();
}

void SelectionTransfer::takePropertyChange(const xcb_property_notify_event_t& event)
{
    if (event.window != m_window.id() || event.atom != m_property
        || event.state != XCB_PROPERTY_NEW_VALUE || m_stage != Stage::awaitingPiece)
        return;
    m_stage = Stage::readingPiece;
    readNext();
}

// Reads a part of the property that is there; the server deletes the property with its last part,
// which tells the owner that it may send the next.
void SelectionTransfer::readNext()
{
    const auto part = m_connection.reply(xcb_get_property_reply,
        xcb_get_property(m_connection.get(), 1, m_window.id(), m_property,
            XCB_GET_PROPERTY_TYPE_ANY, m_pieceBytes / 4, partUnits));
    if (!part) {
        finish(TransferResult::Ending::refused); // the server has gone
        return;
    }
    if (part->type == XCB_ATOM_NONE && !m_isIncremental) {
        finish(TransferResult::Ending::refused); // it said that it had delivered, but did not
        return;
    }
    if (part->type == m_incr && !m_isIncremental)
        beginPieces(*part);
    else
        takePart(*part);
}

void SelectionTransfer::beginPieces(const xcb_get_property_reply_t& announcement)
{
    m_isIncremental = true;
    m_stage = Stage::awaitingPiece;
    std::uint32_t lowerBound = 0;
    if (xcb_get_property_value_length(&announcement) >= 4)
        std::memcpy(&lowerBound, xcb_get_property_value(&announcement), sizeof lowerBound);
    m_result.bytes.reserve(
        std::min({ std::size_t { lowerBound }, m_request.maxBytes, maxReserve }));
    awaitOwner();
}

void SelectionTransfer::takePart(const xcb_get_property_reply_t& part)
{
    const auto length = static_cast<std::size_t>(xcb_get_property_value_length(&part));
    if (length > m_request.maxBytes - m_result.bytes.size()) {
        finish(TransferResult::Ending::tooLarge);
        return;
    }
    const auto isEmptyPiece = part.type != XCB_ATOM_NONE && length == 0 && m_pieceBytes == 0;
    if (length > 0) {
        m_result.format = part.format;
        // With a whole property we know how much there is; with pieces we never do.
        if (m_isIncremental)
            makeRoom(m_result.bytes, m_result.bytes.size() + length);
        else
            m_result.bytes.reserve(
                std::min(m_result.bytes.size() + length + part.bytes_after, m_request.maxBytes));
        m_result.bytes.append(static_cast<const char*>(xcb_get_property_value(&part)), length);
        awaitOwner();
    }
    if (part.bytes_after > 0) {
        m_silence.stop(); // it is our turn, not the owner's
        m_pieceBytes += static_cast<std::uint32_t>(length);
        m_nextPart = m_loop.after(0ms, [this] { readNext(); });
        return;
    }
    m_pieceBytes = 0;
    if (!m_isIncremental || isEmptyPiece)
        finish(TransferResult::Ending::received);
    else
        m_stage = Stage::awaitingPiece;
}

void SelectionTransfer::finish(TransferResult::Ending ending)
{
    m_silence.stop();
    m_nextPart.stop();
    m_notified.disconnect();
    m_propertyChanged.disconnect();
    m_result.ending = ending;
    if (ending != TransferResult::Ending::received)
        m_result.bytes.clear();
    if (m_result.bytes.size() <= maxShrunk)
        m_result.bytes.shrink_to_fit();
    const auto answer = std::exchange(m_answer, nullptr);
    answer(std::move(m_result)); // may destroy us: nothing comes after it
}

} // namespace korvane
