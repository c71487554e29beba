#pragma once

#include "capture/Pasteboard.h"
#include "platform/x11/ClipboardWriter.h"
#include "platform/x11/ContentsReader.h"
#include "platform/x11/RequestWindows.h"
#include "platform/x11/X11Connection.h"

#include <xcb/xfixes.h>

#include <list>
#include <memory>

namespace korvane {

/// The clipboard over the CLIPBOARD selection. The XFixes extension tells of every new owner; the
/// contents are read on a connection of our own, bit by bit as they come, so that an owner that
/// hangs holds up nobody.
class X11Pasteboard : public Pasteboard {
public:
    X11Pasteboard(X11Connection& connection, MainLoop& loop, ClipboardWriter& writer);
    X11Pasteboard(const X11Pasteboard&) = delete;
    X11Pasteboard& operator=(const X11Pasteboard&) = delete;
    ~X11Pasteboard() override = default;

    std::int64_t changeCount() const override { return m_changeCount; }
    void synchronise() override;
    void read(Answer answer, ListTest isEnough = {}) override;
    void abandonReads() override;
    void writeText(std::string_view text) override;

    /// Puts the text that we wrote last into PRIMARY too, where terminals look for what they paste;
    /// nothing when another program has taken the clipboard since.
    void writePrimaryToo();

private:
    /// What an owner event means to those who listen.
    struct Change {
        bool isForeign = false;
        bool hasOwnerVanished = false;
    };
    struct Reading {
        Answer answer;
        std::unique_ptr<ContentsReader> reader;
    };
    using Readings = std::list<Reading>;

    void watchOwner(std::uint8_t eventType);
    Change note(const xcb_xfixes_selection_notify_event_t& event);
    void tell(Change change);
    bool hasOwner();
    void post(MainLoop::Task task);

    X11Connection& m_connection;
    MainLoop& m_loop;
    ClipboardWriter& m_writer;
    RequestWindows m_windows;
    xcb_atom_t m_clipboard;
    std::uint8_t m_ownerEvent = 0;
    std::int64_t m_changeCount = 0;
    xcb_window_t m_owner = XCB_NONE;
    xcb_timestamp_t m_ownedSince = XCB_CURRENT_TIME;
    Readings m_readings;
    // Shared with posted tasks, which may run after our end and must then do nothing.
    std::shared_ptr<bool> m_life = std::make_shared<bool>(true);
    Connection m_ownerChanged;
};

} // namespace korvane
