#pragma once

#include "capture/Pasteboard.h"
#include "platform/wayland/DataControl.h"
#include "platform/wayland/OfferReader.h"
#include "platform/wayland/PipeWriter.h"
#include "platform/wayland/WaylandConnection.h"

#include <cstdint>
#include <deque>
#include <list>
#include <memory>

namespace korvane {

/// The clipboard over a data-control protocol, which tells of every copy in any program and needs no
/// window in front. The contents are read on pipes of our own, bit by bit as they come, so that an owner
/// that hangs holds up nobody.
class WaylandPasteboard : public Pasteboard {
public:
    /// By which the end of a copy's owner is told from a clipboard that was cleared on purpose: the
    /// protocol says of both only that the clipboard is empty. An owner has ended when the window
    /// that was in front when it copied is gone as well.
    struct Windows {
        /// The window in front, for the moment of the last event; 0: none.
        std::function<std::uint64_t()> front;
        /// Is this one still there?
        std::function<bool(std::uint64_t)> isThere;
    };

    WaylandPasteboard(WaylandConnection& connection, MainLoop& loop, Windows windows);
    WaylandPasteboard(const WaylandPasteboard&) = delete;
    WaylandPasteboard& operator=(const WaylandPasteboard&) = delete;
    ~WaylandPasteboard() override = default;

    /// False where the compositor lets nobody see the clipboard: nothing is then told or read, and what
    /// is written goes nowhere.
    bool isAvailable() const { return m_control != nullptr; }
    /// Nothing is on the clipboard, as far as we have been told.
    bool isEmpty() const { return m_offer == nullptr; }

    std::int64_t changeCount() const override { return m_changeCount; }
    void synchronise() override;
    void read(Answer answer, ListTest isEnough = {}) override;
    void abandonReads() override;
    void writeText(std::string_view text) override;

    /// Puts the text that we wrote last into the primary selection too, where terminals look for what
    /// they paste; nothing when another program has taken the clipboard since.
    void writePrimaryToo();

private:
    /// In memory of the system's: a large text is copied three times as fast into that.
    using Text = std::shared_ptr<const FileBytes>;
    using Offer = std::unique_ptr<DataOffer>;
    struct Reading {
        Answer answer;
        std::unique_ptr<OfferReader> reader;
    };
    /// What a change means to those who listen.
    struct Change {
        bool isForeign = false;
        bool isGone = false; ///< Nothing is on the clipboard any more, and something foreign was.
    };

    void selectionCame(Offer offer);
    void note(Offer offer);
    void noteHeld();
    void tell(Change change);
    void tellGone();
    bool isOwn(const DataOffer& offer) const;
    DataControl::Send sending(Text text);
    void post(MainLoop::Task task);

    WaylandConnection& m_connection;
    MainLoop& m_loop;
    Windows m_windows;
    std::uint64_t m_run;
    std::unique_ptr<DataControl> m_control;
    std::int64_t m_changeCount = 0;
    Offer m_offer;
    /// Selections that came after a write of ours while we waited for that: they are counted later.
    std::deque<Offer> m_held;
    bool m_isStarting = true;
    bool m_isWriting = false;
    bool m_hasOwnCome = false; ///< The compositor has told us of the write that we wait for.
    /// A type by which our own last write is known when the compositor tells us of it.
    std::string m_ownMark;
    std::uint64_t m_writeCount = 0;
    /// What we wrote last, for as long as it is on the clipboard.
    Text m_ownText;
    bool m_isOwn = false;
    std::uint64_t m_copiedIn = 0;
    std::list<Reading> m_readings;
    std::list<PipeWriter> m_writers;
    // Shared with posted tasks, which may run after our end and must then do nothing.
    std::shared_ptr<bool> m_life = std::make_shared<bool>(true);
    Timer m_gone;
};

} // namespace korvane
