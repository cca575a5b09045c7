#include "panelwindowhints.h"

#include <QGuiApplication>
#include <QWidget>

#include <xcb/xcb.h>
#include <xcb/xcb_ewmh.h>

namespace {
// The window manager's atoms, interned once per window that asks (interning them is a round trip
// to the X server, too slow to repeat on every showing of the panel) and freed with the window.
class Ewmh : public QObject
{
public:
    xcb_ewmh_connection_t connection{};
    bool ok = false;

    static Ewmh& of(QWidget* window)
    {
        auto* atoms = window->findChild<QObject*>(Name, Qt::FindDirectChildrenOnly);
        return atoms ? *static_cast<Ewmh*>(atoms) : *new Ewmh(window);
    }
    ~Ewmh() override
    {
        if (ok)
            xcb_ewmh_connection_wipe(&connection);
    }

private:
    static constexpr QLatin1StringView Name{"ewmhAtoms"};

    explicit Ewmh(QWidget* window) : QObject(window)
    {
        setObjectName(Name);
        auto* gui = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
        auto* x11 = gui ? gui->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
        if (!x11 || !x11->connection())
            return;
        xcb_intern_atom_cookie_t* cookies = xcb_ewmh_init_atoms(x11->connection(), &connection);
        ok = xcb_ewmh_init_atoms_replies(&connection, cookies, nullptr);
    }
};

void changeState(QWidget* window, xcb_atom_t (*atom)(const xcb_ewmh_connection_t&), bool on)
{
    Ewmh& ewmh = Ewmh::of(window);
    if (!ewmh.ok || !window->windowHandle())
        return;
    xcb_ewmh_request_change_wm_state(&ewmh.connection, 0, xcb_window_t(window->winId()),
                                     on ? XCB_EWMH_WM_STATE_ADD : XCB_EWMH_WM_STATE_REMOVE,
                                     atom(ewmh.connection), 0, XCB_EWMH_CLIENT_SOURCE_TYPE_NORMAL);
    xcb_flush(ewmh.connection.connection);
}
} // namespace

namespace PanelWindowHints {

void setOnAllWorkspaces(QWidget* window)
{
    Ewmh& ewmh = Ewmh::of(window);
    if (!ewmh.ok || !window->windowHandle())
        return;
    const xcb_window_t id = xcb_window_t(window->winId());
    // Both the property (before mapping) and the request (once mapped) mean "every desktop".
    xcb_ewmh_set_wm_desktop(&ewmh.connection, id, 0xFFFFFFFF);
    xcb_ewmh_request_change_wm_desktop(&ewmh.connection, 0, id, 0xFFFFFFFF,
                                       XCB_EWMH_CLIENT_SOURCE_TYPE_NORMAL);
    xcb_flush(ewmh.connection.connection);
}

void setSkipTaskbar(QWidget* window, bool skip)
{
    changeState(
        window, [](const xcb_ewmh_connection_t& c) { return c._NET_WM_STATE_SKIP_TASKBAR; }, skip);
    changeState(
        window, [](const xcb_ewmh_connection_t& c) { return c._NET_WM_STATE_SKIP_PAGER; }, skip);
}

void requestActivation(QWidget* window)
{
    Ewmh& ewmh = Ewmh::of(window);
    if (!ewmh.ok || !window->windowHandle())
        return;
    xcb_ewmh_request_change_active_window(&ewmh.connection, 0, xcb_window_t(window->winId()),
                                          XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER, XCB_CURRENT_TIME,
                                          XCB_WINDOW_NONE);
    xcb_flush(ewmh.connection.connection);
}

} // namespace PanelWindowHints
