// A system-wide hot key: a key (named by its X keysym) with modifiers, reported wherever the
// focus is. On X11 it is a key grab on the root window; on Wayland a shortcut bound through the
// desktop portal (PortalShortcut); elsewhere it does nothing.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

class PortalShortcut;

class GlobalHotKey : public QObject, public QAbstractNativeEventFilter
{
    Q_OBJECT
public:
    // The stored modifier mask, as the preferences keep it.
    enum Modifier { Command = 256, Shift = 512, Option = 2048, Control = 4096 };

    explicit GlobalHotKey(QObject* parent = nullptr);
    ~GlobalHotKey() override;

    // Grabs the key; false (with a log line) when there is no X display or the grab is refused.
    bool registerHotKey(const QString& keysym, int modifierMask);
    void unregisterHotKey();
    bool isRegistered() const { return m_keycode != 0; }
    // Whether the last registration failed because the system itself acts on that combination
    // (Ctrl + Alt + F1 switches the console) rather than another program holding it.
    bool wasKeptBySystem() const { return m_keptBySystem; }
    // Whether the desktop binds no key for Nimbo (a Wayland desktop without a shortcut portal, or
    // one that refused it): the user must bind "nimboctl toggle" in the desktop's settings.
    bool needsDesktopShortcut() const { return m_needsDesktopShortcut; }

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

signals:
    void pressed();
    void desktopShortcutNeeded();

private:
    PortalShortcut* m_portal = nullptr;
    quint8 m_keycode = 0;
    quint16 m_modifiers = 0;
    quint16 m_numLock = 0; // the modifier bit Num Lock sets on this keyboard
    bool m_keptBySystem = false;
    bool m_needsDesktopShortcut = false;
};
