#include "x11windowcontrol.h"

namespace {
// The request comes from a pager or taskbar, which window managers obey without the
// focus-stealing checks they apply to applications.
constexpr xcb_ewmh_client_source_type_t FromPager = XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER;
constexpr uint32_t IconicState = 3;
} // namespace

namespace X11WindowControl {
void activate(X11Connection& x11, xcb_window_t window)
{
    xcb_ewmh_request_change_active_window(x11.ewmh(), x11.screen(), window, FromPager, XCB_CURRENT_TIME,
                                          XCB_WINDOW_NONE);
    xcb_flush(x11.connection());
}

void iconify(X11Connection& x11, xcb_window_t window)
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = x11.wmChangeState();
    message.data.data32[0] = IconicState;
    xcb_send_event(x11.connection(), 0, x11.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(x11.connection());
}

void close(X11Connection& x11, xcb_window_t window)
{
    xcb_ewmh_request_close_window(x11.ewmh(), x11.screen(), window, XCB_CURRENT_TIME, FromPager);
    xcb_flush(x11.connection());
}
} // namespace X11WindowControl
