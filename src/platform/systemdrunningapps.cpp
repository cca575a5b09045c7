#include "systemdrunningapps.h"

#include "procfs.h"
#include "systemdunitname.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QGuiApplication>
#include <QTimer>

#include <algorithm>
#include <unistd.h>

namespace {
const QString PropertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
// Unit objects' paths escape the name: "app-..." becomes "app_2d...".
const QString AppUnitPaths = QStringLiteral("/org/freedesktop/systemd1/unit/app_2d");

bool isApplicationUnit(const QString& unit)
{
    return unit.startsWith(QLatin1String("app-"));
}

// A unit runs from its start job until it stops; a failed unit the manager keeps does not.
bool isRunning(const SystemdBus::UnitStatus& unit)
{
    static const QStringList Running{QStringLiteral("active"), QStringLiteral("activating"),
                                     QStringLiteral("reloading"), QStringLiteral("refreshing")};
    return Running.contains(unit.activeState) || unit.jobType == QLatin1String("start");
}
} // namespace

SystemdRunningApps::SystemdRunningApps(const QDBusConnection& bus, QObject* parent)
    : RunningAppsSource(parent), m_bus(bus)
{
    SystemdBus::registerTypes();
    if (!m_bus.isConnected()) {
        qWarning("No D-Bus session bus: running applications are not tracked");
        return;
    }
    m_entries = std::make_unique<InstalledEntries>();
    auto* watcher =
        new QDBusServiceWatcher(SystemdBus::Service, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString& oldOwner, const QString& newOwner) {
                if (!oldOwner.isEmpty())
                    managerLeft();
                if (!newOwner.isEmpty())
                    managerAppeared();
            });
    bool listening = true;
    for (const QString& signal : {QStringLiteral("UnitNew"), QStringLiteral("UnitRemoved")})
        listening = listening &&
                    m_bus.connect(SystemdBus::Service, SystemdBus::ManagerPath, SystemdBus::ManagerInterface,
                                  signal, this, SLOT(unitAnnounced(QDBusMessage)));
    // Any unit's properties: a failed service can stay loaded, and only its state tells.
    listening = listening && m_bus.connect(SystemdBus::Service, QString(), PropertiesInterface,
                                           QStringLiteral("PropertiesChanged"), {SystemdBus::UnitInterface},
                                           QString(), this, SLOT(unitPropertiesChanged(QDBusMessage)));
    if (!listening)
        qWarning("Cannot listen to the systemd user manager: units appearing and going away go unnoticed");
    if (m_bus.interface() && m_bus.interface()->isServiceRegistered(SystemdBus::Service))
        managerAppeared();
    else
        qWarning("No systemd user manager on the session bus: running applications are not tracked "
                 "until one appears");
}

SystemdRunningApps::~SystemdRunningApps() = default;

void SystemdRunningApps::managerAppeared()
{
    if (m_managerPresent)
        return;
    m_managerPresent = true;
    // Without a subscription the manager announces nothing.
    callManager(QStringLiteral("Subscribe"), {}, QStringLiteral("Cannot follow the systemd user manager"));
    refreshSoon();
}

void SystemdRunningApps::managerLeft()
{
    if (!m_managerPresent)
        return;
    m_managerPresent = false;
    qWarning("The systemd user manager left the session bus: running applications are not tracked "
             "until it returns");
    m_reported.clear();
    publish({});
}

// UnitNew and UnitRemoved: the unit's name and object path.
void SystemdRunningApps::unitAnnounced(const QDBusMessage& signal)
{
    if (isApplicationUnit(signal.arguments().value(0).toString()))
        refreshSoon();
}

void SystemdRunningApps::unitPropertiesChanged(const QDBusMessage& signal)
{
    const QList<QVariant> arguments = signal.arguments();
    if (!signal.path().startsWith(AppUnitPaths) || arguments.size() < 3)
        return;
    const QVariantMap changed = qdbus_cast<QVariantMap>(arguments.at(1));
    const QStringList invalidated = arguments.at(2).toStringList();
    if (changed.contains(QStringLiteral("ActiveState")) ||
        invalidated.contains(QStringLiteral("ActiveState")))
        refreshSoon();
}

// Announcements come in bursts (a unit is loaded, gets a job, starts): one reading follows them.
void SystemdRunningApps::refreshSoon()
{
    if (m_refreshQueued)
        return;
    m_refreshQueued = true;
    QTimer::singleShot(0, this, &SystemdRunningApps::refresh);
}

