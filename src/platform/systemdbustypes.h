// The structures the systemd manager's D-Bus interface passes: a unit in ListUnits'
// answer, a unit property of StartTransientUnit, and an auxiliary unit with its properties.
#pragma once

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>
#include <QString>

namespace SystemdBus {
inline const QString Service = QStringLiteral("org.freedesktop.systemd1");
inline const QString ManagerPath = QStringLiteral("/org/freedesktop/systemd1");
inline const QString ManagerInterface = QStringLiteral("org.freedesktop.systemd1.Manager");
inline const QString UnitInterface = QStringLiteral("org.freedesktop.systemd1.Unit");

// (ssssssouso)
struct UnitStatus
{
    QString name;
    QString description;
    QString loadState;
    QString activeState;
    QString subState;
    QString following;
    QDBusObjectPath path;
    uint jobId = 0;
    QString jobType;
    QDBusObjectPath jobPath;
};

// (sv)
struct Property
{
    QString name;
    QDBusVariant value;
};

// (sa(sv))
struct AuxiliaryUnit
{
    QString name;
    QList<Property> properties;
};

// Registers the types with Qt D-Bus; safe to call more than once.
void registerTypes();
} // namespace SystemdBus

QDBusArgument& operator<<(QDBusArgument& argument, const SystemdBus::UnitStatus& unit);
const QDBusArgument& operator>>(const QDBusArgument& argument, SystemdBus::UnitStatus& unit);
QDBusArgument& operator<<(QDBusArgument& argument, const SystemdBus::Property& property);
const QDBusArgument& operator>>(const QDBusArgument& argument, SystemdBus::Property& property);
QDBusArgument& operator<<(QDBusArgument& argument, const SystemdBus::AuxiliaryUnit& unit);
const QDBusArgument& operator>>(const QDBusArgument& argument, SystemdBus::AuxiliaryUnit& unit);

Q_DECLARE_METATYPE(SystemdBus::UnitStatus)
Q_DECLARE_METATYPE(SystemdBus::Property)
Q_DECLARE_METATYPE(SystemdBus::AuxiliaryUnit)
