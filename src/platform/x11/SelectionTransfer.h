#pragma once

#include "platform/x11/RequestWindows.h"
#include "platform/x11/X11Connection.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace korvane {

/// What came of asking the clipboard's owner for one type of its contents.
struct TransferResult {
    enum class Ending {
        received,
        refused,  ///< The owner does not give this type, or there is no owner.
        silent,   ///< The owner let two seconds pass without a byte.
        tooLarge, ///< More than the request would take.
    };
    Ending ending = Ending::refused;
    /// Units of `format` bits each, in the machine's byte order.
    std::string bytes;
    /// 8, 16 or 32.
    int format = 8;
};

/// Asks the owner of the CLIPBOARD selection for one type of its contents and gathers what it sends,
/// in one property or, by INCR (ICCCM 2.7.2), in many. Answers once, from the main loop, never from
/// the constructor; abandoned, without an answer, when destroyed.
class SelectionTransfer {
public:
    struct Request {
        /// The type wanted.
        xcb_atom_t target = XCB_ATOM_NONE;
        /// When the owner became the owner: the time of that event, so that no later owner answers.
        xcb_timestamp_t time = XCB_CURRENT_TIME;
        std::size_t maxBytes = 0;
    };
    /// May destroy the transfer.
    using Answer = std::function<void(TransferResult)>;

    SelectionTransfer(X11Connection& connection, MainLoop& loop, RequestWindows& windows,
        const Request& request, Answer answer);
    SelectionTransfer(const SelectionTransfer&) = delete;
    SelectionTransfer& operator=(const SelectionTransfer&) = delete;
    ~SelectionTransfer() = default;

private:
    enum class Stage { awaitingReply, awaitingPiece, readingPiece };

    void takeNotify(const xcb_selection_notify_event_t& event);
    void takePropertyChange(const xcb_property_notify_event_t& event);
    void readNext();
    void takePart(const xcb_get_property_reply_t& part);
    void beginPieces(const xcb_get_property_reply_t& announcement);
    void awaitOwner();
    void finish(TransferResult::Ending ending);

    X11Connection& m_connection;
    MainLoop& m_loop;
    RequestWindows::Window m_window;
    xcb_atom_t m_property;
    xcb_atom_t m_incr;
    Request m_request;
    Answer m_answer;

    Stage m_stage = Stage::awaitingReply;
    bool m_isIncremental = false;
    /// How much of the property that is being read we have.
    std::uint32_t m_pieceBytes = 0;
    TransferResult m_result;

    Timer m_silence;
    Timer m_nextPart;
    Connection m_notified;
    Connection m_propertyChanged;
};

} // namespace korvane