void SystemdRunningApps::refresh()
{
    m_refreshQueued = false;
    if (!m_managerPresent)
        return;
    if (m_listing) {
        m_listAgain = true; // the answer on its way may be older than the change
        return;
    }
    m_listing = true;
    QDBusMessage call =
        QDBusMessage::createMethodCall(SystemdBus::Service, SystemdBus::ManagerPath,
                                       SystemdBus::ManagerInterface, QStringLiteral("ListUnitsByPatterns"));
    call << QStringList() << QStringList{QStringLiteral("app-*")};
    call.setAutoStartService(false);
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* watcher) {
        watcher->deleteLater();
        m_listing = false;
        const QDBusPendingReply<QList<SystemdBus::UnitStatus>> reply = *watcher;
        if (reply.isError())
            qWarning("Cannot list the systemd user manager's units: %s", qPrintable(reply.error().message()));
        else if (m_managerPresent)
            listed(reply.value());
        if (m_listAgain) {
            m_listAgain = false;
            refreshSoon();
        }
    });
}

void SystemdRunningApps::listed(const QList<SystemdBus::UnitStatus>& units)
{
    QHash<QString, QString> running;
    QSet<QString> names;
    for (const SystemdBus::UnitStatus& unit : units) {
        names.insert(unit.name);
        if (!isRunning(unit))
            continue;
        const QString entry = entryForUnit(unit.name);
        if (!entry.isEmpty())
            running.insert(unit.name, entry);
    }
    m_reported.intersect(names);
    publish(running);
}

QString SystemdRunningApps::entryForUnit(const QString& unit)
{
    const SystemdUnitName::Parsed parsed = SystemdUnitName::parse(unit);
    if (parsed.kind == SystemdUnitName::Kind::NotAnApplication)
        return QString();
    if (parsed.kind == SystemdUnitName::Kind::Application) {
        const DesktopEntryIndex& index = m_entries->index();
        for (const QString& id : parsed.applicationIds) {
            const QString path = index.pathForDesktopId(id);
            if (!path.isEmpty())
                return path;
        }
    }
    if (!m_reported.contains(unit)) {
        m_reported.insert(unit);
        if (parsed.kind == SystemdUnitName::Kind::Odd)
            qInfo("The systemd unit \"%s\" does not name an application the usual way: not counted as "
                  "running",
                  qPrintable(unit));
        else
            qInfo("The systemd unit \"%s\" runs \"%s\", for which no desktop entry is installed: not "
                  "counted as running",
                  qPrintable(unit), qPrintable(parsed.applicationIds.constFirst()));
    }
    return QString();
}

// The applications in the order they were first seen running (launch order); an application
// keeps its place while any of its units runs.
void SystemdRunningApps::publish(const QHash<QString, QString>& units)
{
    QSet<QString> paths;
    for (const QString& path : units)
        paths.insert(path);
    m_appOrder.removeIf([&paths](const auto& it) { return !paths.contains(it.key()); });
    QList<RunningApplication> apps;
    bool launched = false;
    // Units of one listing come in no particular order: new applications take theirs by name.
    QStringList names = units.keys();
    names.sort();
    for (const QString& name : std::as_const(names)) {
        const QString& path = units.value(name);
        if (!m_appOrder.contains(path)) {
            m_appOrder.insert(path, ++m_counter);
            launched = true;
        }
    }
    for (const QString& path : std::as_const(paths))
        apps.append({path, QString(), QImage()});
    std::sort(apps.begin(), apps.end(), [this](const RunningApplication& a, const RunningApplication& b) {
        return m_appOrder.value(a.path) < m_appOrder.value(b.path);
    });
    const bool terminated =
        std::any_of(m_apps.cbegin(), m_apps.cend(),
                    [&paths](const RunningApplication& app) { return !paths.contains(app.path); });
    m_units = units;
    m_apps = apps;
    if (launched)
        emit applicationLaunched();
    if (terminated)
        emit applicationTerminated();
}

QStringList SystemdRunningApps::unitsOfApplication(const QString& path) const
{
    QStringList units;
    for (auto it = m_units.cbegin(); it != m_units.cend(); ++it) {
        if (it.value() == path)
            units.append(it.key());
    }
    units.sort();
    return units;
}

QString SystemdRunningApps::ownApplicationPath() const
{
    const QString path =
        m_entries ? m_entries->index().pathForDesktopId(QGuiApplication::desktopFileName()) : QString();
    return path.isEmpty() ? ProcFs::executablePath(getpid()) : path;
}

void SystemdRunningApps::callManager(const QString& method, const QList<QVariant>& arguments,
                                     const QString& purpose)
{
    QDBusMessage call = QDBusMessage::createMethodCall(SystemdBus::Service, SystemdBus::ManagerPath,
                                                       SystemdBus::ManagerInterface, method);
    call.setArguments(arguments);
    call.setAutoStartService(false);
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [purpose](QDBusPendingCallWatcher* watcher) {
        watcher->deleteLater();
        if (watcher->isError())
            qWarning("%s: %s", qPrintable(purpose), qPrintable(watcher->error().message()));
    });
}
