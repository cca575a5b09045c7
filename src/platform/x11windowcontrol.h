// Requests to the window manager about another program's window: bring it to the front (which
// also restores it when iconified), iconify it, close it. Each is sent as the EWMH / ICCCM
// client message a pager sends; xcb makes them safe from any thread.
#pragma once

#include "x11connection.h"

namespace X11WindowControl {
void activate(X11Connection& x11, xcb_window_t window);
void iconify(X11Connection& x11, xcb_window_t window);
void close(X11Connection& x11, xcb_window_t window);
} // namespace X11WindowControl
