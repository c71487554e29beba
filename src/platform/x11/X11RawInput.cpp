#include "platform/x11/X11RawInput.h"

#include <xcb/xinput.h>

namespace korvane {

namespace {

    // Since 2.1 raw events come also while another client holds a grab; 2.2 is what is asked for,
    // because servers of 2.1 alone are history.
    std::optional<X11Extension> startExtension(X11Connection& connection)
    {
        const auto extension = connection.extension(&xcb_input_id);
        if (!extension)
            return std::nullopt;
        const auto version = connection.reply(
            xcb_input_xi_query_version_reply, xcb_input_xi_query_version(connection.get(), 2, 2));
        const bool isRecent = version
            && (version->major_version > 2
                || (version->major_version == 2 && version->minor_version >= 1));
        return isRecent ? extension : std::nullopt;
    }

} // namespace

X11RawInput::X11RawInput(X11Connection& connection)
    : m_connection(connection)
    , m_extension(startExtension(connection))
{
    if (!m_extension)
        return;
    m_connections = {
        m_connection.onGenericEvent(m_extension->majorOpcode, XCB_INPUT_RAW_KEY_PRESS,
            [this](const xcb_generic_event_t& event) {
                const auto& key = reinterpret_cast<const xcb_input_raw_key_press_event_t&>(event);
                if ((key.flags & XCB_INPUT_KEY_EVENT_FLAGS_KEY_REPEAT) == 0 && key.detail <= 255)
                    keyPressed(static_cast<xcb_keycode_t>(key.detail));
            }),
        m_connection.onGenericEvent(m_extension->majorOpcode, XCB_INPUT_RAW_BUTTON_PRESS,
            [this](const xcb_generic_event_t& event) {
                const auto& press
                    = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
                buttonPressed({ press.detail, press.time });
            }),
    };
}

void X11RawInput::tellKeys(bool wanted)
{
    m_tellsKeys = wanted;
    select();
}

void X11RawInput::tellButtons(bool wanted)
{
    m_tellsButtons = wanted;
    select();
}

void X11RawInput::select()
{
    if (!m_extension)
        return;
    struct Selection {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    };
    std::uint32_t mask = 0;
    if (m_tellsKeys)
        mask |= XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS;
    if (m_tellsButtons)
        mask |= XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS;
    const Selection selection { { XCB_INPUT_DEVICE_ALL_MASTER, 1 }, mask };
    xcb_input_xi_select_events(m_connection.get(), m_connection.root(), 1, &selection.head);
    m_connection.flush();
}

} // namespace korvane
