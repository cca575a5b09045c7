#include "nimbobus.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace NimboBus {

bool call(const QString& method, QString* error)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        *error = QStringLiteral("no D-Bus session bus");
        return false;
    }
    if (!bus.interface()->isServiceRegistered(ServiceName)) {
        *error = QStringLiteral("Nimbo is not running");
        return false;
    }
    const QDBusMessage reply = bus.call(
        QDBusMessage::createMethodCall(ServiceName, ObjectPath, InterfaceName, method), QDBus::Block, 5000);
    if (reply.type() == QDBusMessage::ErrorMessage) {
        *error = reply.errorMessage();
        return false;
    }
    return true;
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
