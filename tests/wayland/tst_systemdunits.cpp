// Running applications on a Wayland desktop come from the systemd user manager's units. Here
// a user manager of the test's own sits on the private session bus: it lists units, announces
// them appearing and going away, makes transient scopes and stops units (ending their
// processes) as systemd does. Nimbo's session is the real one the Wayland platform chooses.
#include "logcollector.h"
#include "support/testenvironment.h"

#include "browser/hviconcontextmenu.h"
#include "browser/hviconview.h"
#include "catalogue/hvappmanager.h"
#include "common/hvuserdefaults.h"
#include "platform/desktopsession.h"
#include "platform/gioentryreader.h"
#include "platform/systemdbustypes.h"

#include "catalogue/runningappssource.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QFile>
#include <QMenu>
#include <QRegularExpression>
#include <QtTest>

#include <cctype>
#include <csignal>
#include <fnmatch.h>

namespace {
qsizetype messagesWith(const QString& text)
{
    return LogCollector::lines().filter(text).size();
}

// systemd's object path for a unit: every character but letters and digits as "_xx".
QString unitPath(const QString& name)
{
    QString path = QStringLiteral("/org/freedesktop/systemd1/unit/");
    for (const char c : name.toUtf8())
        path += std::isalnum(uchar(c)) ? QString(QLatin1Char(c))
                                       : QStringLiteral("_%1").arg(uchar(c), 2, 16, QLatin1Char('0'));
    return path;
}

// The user manager's side of the calls Nimbo makes, on a bus connection of its own: a call of
// another signature than systemd's finds no method here.
class TestUserManager : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.systemd1.Manager")

public:
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "testsystemd");
    QList<SystemdBus::UnitStatus> units;
    QHash<QString, QList<uint>> pids;          // the processes it was asked to put into scopes
    QHash<QString, QList<QDBusMessage>> calls; // by method
    bool refuseScopes = false;

    TestUserManager()
    {
        SystemdBus::registerTypes();
        bus.registerObject(SystemdBus::ManagerPath, this,
                           QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
    }

    void add(const QString& name)
    {
        const QDBusObjectPath path(unitPath(name));
        units.append({name, {}, "loaded", "active", {}, {}, path, 0, {}, QDBusObjectPath("/")});
        emit UnitNew(name, path);
    }
    void remove(const QString& name)
    {
        units.removeIf([&name](const SystemdBus::UnitStatus& unit) { return unit.name == name; });
        emit UnitRemoved(name, QDBusObjectPath(unitPath(name)));
    }
    // The unit stays loaded in another state, as a failed service does.
    void changeState(const QString& name, const QString& state)
    {
        for (SystemdBus::UnitStatus& unit : units)
            if (unit.name == name)
                unit.activeState = state;
        QDBusMessage signal = QDBusMessage::createSignal(unitPath(name), "org.freedesktop.DBus.Properties",
                                                         "PropertiesChanged");
        signal << SystemdBus::UnitInterface << QVariantMap{{"ActiveState", state}} << QStringList();
        bus.send(signal);
    }

signals:
    void UnitNew(const QString& name, const QDBusObjectPath& path);
    void UnitRemoved(const QString& name, const QDBusObjectPath& path);

public slots:
    void Subscribe() { keep(); }
    QList<SystemdBus::UnitStatus> ListUnitsByPatterns(const QStringList&, const QStringList& patterns)
    {
        keep();
        QList<SystemdBus::UnitStatus> matching;
        for (const QString& pattern : patterns)
            for (const SystemdBus::UnitStatus& unit : std::as_const(units))
                if (fnmatch(pattern.toUtf8().constData(), unit.name.toUtf8().constData(), 0) == 0)
                    matching.append(unit);
        return matching;
    }
    QDBusObjectPath StartTransientUnit(const QString& name, const QString&,
                                       const QList<SystemdBus::Property>& properties,
                                       const QList<SystemdBus::AuxiliaryUnit>&)
    {
        keep();
        for (const SystemdBus::Property& property : properties)
            if (property.name == "PIDs")
                pids.insert(name, qdbus_cast<QList<uint>>(property.value.variant()));
        if (refuseScopes)
            sendErrorReply(QDBusError::AccessDenied, "Not today");
        else
            add(name);
        return Job;
    }
    QDBusObjectPath StopUnit(const QString& name, const QString&)
    {
        keep();
        for (uint pid : pids.take(name))
            ::kill(pid_t(pid), SIGTERM);
        remove(name);
        return Job;
    }

private:
    const QDBusObjectPath Job{"/org/freedesktop/systemd1/job/1"};

    void keep() { calls[message().member()].append(message()); }
};

