#include "pointerposition.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include <cstdlib>

PointerPosition::PointerPosition()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        return;
    m_connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(m_connection)) {
        xcb_disconnect(m_connection);
        m_connection = nullptr;
        return;
    }
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
}

PointerPosition::~PointerPosition()
{
    if (m_connection)
        xcb_disconnect(m_connection);
}

QPoint PointerPosition::position() const
{
    if (!m_connection)
        return QCursor::pos();
    xcb_query_pointer_reply_t* reply =
        xcb_query_pointer_reply(m_connection, xcb_query_pointer(m_connection, m_root), nullptr);
    if (!reply)
        return QCursor::pos(); // the connection broke: the toolkit's still works, or fails alike
    const QPoint native(reply->root_x, reply->root_y);
    free(reply);
    // Scaled screens keep their top left corner where it is natively and scale from there.
    const auto screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        const QRect logical = screen->geometry();
        const qreal ratio = screen->devicePixelRatio();
        const QRect nativeRect(logical.topLeft(), (QSizeF(logical.size()) * ratio).toSize());
        if (nativeRect.contains(native))
            return logical.topLeft() + ((native - logical.topLeft()) / ratio);
    }
    return native;
}
