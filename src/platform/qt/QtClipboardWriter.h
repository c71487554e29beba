#pragma once

#include "platform/x11/ClipboardWriter.h"
#include "platform/x11/X11Connection.h"

#include <QAbstractNativeEventFilter>
#include <QClipboard>
#include <QMimeData>
#include <QPointer>

#include <optional>

namespace korvane {

/// Writes through the toolkit's clipboard, on the X11 platform. It never reads through it: the
/// toolkit waits for the owner, and an owner may hang.
class QtClipboardWriter : public ClipboardWriter, private QAbstractNativeEventFilter {
public:
    /// The application object must exist.
    explicit QtClipboardWriter(X11Connection& connection);

    void writeClipboard(std::string_view text) override;
    void copyToPrimary() override;
    bool ownsWindow(std::uint32_t window) const override;

private:
    /// A selection that we write to.
    struct Selection {
        xcb_atom_t atom;
        QClipboard::Mode mode;
        /// The number, on the toolkit's connection, of the request that took it last.
        std::optional<std::uint32_t> claim;
    };

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    bool isOutdated(const xcb_generic_event_t& event) const;
    QMimeData* put(Selection& selection, const QByteArray& utf8);
    void claim(Selection& selection);
    xcb_window_t findOwnerWindow();

    X11Connection& m_connection;
    /// The toolkit's window that owns its selections.
    xcb_window_t m_ownerWindow;
    Selection m_clipboard;
    Selection m_primary { XCB_ATOM_PRIMARY, QClipboard::Selection, {} };
    /// What CLIPBOARD holds by us; the toolkit deletes it when the selection is lost or replaced.
    QPointer<QMimeData> m_written;
};

} // namespace korvane
