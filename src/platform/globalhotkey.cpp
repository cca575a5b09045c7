#include "globalhotkey.h"

#include "portalshortcut.h"

#include <QGuiApplication>

#include <X11/Xlib.h>
#include <xcb/xcb.h>
#include <xcb/xcb_keysyms.h>

#include <X11/XF86keysym.h>
#include <X11/keysym.h>

namespace {
xcb_connection_t* connection()
{
    auto* gui = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    auto* x11 = gui ? gui->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 ? x11->connection() : nullptr;
}

xcb_window_t rootWindow(xcb_connection_t* c)
{
    return xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
}

// Where the keyboard keeps the modifiers a hot key can use, and the Num Lock it must ignore:
// Alt is on Mod1, Super on Mod4 and Num Lock on Mod2 in common keymaps, but a keymap may put them
// elsewhere, so they are read from the server's modifier mapping (common places as fallback).
struct ModifierBits
{
    quint16 alt = XCB_MOD_MASK_1;
    quint16 super = XCB_MOD_MASK_4;
    quint16 numLock = XCB_MOD_MASK_2;

    ModifierBits(xcb_connection_t* c, xcb_key_symbols_t* symbols)
    {
        xcb_get_modifier_mapping_reply_t* mapping =
            xcb_get_modifier_mapping_reply(c, xcb_get_modifier_mapping(c), nullptr);
        if (!mapping)
            return;
        alt = bitOf(mapping, symbols, {XK_Alt_L, XK_Alt_R, XK_Meta_L}, alt);
        super = bitOf(mapping, symbols, {XK_Super_L, XK_Super_R}, super);
        numLock = bitOf(mapping, symbols, {XK_Num_Lock}, numLock);
        free(mapping);
    }

    // The one of Mod1 to Mod5 holding a key of the first keysym that is mapped at all.
    static quint16 bitOf(xcb_get_modifier_mapping_reply_t* mapping, xcb_key_symbols_t* symbols,
                         std::initializer_list<xcb_keysym_t> keysyms, quint16 fallback)
    {
        const xcb_keycode_t* map = xcb_get_modifier_mapping_keycodes(mapping);
        const int perModifier = mapping->keycodes_per_modifier;
        for (xcb_keysym_t keysym : keysyms) {
            xcb_keycode_t* codes = xcb_key_symbols_get_keycode(symbols, keysym);
            quint16 bit = 0;
            for (xcb_keycode_t* code = codes; code && *code != XCB_NO_SYMBOL && !bit; ++code) {
                for (int modifier = 3; modifier < 8 && !bit; ++modifier) { // Mod1 .. Mod5
                    for (int i = 0; i < perModifier; ++i) {
                        if (map[modifier * perModifier + i] == *code)
                            bit = quint16(1u << modifier);
                    }
                }
            }
            free(codes);
            if (bit)
                return bit;
        }
        return fallback;
    }

    quint16 forMask(int mask) const
    {
        quint16 modifiers = 0;
        if (mask & GlobalHotKey::Control)
            modifiers |= XCB_MOD_MASK_CONTROL;
        if (mask & GlobalHotKey::Option)
            modifiers |= alt;
        if (mask & GlobalHotKey::Command)
            modifiers |= super;
        if (mask & GlobalHotKey::Shift)
            modifiers |= XCB_MOD_MASK_SHIFT;
        return modifiers;
    }
};

// Whether the keymap gives the key a console switch or the server's end (Ctrl + Alt + F1 to F12,
// Ctrl + Alt + Backspace): the server acts on those itself and never reports the key, so a grab
// of them is accepted but never fires.
bool isKeptByServer(xcb_key_symbols_t* symbols, xcb_keycode_t code)
{
    for (int column = 0; column < 16; ++column) {
        const xcb_keysym_t keysym = xcb_key_symbols_get_keysym(symbols, code, column);
        if ((keysym >= XF86XK_Switch_VT_1 && keysym <= XF86XK_Switch_VT_12) || keysym == XK_Terminate_Server)
            return true;
    }
    return false;
}

// The same key with Num Lock and Caps Lock on or off, each grabbed so that neither stops it.
QList<quint16> lockVariants(quint16 numLock)
{
    return {0, numLock, XCB_MOD_MASK_LOCK, quint16(numLock | XCB_MOD_MASK_LOCK)};
}
} // namespace

