#include "globalhotkey.h"

#include "portalshortcut.h"

#include <QGuiApplication>

#include <X11/Xlib.h>
#include <xcb/xcb.h>
#include <xcb/xcb_keysyms.h>

namespace {
xcb_connection_t* connection()
{
    auto* x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 ? x11->connection() : nullptr;
}

xcb_window_t rootWindow(xcb_connection_t* c)
{
    return xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
}

quint16 x11Modifiers(int mask)
{
    quint16 modifiers = 0;
    if (mask & GlobalHotKey::Control)
        modifiers |= XCB_MOD_MASK_CONTROL;
    if (mask & GlobalHotKey::Option)
        modifiers |= XCB_MOD_MASK_1;
    if (mask & GlobalHotKey::Command)
        modifiers |= XCB_MOD_MASK_4;
    if (mask & GlobalHotKey::Shift)
        modifiers |= XCB_MOD_MASK_SHIFT;
    return modifiers;
}

// Num Lock and Caps Lock must not stop the hot key, so each is grabbed with and without them.
const quint16 lockVariants[] = {0, XCB_MOD_MASK_2, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2 | XCB_MOD_MASK_LOCK};
} // namespace

GlobalHotKey::GlobalHotKey(QObject* parent) : QObject(parent)
{
    if (qGuiApp)
        qGuiApp->installNativeEventFilter(this);
}

GlobalHotKey::~GlobalHotKey()
{
    unregisterHotKey();
    if (qGuiApp)
        qGuiApp->removeNativeEventFilter(this);
}

bool GlobalHotKey::registerHotKey(const QString& keysym, int modifierMask)
{
    unregisterHotKey();
    xcb_connection_t* c = connection();
    if (!c && QGuiApplication::platformName() == QLatin1String("wayland")) {
        // No client grabs keys on Wayland: the desktop portal binds the shortcut instead.
        if (!m_portal) {
            m_portal = new PortalShortcut(this);
            connect(m_portal, &PortalShortcut::activated, this, &GlobalHotKey::pressed);
        }
        m_portal->bind(PortalShortcut::triggerFor(keysym, modifierMask));
        return true;
    }
    if (!c) {
        qWarning("No X display: the hot key is not available (bind \"nimboctl toggle\" in the desktop's "
                 "settings)");
        return false;
    }
    const xcb_keysym_t sym = xcb_keysym_t(XStringToKeysym(keysym.toLatin1().constData()));
    xcb_key_symbols_t* symbols = xcb_key_symbols_alloc(c);
    xcb_keycode_t* codes = symbols ? xcb_key_symbols_get_keycode(symbols, sym) : nullptr;
    const xcb_keycode_t code = codes ? codes[0] : 0;
    free(codes);
    xcb_key_symbols_free(symbols);
    if (sym == NoSymbol || code == 0) {
        qWarning("Hot key \"%s\" has no key on this keyboard", qPrintable(keysym));
        return false;
    }
    const quint16 modifiers = x11Modifiers(modifierMask);
    bool refused = false;
    for (quint16 lock : lockVariants) {
        xcb_void_cookie_t cookie = xcb_grab_key_checked(c, 1, rootWindow(c), modifiers | lock, code,
                                                        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        if (xcb_generic_error_t* error = xcb_request_check(c, cookie)) {
            refused = true;
            free(error);
        }
    }
    m_keycode = code;
    m_modifiers = modifiers;
    if (refused) {
        qWarning("Hot key \"%s\" is taken by another program", qPrintable(keysym));
        unregisterHotKey();
        return false;
    }
    return true;
}

void GlobalHotKey::unregisterHotKey()
{
    if (m_portal)
        m_portal->close();
    xcb_connection_t* c = connection();
    if (c && m_keycode) {
        for (quint16 lock : lockVariants)
            xcb_ungrab_key(c, m_keycode, rootWindow(c), m_modifiers | lock);
        xcb_flush(c);
    }
    m_keycode = 0;
    m_modifiers = 0;
}

bool GlobalHotKey::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (!m_keycode || eventType != "xcb_generic_event_t")
        return false;
    auto* event = static_cast<xcb_generic_event_t*>(message);
    if ((event->response_type & ~0x80) != XCB_KEY_PRESS)
        return false;
    auto* key = reinterpret_cast<xcb_key_press_event_t*>(event);
    const quint16 relevant = key->state & ~(XCB_MOD_MASK_2 | XCB_MOD_MASK_LOCK);
    if (key->detail != m_keycode || relevant != m_modifiers)
        return false;
    // The press started a keyboard grab that would last until the keys come up; ending it now
    // lets the window manager's focus changes reach the panel as ordinary ones.
    if (xcb_connection_t* c = connection()) {
        xcb_ungrab_keyboard(c, key->time);
        xcb_flush(c);
    }
    emit pressed();
    return true;
}
