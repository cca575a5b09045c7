// Reading other programs' top-level windows: the window manager's client list and active
// window, each window's names, process, type and state, and its own icon. A window that has
// vanished by the time it is asked about reads as not existing.
#pragma once

#include "windowmatcher.h"
#include "x11connection.h"

#include <QImage>
#include <QList>

#include <optional>

struct X11WindowFacts
{
    WindowFacts names;
    bool exists = false;
    // A normal window or a dialog that is not kept off the taskbar.
    bool counts = false;
    xcb_window_t transientFor = XCB_WINDOW_NONE;
};

namespace X11Windows {
// The managed windows in the order they were first mapped; nullopt when the window manager does
// not keep the list (it does not speak EWMH).
std::optional<QList<xcb_window_t>> clientList(X11Connection& x11);
xcb_window_t activeWindow(X11Connection& x11);
// The facts of many windows, asked for in one pipelined round.
QList<X11WindowFacts> readFacts(X11Connection& x11, const QList<xcb_window_t>& windows);
// The window's _NET_WM_ICON image nearest to `preferredSize` from above (else the largest).
QImage icon(X11Connection& x11, xcb_window_t window, int preferredSize = 128);
// Picks and converts one image from _NET_WM_ICON data (width, height, ARGB pixels, repeated).
QImage iconFromCardinals(const quint32* data, size_t count, int preferredSize);
// Whether the window manager keeps the window hidden (iconified).
bool isHidden(X11Connection& x11, xcb_window_t window);
} // namespace X11Windows
