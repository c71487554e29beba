#include "platform/qt/QtClipboardWriter.h"

#include <QByteArray>
#include <QGuiApplication>

#include <memory>
#include <span>

namespace korvane {

namespace {

    // How the toolkit names the window that owns its selections; the application's name follows.
    constexpr std::string_view ownerWindowName = "Qt Selection Owner";
    constexpr std::uint32_t maxNameUnits = 64;

    xcb_connection_t* toolkitConnection()
    {
        const auto* native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
        return native == nullptr ? nullptr : native->connection();
    }

} // namespace

QtClipboardWriter::QtClipboardWriter(X11Connection& connection)
    : m_connection(connection)
    , m_ownerWindow(findOwnerWindow())
    , m_clipboard { connection.atom("CLIPBOARD"), QClipboard::Clipboard, {} }
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

// The toolkit takes a selection with the time of the last event that it has seen, and the server
// ignores that where another program has copied since: every write that no key or click in our own
// windows has led to would be lost. So the selection is taken for the toolkit, as of now, before the
// toolkit is given the text and takes it again to no effect.
void QtClipboardWriter::claim(Selection& selection)
{
    auto* const connection = toolkitConnection();
    if (connection == nullptr || m_ownerWindow == XCB_NONE)
        return;
    // On the toolkit's connection: it is where the server will send what others ask of the owner.
    selection.claim
        = xcb_set_selection_owner(connection, m_ownerWindow, selection.atom, XCB_CURRENT_TIME)
              .sequence;
    xcb_flush(connection);
}

xcb_window_t QtClipboardWriter::findOwnerWindow()
{
    const auto tree = m_connection.reply(
        xcb_query_tree_reply, xcb_query_tree(m_connection.get(), m_connection.root()));
    if (!tree)
        return XCB_NONE;
    const std::span windows(xcb_query_tree_children(tree.get()),
        static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
    for (const auto window : windows) {
        if (!ownsWindow(window))
            continue;
        const auto name = m_connection.reply(xcb_get_property_reply,
            xcb_get_property(m_connection.get(), 0, window, m_connection.atom("_NET_WM_NAME"),
                XCB_GET_PROPERTY_TYPE_ANY, 0, maxNameUnits));
        if (!name)
            continue;
        const std::string_view text(static_cast<const char*>(xcb_get_property_value(name.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(name.get())));
        if (text.starts_with(ownerWindowName))
            return window;
    }
    return XCB_NONE;
}

// As bytes, not as the toolkit's string: that would keep every text twice over, and take 4 ms a
// megabyte to turn it into bytes again each time that a program asks.
QMimeData* QtClipboardWriter::put(Selection& selection, const QByteArray& utf8)
{
    claim(selection);
    auto data = std::make_unique<QMimeData>();
    data->setData(QStringLiteral("text/plain"), utf8);
    data->setData(QStringLiteral("text/plain;charset=utf-8"), utf8);
    auto* const kept = data.get();
    QGuiApplication::clipboard()->setMimeData(data.release(), selection.mode);
    return kept;
}

void QtClipboardWriter::writeClipboard(std::string_view text)
{
    m_written = put(m_clipboard, QByteArray(text.data(), static_cast<qsizetype>(text.size())));
}

void QtClipboardWriter::copyToPrimary()
{
    if (m_written)
        put(m_primary, m_written->data(QStringLiteral("text/plain")));
}

// The toolkit drops the text when it is told that it has lost the selection, and does not ask who
// has it now: what it is told of a loss before our last claim must not reach it.
bool QtClipboardWriter::nativeEventFilter(const QByteArray& type, void* message, qintptr*)
{
    return type == "xcb_generic_event_t"
        && isOutdated(*static_cast<const xcb_generic_event_t*>(message));
}

bool QtClipboardWriter::isOutdated(const xcb_generic_event_t& event) const
{
    constexpr std::uint8_t withoutSentBit = 0x7F;
    if ((event.response_type & withoutSentBit) != XCB_SELECTION_CLEAR)
        return false;
    const auto lost = reinterpret_cast<const xcb_selection_clear_event_t&>(event).selection;
    const auto& claim = lost == m_clipboard.atom ? m_clipboard.claim
        : lost == m_primary.atom                 ? m_primary.claim
                                                 : std::nullopt;
    // An event bears the number of the last request that the server had served; numbers wrap round.
    return claim && static_cast<std::int32_t>(event.full_sequence - *claim) < 0;
}

// The server gives every client a range of numbers for its windows.
bool QtClipboardWriter::ownsWindow(std::uint32_t window) const
{
    auto* const connection = toolkitConnection();
    if (connection == nullptr || window == XCB_NONE)
        return false;
    const auto* setup = xcb_get_setup(connection);
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

} // namespace korvane