QByteArray commandLine(qint64 pid)
{
    QFile file(QStringLiteral("/proc/%1/cmdline").arg(pid));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
// The sleeper's command line as /proc has it: each argument ends in a null.
const QByteArray Sleeping = QByteArrayList{"sleep", "97", ""}.join('\0');
} // namespace

class TestSystemdUnits : public QObject
{
    Q_OBJECT
    TestEnvironment env;
    TestUserManager systemd;
    QString editor, viewer, dashed, sleeper;
    std::unique_ptr<HVUserDefaults> defaults;
    std::unique_ptr<DesktopSession> session;
    std::unique_ptr<HVAppManager> catalogue;

    QString entry(const QString& id, const QString& exec = QStringLiteral("true"))
    {
        return env.writeFile(
            "data/applications/" + id + ".desktop",
            QStringLiteral("[Desktop Entry]\nType=Application\nName=%1\nExec=%2\n").arg(id, exec).toUtf8());
    }
    QStringList running() const { return HVAppManager::pathsFromApps(catalogue->runningApps()); }

private slots:
    void initTestCase()
    {
        QCOMPARE(QGuiApplication::platformName(), QStringLiteral("wayland"));
        qInstallMessageHandler(LogCollector::collect);
        editor = entry("org.example.Editor");
        viewer = entry("org.example.Viewer");
        dashed = entry("firefox-esr");
        sleeper = entry("org.example.Sleeper", "sleep 97");
        defaults = std::make_unique<HVUserDefaults>(env.configHome() + "/Nimbo/Nimbo.conf");
        session = std::make_unique<DesktopSession>();
        catalogue = std::make_unique<HVAppManager>(defaults.get(), std::make_shared<GioEntryReader>(),
                                                   session->appActions());
        catalogue->setRunningAppsSource(session->runningApps());
    }

    void withoutAUserManagerNothingRunsUntilOneAppears()
    {
        QCOMPARE(messagesWith("No systemd user manager on the session bus"), 1);
        QVERIFY(running().isEmpty());
        systemd.add("app-gnome-org.example.Editor-1234.scope");
        QVERIFY(systemd.bus.registerService(SystemdBus::Service));
        QTRY_COMPARE(running(), QStringList{editor});
        QCOMPARE(systemd.calls.value("Subscribe").size(), 1);
    }

    // Units of other names, and those of applications without a desktop entry, are left out, each
    // with one line however often the units are read.
    void unitsAppearingAndLeavingFillAndEmptyTheRunningGroup()
    {
        QSignalSpy terminated(session->runningApps(), &RunningAppsSource::applicationTerminated);
        const QStringList left{"app-.scope", "app-nodash.scope", "app-gnome--5.scope",
                               "app-gnome-org.example.Unknown-5.scope"};
        for (const QString& unit : left + QStringList{"app-gnome.slice"})
            systemd.add(unit);
        systemd.add("app-org.example.Viewer@a1b2.service"); // no launcher part, as KDE names them
        QTRY_COMPARE(running(), QStringList({editor, viewer}));
        systemd.add("app-gnome-firefox\\x2desr-77.scope"); // a dash of the ID escaped
        systemd.add("app-flatpak-org.example.Editor-99.scope");
        QTRY_COMPARE(running(), QStringList({editor, viewer, dashed}));

        // An application runs while any of its units does, and keeps its place.
        systemd.remove("app-gnome-org.example.Editor-1234.scope");
        QTest::qWait(200);
        QCOMPARE(running(), QStringList({editor, viewer, dashed}));
        QCOMPARE(terminated.size(), 0);
        // A failed service the manager keeps loaded no longer runs.
        systemd.changeState("app-org.example.Viewer@a1b2.service", "failed");
        QTRY_COMPARE(running(), QStringList({editor, dashed}));
        QCOMPARE(terminated.size(), 1);
        for (const QString& unit : left)
            QCOMPARE(messagesWith(QStringLiteral("\"%1\"").arg(unit)), 1);
        QCOMPARE(messagesWith("org.example.Unknown\", for which no desktop entry"), 1);
        QCOMPARE(messagesWith("app-gnome.slice"), 0);
        while (!systemd.units.isEmpty())
            systemd.remove(systemd.units.constFirst().name);
        QTRY_VERIFY(running().isEmpty());
    }

