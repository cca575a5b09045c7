#include "nimbobus.h"

#include "catalogue/hvlisteditor.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QJsonDocument>

namespace NimboBus {

bool isRunning()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.isConnected() && bus.interface()->isServiceRegistered(ServiceName);
}

std::optional<QVariant> call(const QString& method, const QVariantList& arguments, QString* error)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        *error = QStringLiteral("no D-Bus session bus");
        return std::nullopt;
    }
    if (!bus.interface()->isServiceRegistered(ServiceName)) {
        *error = QStringLiteral("Nimbo is not running");
        return std::nullopt;
    }
    QDBusMessage message = QDBusMessage::createMethodCall(ServiceName, ObjectPath, InterfaceName, method);
    message.setArguments(arguments);
    const QDBusMessage reply = bus.call(message, QDBus::Block, 5000);
    if (reply.type() == QDBusMessage::ErrorMessage) {
        *error = reply.errorMessage();
        return std::nullopt;
    }
    return reply.arguments().value(0);
}

bool call(const QString& method, QString* error)
{
    return call(method, {}, error).has_value();
}

} // namespace NimboBus

NimboBusService::NimboBusService(QObject* parent) : QObject(parent) {}

bool NimboBusService::registerService()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    if (!bus.registerService(NimboBus::ServiceName))
        return false;
    return bus.registerObject(NimboBus::ObjectPath, NimboBus::InterfaceName, this,
                              QDBusConnection::ExportScriptableSlots);
}

namespace {
const QString NotReady = QStringLiteral("Nimbo has not read its lists yet");
} // namespace

QString NimboBusService::Favourites()
{
    return m_editor ? QString::fromUtf8(QJsonDocument(m_editor->favourites()).toJson(QJsonDocument::Compact))
                    : QString();
}

QString NimboBusService::AddFavourite(const QString& path, qlonglong bunch, qlonglong index, bool newBunch)
{
    return m_editor ? m_editor->addFavourite(path, bunch, index, newBunch) : NotReady;
}

QString NimboBusService::RemoveFavourite(const QString& path)
{
    return m_editor ? m_editor->removeFavourite(path) : NotReady;
}

QString NimboBusService::Exclude(const QStringList& paths)
{
    return m_editor ? m_editor->exclude(paths) : NotReady;
}

QString NimboBusService::Include(const QStringList& paths)
{
    return m_editor ? m_editor->include(paths) : NotReady;
}
