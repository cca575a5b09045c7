// What Nimbo asks of the user manager: a scope of its own for each process it launches, and
// the stop of an application's units when the user quits it.
#include "systemdrunningapps.h"

#include "entrydesktopid.h"
#include "systemdunitname.h"

#include <QRandomGenerator>

bool SystemdRunningApps::quitApplication(const QString& path)
{
    const QStringList units = unitsOfApplication(path);
    // As the desktop's own "quit" does: the manager asks every process of the unit to end
    // (SIGTERM) and, should they linger, ends them.
    for (const QString& unit : units)
        callManager(QStringLiteral("StopUnit"), {unit, QStringLiteral("replace")},
                    QStringLiteral("Cannot stop the systemd unit \"%1\"").arg(unit));
    return !units.isEmpty();
}

void SystemdRunningApps::processLaunched(qint64 pid, const QString& entryPath)
{
    // Launches run on worker threads; the request goes out from this object's own.
    QMetaObject::invokeMethod(
        this, [this, pid, entryPath] { requestScope(pid, entryPath); }, Qt::QueuedConnection);
}

// The launched process leaves Nimbo's own unit for a scope of its own, named as desktops name
// their launches, so it is tracked as theirs are and lives on when Nimbo ends.
void SystemdRunningApps::requestScope(qint64 pid, const QString& entryPath)
{
    if (!m_managerPresent)
        return;
    QString id = desktopIdOfEntry(entryPath);
    if (id.endsWith(QLatin1String(".desktop")))
        id.chop(8);
    const QString unit = SystemdUnitName::scopeForLaunch(id, QRandomGenerator::global()->generate());
    const QList<SystemdBus::Property> properties{
        {QStringLiteral("Description"), QDBusVariant(QStringLiteral("%1, launched by Nimbo").arg(id))},
        {QStringLiteral("PIDs"), QDBusVariant(QVariant::fromValue(QList<uint>{uint(pid)}))},
        {QStringLiteral("Slice"), QDBusVariant(QStringLiteral("app.slice"))},
        {QStringLiteral("CollectMode"), QDBusVariant(QStringLiteral("inactive-or-failed"))},
    };
    callManager(QStringLiteral("StartTransientUnit"),
                {unit, QStringLiteral("fail"), QVariant::fromValue(properties),
                 QVariant::fromValue(QList<SystemdBus::AuxiliaryUnit>())},
                QStringLiteral("Cannot give %1 (process %2) a systemd scope of its own; it stays in Nimbo's")
                    .arg(id)
                    .arg(pid));
}