GlobalHotKey::GlobalHotKey(QObject* parent) : QObject(parent)
{
    if (QCoreApplication::instance())
        QCoreApplication::instance()->installNativeEventFilter(this);
}

GlobalHotKey::~GlobalHotKey()
{
    unregisterHotKey();
    if (QCoreApplication::instance())
        QCoreApplication::instance()->removeNativeEventFilter(this);
}

bool GlobalHotKey::registerHotKey(const QString& keysym, int modifierMask)
{
    unregisterHotKey();
    m_keptBySystem = false;
    xcb_connection_t* c = connection();
    if (!c && QGuiApplication::platformName() == QLatin1String("wayland")) {
        // No client grabs keys on Wayland: the desktop portal binds the shortcut instead.
        if (!m_portal) {
            m_portal = new PortalShortcut(this);
            connect(m_portal, &PortalShortcut::activated, this, &GlobalHotKey::pressed);
            connect(m_portal, &PortalShortcut::bound, this, [this] { m_needsDesktopShortcut = false; });
            connect(m_portal, &PortalShortcut::unavailable, this, [this] {
                m_needsDesktopShortcut = true;
                emit desktopShortcutNeeded();
            });
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
    if (sym == NoSymbol || code == 0) {
        xcb_key_symbols_free(symbols);
        qWarning("Hot key \"%s\" has no key on this keyboard", qPrintable(keysym));
        return false;
    }
    const ModifierBits bits(c, symbols);
    const bool keptByServer = isKeptByServer(symbols, code);
    xcb_key_symbols_free(symbols);
    const quint16 controlAlt = XCB_MOD_MASK_CONTROL | bits.alt;
    const quint16 modifiers = bits.forMask(modifierMask);
    if (keptByServer && (modifiers & controlAlt) == controlAlt && !(modifiers & XCB_MOD_MASK_SHIFT)) {
        qWarning("Hot key \"%s\" with Ctrl and Alt is kept by the X server (it switches the console)",
                 qPrintable(keysym));
        m_keptBySystem = true;
        return false;
    }
    m_keycode = code;
    m_modifiers = modifiers;
    m_numLock = bits.numLock;
    bool refused = false;
    for (quint16 lock : lockVariants(m_numLock)) {
        xcb_void_cookie_t cookie = xcb_grab_key_checked(c, 1, rootWindow(c), m_modifiers | lock, code,
                                                        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        if (xcb_generic_error_t* error = xcb_request_check(c, cookie)) {
            refused = true;
            free(error);
        }
    }
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
        for (quint16 lock : lockVariants(m_numLock))
            xcb_ungrab_key(c, m_keycode, rootWindow(c), m_modifiers | lock);
        xcb_flush(c);
    }
    m_keycode = 0;
    m_modifiers = 0;
    m_numLock = 0;
}

bool GlobalHotKey::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (!m_keycode || eventType != "xcb_generic_event_t")
        return false;
    auto* event = static_cast<xcb_generic_event_t*>(message);
    if ((event->response_type & ~0x80) != XCB_KEY_PRESS)
        return false;
    auto* key = reinterpret_cast<xcb_key_press_event_t*>(event);
    // Only the eight modifier bits count: pointer buttons held and the keyboard group (a second
    // layout chosen) are in the state too, and the locks do not matter.
    const quint16 relevant = key->state & 0xff & ~(m_numLock | XCB_MOD_MASK_LOCK);
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
