// Where the pointer is, in the toolkit's (device-independent) screen coordinates. On X11 it is
// asked on a connection of its own: the answer on the toolkit's connection would also wake the
// toolkit's event thread, a cost that counts for a question asked several times a second.
// Elsewhere the toolkit answers.
#pragma once

#include <QPoint>

#include <xcb/xcb.h>

class PointerPosition
{
public:
    PointerPosition();
    ~PointerPosition();
    PointerPosition(const PointerPosition&) = delete;
    PointerPosition& operator=(const PointerPosition&) = delete;

    QPoint position() const;

private:
    xcb_connection_t* m_connection = nullptr;
    xcb_window_t m_root = XCB_WINDOW_NONE;
};
