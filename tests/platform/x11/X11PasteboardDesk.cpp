#include "platform/x11/X11PasteboardDesk.h"

#include "support/Program.h"

#include <QClipboard>
#include <QGuiApplication>

namespace korvane::test {

X11RealPasteboard::X11RealPasteboard()
{
    // An owner of an earlier test may have ended a moment ago, without the server knowing yet.
    waitUntil([this] {
        const auto owner = m_connection.reply(xcb_get_selection_owner_reply,
            xcb_get_selection_owner(m_connection.get(), m_connection.atom("CLIPBOARD")));
        return owner && (owner->owner == XCB_NONE || m_writer.ownsWindow(owner->owner));
    });
    m_pasteboard = std::make_unique<X11Pasteboard>(m_connection, m_loop, m_writer);
}

void X11RealPasteboard::hear()
{
    m_connection.reply(xcb_get_input_focus_reply, xcb_get_input_focus(m_connection.get()));
}

void X11RealPasteboard::copyToPrimary(const std::string& text)
{
    QGuiApplication::clipboard()->setText(QString::fromStdString(text), QClipboard::Selection);
}

std::unique_ptr<RealPasteboard> makeRealPasteboard()
{
    return std::make_unique<X11RealPasteboard>();
}

std::string X11RealPasteboard::pasteFromPrimary(const char* type)
{
    Program paste({ "xclip", "-o", "-selection", "primary", "-t", type });
    return paste.succeeds() ? paste.output() : "(refused)";
}

QStringList pasteCommand(const char* type)
{
    return { "xclip", "-o", "-selection", "clipboard", "-t", type };
}

} // namespace korvane::test
