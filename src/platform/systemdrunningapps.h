// The running applications of a desktop that starts each one in a systemd user unit of its own,
// as GNOME and KDE do: "app-gnome-org.gnome.Calculator-4711.scope". The user manager on the
// session bus announces units appearing and going away; a unit's name carries the application
// ID, and the ID names the desktop entry. Processes Nimbo launches are put into transient scopes
// named the same way ("app-nimbo-<ID>-<random>.scope"), so they are tracked alike and outlive
// Nimbo. Quitting an application stops its units. Windows are out of reach: no application can
// be raised, shown or hidden, and none is known to be in front.
//
// Without a user manager on the bus nothing runs, until one appears.
#pragma once

#include "catalogue/runningappssource.h"
#include "installedentries.h"
#include "runningappcontrol.h"
#include "systemdbustypes.h"

#include <QDBusConnection>
#include <QHash>
#include <QSet>

#include <memory>

class QDBusMessage;

class SystemdRunningApps : public RunningAppsSource, public RunningAppControl
{
    Q_OBJECT
public:
    explicit SystemdRunningApps(const QDBusConnection& bus = QDBusConnection::sessionBus(),
                                QObject* parent = nullptr);
    ~SystemdRunningApps() override;

    // Whether a user manager is on the bus.
    bool isTracking() const { return m_managerPresent; }
    // The running units the application is in.
    QStringList unitsOfApplication(const QString& path) const;

    QList<RunningApplication> runningApplications() const override { return m_apps; }
    QString activeApplicationPath() const override { return QString(); }
    QString ownApplicationPath() const override;

    // Called on the main thread, except processLaunched.
    bool controlsWindows() const override { return false; }
    qint64 pidOfApplication(const QString&) const override { return 0; }
    bool activateApplication(const QString&) override { return false; }
    void showApplication(const QString&) override {}
    void hideApplication(const QString&) override {}
    bool isApplicationVisible(const QString&) const override { return false; }
    bool quitApplication(const QString& path) override;
    void processLaunched(qint64 pid, const QString& entryPath) override;

private slots:
    void unitAnnounced(const QDBusMessage& signal);
    void unitPropertiesChanged(const QDBusMessage& signal);

private:
    void managerAppeared();
    void managerLeft();
    void refreshSoon();
    void refresh();
    void listed(const QList<SystemdBus::UnitStatus>& units);
    QString entryForUnit(const QString& unit);
    void publish(const QHash<QString, QString>& units);
    void requestScope(qint64 pid, const QString& entryPath);
    void callManager(const QString& method, const QList<QVariant>& arguments, const QString& purpose);

    QDBusConnection m_bus;
    std::unique_ptr<InstalledEntries> m_entries;
    bool m_managerPresent = false;
    bool m_refreshQueued = false;
    bool m_listing = false;
    bool m_listAgain = false;
    QHash<QString, QString> m_units;    // running unit -> the entry it runs
    QHash<QString, quint64> m_appOrder; // running application -> when it was first seen running
    quint64 m_counter = 0;
    QSet<QString> m_reported; // listed units the log has already named as left out
    QList<RunningApplication> m_apps;
};
