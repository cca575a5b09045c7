#include "systemdbustypes.h"

#include <QDBusMetaType>

void SystemdBus::registerTypes()
{
    qDBusRegisterMetaType<UnitStatus>();
    qDBusRegisterMetaType<QList<UnitStatus>>();
    qDBusRegisterMetaType<Property>();
    qDBusRegisterMetaType<QList<Property>>();
    qDBusRegisterMetaType<AuxiliaryUnit>();
    qDBusRegisterMetaType<QList<AuxiliaryUnit>>();
}

QDBusArgument& operator<<(QDBusArgument& argument, const SystemdBus::UnitStatus& unit)
{
    argument.beginStructure();
    argument << unit.name << unit.description << unit.loadState << unit.activeState << unit.subState
             << unit.following << unit.path << unit.jobId << unit.jobType << unit.jobPath;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, SystemdBus::UnitStatus& unit)
{
    argument.beginStructure();
    argument >> unit.name >> unit.description >> unit.loadState >> unit.activeState >> unit.subState >>
        unit.following >> unit.path >> unit.jobId >> unit.jobType >> unit.jobPath;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const SystemdBus::Property& property)
{
    argument.beginStructure();
    argument << property.name << property.value;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, SystemdBus::Property& property)
{
    argument.beginStructure();
    argument >> property.name >> property.value;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const SystemdBus::AuxiliaryUnit& unit)
{
    argument.beginStructure();
    argument << unit.name << unit.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, SystemdBus::AuxiliaryUnit& unit)
{
    argument.beginStructure();
    argument >> unit.name >> unit.properties;
    argument.endStructure();
    return argument;
}
