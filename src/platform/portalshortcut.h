// The hot key on a Wayland desktop: one shortcut bound through the desktop portal's
// GlobalShortcuts interface. Nimbo proposes its stored hot key as the preferred trigger; the
// desktop may ask the user, who can bind it to anything else (the desktop's settings keep that
// choice). Every call is asynchronous, so a slow or absent portal never holds up the panel.
#pragma once

#include <QDBusObjectPath>
#include <QObject>
#include <QString>
#include <QVariantMap>

class QDBusMessage;

class PortalShortcut : public QObject
{
    Q_OBJECT
public:
    static constexpr const char* ShortcutId = "toggle";

    explicit PortalShortcut(QObject* parent = nullptr);
    ~PortalShortcut() override;

    // The trigger in the shortcut format the portal takes ("CTRL+Tab", "LOGO+SHIFT+space") for
    // a key named by its X keysym and the stored modifier mask.
    static QString triggerFor(const QString& keysym, int modifierMask);

    // Opens a session and binds the shortcut; a session already open is closed first.
    void bind(const QString& trigger);
    void close();
    bool isBound() const { return m_bound; }

signals:
    void activated();
    // The shortcut is bound; `trigger` is what the desktop says triggers it (may be empty).
    void bound(const QString& trigger);
    // No portal offers shortcuts, or the desktop refused this one: the user has to bind a key.
    void unavailable();

private slots:
    void sessionCreated(uint response, const QVariantMap& results);
    void shortcutsBound(uint response, const QVariantMap& results);
    void onActivated(const QDBusMessage& signal);

private:
    QString requestPath(const QString& token) const;
    void callPortal(const QString& method, const QList<QVariant>& arguments, const QString& token,
                    const char* responseSlot);
    void callFailed(const QDBusMessage& error);

    QString m_trigger;
    QString m_session;
    bool m_bound = false;
    int m_tokens = 0;
};