    void ownLaunchGetsAScopeAndQuitStopsIt()
    {
        QVERIFY(catalogue->appForPath(sleeper)->launchWithItems(std::nullopt));
        QTRY_COMPARE(systemd.calls.value("StartTransientUnit").size(), 1);
        const QDBusMessage call = systemd.calls.value("StartTransientUnit").constFirst();
        const QString unit = call.arguments().at(0).toString();
        const QRegularExpression scopeName("^app-nimbo-org\\.example\\.Sleeper-[0-9a-f]+\\.scope$");
        QVERIFY2(scopeName.match(unit).hasMatch(), qPrintable(unit));
        QCOMPARE(call.arguments().at(1).toString(), QStringLiteral("fail"));
        const QList<uint> pids = systemd.pids.value(unit);
        QCOMPARE(pids.size(), 1);
        QTRY_COMPARE(commandLine(pids[0]), Sleeping); // once the launcher has become the program
        QTRY_COMPARE(running(), QStringList{sleeper});

        // The menu offers what can be done: quitting, not hiding or showing.
        HVIconView view(catalogue.get(), defaults.get());
        std::unique_ptr<QMenu> menu(
            HVIconContextMenu::contextualMenuForApp(&view, catalogue->runningApps()[0], nullptr));
        const QList<QAction*> items = menu->actions();
        QVERIFY(items.size() > 2 && items[items.size() - 2]->isSeparator()); // no Hide or Show before
        QCOMPARE(items.constLast()->text(), "Quit");
        items.constLast()->trigger();
        QTRY_COMPARE(systemd.calls.value("StopUnit").size(), 1);
        QCOMPARE(systemd.calls.value("StopUnit")[0].arguments(),
                 QList<QVariant>({unit, QStringLiteral("replace")}));
        QTRY_VERIFY(running().isEmpty());
    }

    void aRefusedScopeOrAManagerGoneLeavesLaunchesStanding()
    {
        systemd.refuseScopes = true;
        QVERIFY(catalogue->appForPath(sleeper)->launchWithItems(std::nullopt));
        QTRY_COMPARE(systemd.calls.value("StartTransientUnit").size(), 2);
        QTRY_COMPARE(messagesWith("Cannot give org.example.Sleeper (process"), 1);
        const QString unit = systemd.calls.value("StartTransientUnit")[1].arguments().at(0).toString();
        const QList<uint> pids = systemd.pids.value(unit);
        QCOMPARE(pids.size(), 1);
        QTest::qWait(200);
        QTRY_COMPARE(commandLine(pids[0]), Sleeping); // once the launcher has become the program
        QVERIFY(running().isEmpty());

        // The manager goes away, as at logout: what ran is forgotten, said once.
        systemd.add("app-gnome-org.example.Editor-8.scope");
        QTRY_COMPARE(running(), QStringList{editor});
        systemd.bus.unregisterService(SystemdBus::Service);
        QTRY_VERIFY(running().isEmpty());
        QCOMPARE(messagesWith("The systemd user manager left the session bus"), 1);
        QVERIFY(catalogue->appForPath(editor)->launchWithItems(std::nullopt));
        QTest::qWait(200);
        QCOMPARE(systemd.calls.value("StartTransientUnit").size(), 2);
    }

    void cleanupTestCase()
    {
        for (const QList<uint>& scope : std::as_const(systemd.pids))
            for (uint pid : scope)
                ::kill(pid_t(pid), SIGTERM);
    }
};

QTEST_MAIN(TestSystemdUnits)
#include "tst_systemdunits.moc"
