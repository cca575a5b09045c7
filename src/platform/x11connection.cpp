#include "x11connection.h"

#include <QGuiApplication>
#include <QSocketNotifier>

#include <cstdlib>
#include <cstring>

namespace {
xcb_connection_t* qtConnection(int* screen)
{
    auto* gui = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    auto* x11 = gui ? gui->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    *screen = 0;
    return x11 ? x11->connection() : nullptr;
}
} // namespace

std::unique_ptr<X11Connection> X11Connection::open()
{
    int screen = 0;
    if (xcb_connection_t* shared = qtConnection(&screen)) {
        std::unique_ptr<X11Connection> connection(new X11Connection(shared, screen, false));
        return connection->initialise() ? std::move(connection) : nullptr;
    }
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) &&
        QGuiApplication::platformName() == QLatin1String("wayland")) {
        qInfo("Wayland session: other applications' windows can be neither tracked nor shown, hidden or "
              "closed");
        return nullptr;
    }
    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        qInfo("No X display: running applications are not tracked");
        return nullptr;
    }
    xcb_connection_t* own = xcb_connect(nullptr, &screen);
    if (xcb_connection_has_error(own)) {
        qWarning("Cannot connect to the X display \"%s\"", qgetenv("DISPLAY").constData());
        xcb_disconnect(own);
        return nullptr;
    }
    std::unique_ptr<X11Connection> connection(new X11Connection(own, screen, true));
    return connection->initialise() ? std::move(connection) : nullptr;
}

X11Connection::X11Connection(xcb_connection_t* connection, int screen, bool own)
    : m_connection(connection), m_screen(screen), m_own(own)
{}

X11Connection::~X11Connection()
{
    if (!m_own && QCoreApplication::instance())
        QCoreApplication::instance()->removeNativeEventFilter(this);
    if (m_ewmhReady)
        xcb_ewmh_connection_wipe(&m_ewmh);
    if (m_own)
        xcb_disconnect(m_connection);
}

bool X11Connection::initialise()
{
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (int i = 0; i < m_screen && screens.rem > 1; ++i)
        xcb_screen_next(&screens);
    if (!screens.data)
        return false;
    m_root = screens.data->root;
    xcb_intern_atom_cookie_t* cookies = xcb_ewmh_init_atoms(m_connection, &m_ewmh);
    if (!cookies || !xcb_ewmh_init_atoms_replies(&m_ewmh, cookies, nullptr)) {
        qWarning("Cannot read the X display's window manager atoms");
        return false;
    }
    m_ewmhReady = true;
    m_gtkApplicationId = intern(m_connection, "_GTK_APPLICATION_ID");
    m_kdeDesktopFile = intern(m_connection, "_KDE_NET_WM_DESKTOP_FILE");
    m_wmChangeState = intern(m_connection, "WM_CHANGE_STATE");
    if (m_own) {
        m_notifier = new QSocketNotifier(xcb_get_file_descriptor(m_connection), QSocketNotifier::Read, this);
        connect(m_notifier, &QSocketNotifier::activated, this, &X11Connection::readEvents);
    } else {
        QCoreApplication::instance()->installNativeEventFilter(this);
    }
    return true;
}

xcb_atom_t X11Connection::intern(xcb_connection_t* connection, const char* name)
{
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, uint16_t(strlen(name)), name), nullptr);
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    free(reply);
    return atom;
}

void X11Connection::watchRootProperties()
{
    xcb_get_window_attributes_reply_t* attributes = xcb_get_window_attributes_reply(
        m_connection, xcb_get_window_attributes(m_connection, m_root), nullptr);
    const uint32_t mask = (attributes ? attributes->your_event_mask : 0) | XCB_EVENT_MASK_PROPERTY_CHANGE;
    free(attributes);
    xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(m_connection);
    drainSoon();
}

void X11Connection::setEventHandler(std::function<void(const xcb_generic_event_t*)> handler)
{
    m_handler = std::move(handler);
}

void X11Connection::drainSoon()
{
    if (m_own)
        QMetaObject::invokeMethod(this, &X11Connection::readEvents, Qt::QueuedConnection);
}

void X11Connection::readEvents()
{
    // Handling an event may wait for replies, which queues further events inside xcb: the
    // loop takes those too before returning to the socket.
    while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection)) {
        if (m_handler)
            m_handler(event);
        free(event);
    }
    if (xcb_connection_has_error(m_connection) && m_notifier && m_notifier->isEnabled()) {
        qWarning("The connection to the X display was lost: running applications are no longer tracked");
        m_notifier->setEnabled(false);
    }
}

bool X11Connection::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (m_handler && eventType == "xcb_generic_event_t")
        m_handler(static_cast<xcb_generic_event_t*>(message));
    return false;
}
