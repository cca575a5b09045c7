// A connection to the X display for watching and steering other programs' windows: Qt's own
// when the application runs on xcb (its events arrive through Qt's native event filter), else
// one of its own read through a socket notifier. Without an X display there is none.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <xcb/xcb.h>
#include <xcb/xcb_ewmh.h>

#include <functional>
#include <memory>

class QSocketNotifier;

class X11Connection : public QObject, public QAbstractNativeEventFilter
{
    Q_OBJECT
public:
    // Null (and a log line) when there is no X display.
    static std::unique_ptr<X11Connection> open();
    ~X11Connection() override;

    xcb_connection_t* connection() const { return m_connection; }
    xcb_window_t root() const { return m_root; }
    int screen() const { return m_screen; }
    xcb_ewmh_connection_t* ewmh() { return &m_ewmh; }
    bool isOwnConnection() const { return m_own; }

    // Atoms the EWMH helpers do not know.
    xcb_atom_t gtkApplicationId() const { return m_gtkApplicationId; }
    xcb_atom_t kdeDesktopFile() const { return m_kdeDesktopFile; }
    xcb_atom_t wmChangeState() const { return m_wmChangeState; }
    xcb_atom_t wmClientMachine() const { return XCB_ATOM_WM_CLIENT_MACHINE; }

    // The atom of the name on any connection, interned if new; XCB_ATOM_NONE when it fails.
    static xcb_atom_t intern(xcb_connection_t* connection, const char* name);

    // Adds PropertyNotify of the root window to what this client already selects there.
    void watchRootProperties();
    // Every event read from the connection goes here (on the main thread).
    void setEventHandler(std::function<void(const xcb_generic_event_t*)> handler);
    // Reads events that a reply wait queued inside xcb (own connection; safe from any thread).
    void drainSoon();

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    X11Connection(xcb_connection_t* connection, int screen, bool own);
    bool initialise();
    void readEvents();

    xcb_connection_t* m_connection;
    int m_screen;
    bool m_own;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    xcb_ewmh_connection_t m_ewmh{};
    bool m_ewmhReady = false;
    xcb_atom_t m_gtkApplicationId = XCB_ATOM_NONE;
    xcb_atom_t m_kdeDesktopFile = XCB_ATOM_NONE;
    xcb_atom_t m_wmChangeState = XCB_ATOM_NONE;
    QSocketNotifier* m_notifier = nullptr;
    std::function<void(const xcb_generic_event_t*)> m_handler;
};
