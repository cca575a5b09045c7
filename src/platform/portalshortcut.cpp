#include "portalshortcut.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include "globalhotkey.h"

namespace {
const QString Service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString Path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString Interface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const QString RequestInterface = QStringLiteral("org.freedesktop.portal.Request");

struct Shortcut
{
    QString id;
    QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Shortcut& shortcut)
{
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Shortcut& shortcut)
{
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}
} // namespace

Q_DECLARE_METATYPE(Shortcut)

PortalShortcut::PortalShortcut(QObject* parent) : QObject(parent)
{
    qDBusRegisterMetaType<Shortcut>();
    qDBusRegisterMetaType<QList<Shortcut>>();
    QDBusConnection::sessionBus().connect(Service, Path, Interface, QStringLiteral("Activated"), this,
                                          SLOT(onActivated(QDBusMessage)));
}

PortalShortcut::~PortalShortcut()
{
    close();
}

QString PortalShortcut::triggerFor(const QString& keysym, int modifierMask)
{
    QStringList parts;
    if (modifierMask & GlobalHotKey::Control)
        parts << QStringLiteral("CTRL");
    if (modifierMask & GlobalHotKey::Option)
        parts << QStringLiteral("ALT");
    if (modifierMask & GlobalHotKey::Shift)
        parts << QStringLiteral("SHIFT");
    if (modifierMask & GlobalHotKey::Command)
        parts << QStringLiteral("LOGO");
    parts << keysym;
    return parts.join(QLatin1Char('+'));
}

QString PortalShortcut::requestPath(const QString& token) const
{
    // The portal answers on a path made of the caller's bus name and the token: listening there
    // before calling leaves no moment in which the answer could be missed.
    QString sender = QDBusConnection::sessionBus().baseService().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
}

void PortalShortcut::callPortal(const QString& method, const QList<QVariant>& arguments, const QString& token,
                                const char* responseSlot)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect(Service, requestPath(token), RequestInterface, QStringLiteral("Response"), this,
                responseSlot);
    QDBusMessage call = QDBusMessage::createMethodCall(Service, Path, Interface, method);
    call.setArguments(arguments);
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* w) {
        w->deleteLater();
        if (w->isError())
            callFailed(w->reply());
    });
}

void PortalShortcut::bind(const QString& trigger)
{
    close();
    m_trigger = trigger;
    const QString token = QStringLiteral("nimbo%1").arg(++m_tokens);
    const QVariantMap options{{QStringLiteral("handle_token"), token},
                              {QStringLiteral("session_handle_token"), token}};
    callPortal(QStringLiteral("CreateSession"), {options}, token, SLOT(sessionCreated(uint, QVariantMap)));
}

void PortalShortcut::callFailed(const QDBusMessage& error)
{
    const QString name = error.errorName();
    if (name == QLatin1String("org.freedesktop.DBus.Error.ServiceUnknown") ||
        name == QLatin1String("org.freedesktop.DBus.Error.UnknownMethod") ||
        name == QLatin1String("org.freedesktop.DBus.Error.UnknownInterface") ||
        name == QLatin1String("org.freedesktop.DBus.Error.UnknownObject"))
        qInfo("No desktop portal offers global shortcuts: bind \"nimboctl toggle\" to a key in the desktop's "
              "keyboard settings");
    else
        qWarning("The desktop portal refused the global shortcut (%s: %s); bind \"nimboctl toggle\" in the "
                 "desktop's keyboard settings instead",
                 qPrintable(name), qPrintable(error.errorMessage()));
    emit unavailable();
}

void PortalShortcut::sessionCreated(uint response, const QVariantMap& results)
{
    m_session = results.value(QStringLiteral("session_handle")).toString();
    if (response != 0 || m_session.isEmpty()) {
        qWarning(
            "The desktop portal opened no shortcut session (response %u); bind \"nimboctl toggle\" in the "
            "desktop's keyboard settings instead",
            response);
        m_session.clear();
        emit unavailable();
        return;
    }
    const QString token = QStringLiteral("nimbo%1").arg(++m_tokens);
    const Shortcut shortcut{QString::fromLatin1(ShortcutId),
                            {{QStringLiteral("description"), tr("Show or hide Nimbo")},
                             {QStringLiteral("preferred_trigger"), m_trigger}}};
    const QVariantMap options{{QStringLiteral("handle_token"), token}};
    callPortal(QStringLiteral("BindShortcuts"),
               {QVariant::fromValue(QDBusObjectPath(m_session)),
                QVariant::fromValue(QList<Shortcut>{shortcut}), QString(), options},
               token, SLOT(shortcutsBound(uint, QVariantMap)));
}

void PortalShortcut::shortcutsBound(uint response, const QVariantMap& results)
{
    QList<Shortcut> shortcuts;
    const QVariant list = results.value(QStringLiteral("shortcuts"));
    if (list.canConvert<QDBusArgument>())
        list.value<QDBusArgument>() >> shortcuts;
    QString trigger;
    bool ours = false;
    for (const Shortcut& shortcut : std::as_const(shortcuts)) {
        if (shortcut.id == QLatin1String(ShortcutId)) {
            ours = true;
            trigger = shortcut.properties.value(QStringLiteral("trigger_description")).toString();
        }
    }
    if (response != 0 || !ours) {
        qWarning("The desktop did not bind Nimbo's shortcut (response %u); bind \"nimboctl toggle\" in the "
                 "desktop's keyboard settings instead",
                 response);
        emit unavailable();
        return;
    }
    m_bound = true;
    qInfo("Nimbo's shortcut is bound through the desktop portal (%s)",
          qPrintable(trigger.isEmpty() ? m_trigger : trigger));
    emit bound(trigger);
}

void PortalShortcut::onActivated(const QDBusMessage& signal)
{
    // (session handle, shortcut id, timestamp, options)
    const QList<QVariant> arguments = signal.arguments();
    if (arguments.size() < 2)
        return;
    const QString session = qvariant_cast<QDBusObjectPath>(arguments.at(0)).path();
    if (session == m_session && arguments.at(1).toString() == QLatin1String(ShortcutId))
        emit activated();
}

void PortalShortcut::close()
{
    if (m_session.isEmpty())
        return;
    QDBusConnection::sessionBus().asyncCall(QDBusMessage::createMethodCall(
        Service, m_session, QStringLiteral("org.freedesktop.portal.Session"), QStringLiteral("Close")));
    m_session.clear();
    m_bound = false;
}
