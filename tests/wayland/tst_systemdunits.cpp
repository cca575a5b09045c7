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
#include "platform/desktopappactions.h"
#include "platform/desktopsession.h"
#include "platform/gioentryreader.h"
#include "platform/systemdbustypes.h"

#include "catalogue/runningappssource.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QFile>
#include <QMenu>
#include <QRegularExpression>
#include <QtTest>

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
    for (const char c : name.toUtf8()) {
        if (QChar::isLetterOrNumber(uchar(c)) && uchar(c) < 128)
            path += QLatin1Char(c);
        else
            path += QStringLiteral("_%1").arg(uchar(c), 2, 16, QLatin1Char('0'));
    }
    return path;
}

// The user manager's side of the calls Nimbo makes, on a bus connection of its own.
class TestUserManager : public QDBusVirtualObject
{
public:
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "testsystemd");
    QList<SystemdBus::UnitStatus> units;
    QHash<QString, QList<uint>> pids;          // the processes it was asked to put into scopes
    QHash<QString, QList<QDBusMessage>> calls; // by method
    bool refuseScopes = false;

    TestUserManager()
    {
        SystemdBus::registerTypes();
        bus.registerVirtualObject(SystemdBus::ManagerPath, this);
    }
    bool appear() { return bus.registerService(SystemdBus::Service); }

    void add(const QString& name, const QString& state = QStringLiteral("active"))
    {
        SystemdBus::UnitStatus unit;
        unit.name = name;
        unit.loadState = QStringLiteral("loaded");
        unit.activeState = state;
        unit.path = QDBusObjectPath(unitPath(name));
        unit.jobPath = QDBusObjectPath(QStringLiteral("/"));
        units.append(unit);
        announce(QStringLiteral("UnitNew"), name);
    }
    void remove(const QString& name)
    {
        units.removeIf([&name](const SystemdBus::UnitStatus& unit) { return unit.name == name; });
        announce(QStringLiteral("UnitRemoved"), name);
    }
    void removeAll()
    {
        while (!units.isEmpty())
            remove(units.constFirst().name);
    }
    // The unit stays loaded in another state, as a failed service does.
    void changeState(const QString& name, const QString& state)
    {
        for (SystemdBus::UnitStatus& unit : units) {
            if (unit.name == name)
                unit.activeState = state;
        }
        QDBusMessage signal = QDBusMessage::createSignal(unitPath(name), "org.freedesktop.DBus.Properties",
                                                         "PropertiesChanged");
        signal << SystemdBus::UnitInterface << QVariantMap{{"ActiveState", state}} << QStringList();
        bus.send(signal);
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        if (message.interface() != SystemdBus::ManagerInterface)
            return false;
        calls[message.member()].append(message);
        const QString method = message.member();
        const QList<QVariant> arguments = message.arguments();
        const QDBusObjectPath job("/org/freedesktop/systemd1/job/1");
        if (method == "Subscribe") {
            bus.send(message.createReply());
        } else if (method == "ListUnitsByPatterns") {
            QList<SystemdBus::UnitStatus> matching;
            for (const QString& pattern : arguments.at(1).toStringList()) {
                for (const SystemdBus::UnitStatus& unit : std::as_const(units)) {
                    if (fnmatch(pattern.toUtf8().constData(), unit.name.toUtf8().constData(), 0) == 0)
                        matching.append(unit);
                }
            }
            bus.send(message.createReply(QVariant::fromValue(matching)));
        } else if (method == "StartTransientUnit") {
            const QString name = arguments.at(0).toString();
            const auto properties = qdbus_cast<QList<SystemdBus::Property>>(arguments.at(2));
            for (const SystemdBus::Property& property : properties) {
                if (property.name == "PIDs")
                    pids.insert(name, qdbus_cast<QList<uint>>(property.value.variant()));
            }
            if (refuseScopes) {
                bus.send(message.createErrorReply("org.freedesktop.DBus.Error.AccessDenied", "Not today"));
                return true;
            }
            bus.send(message.createReply(QVariant::fromValue(job)));
            add(name);
        } else if (method == "StopUnit") {
            const QString name = arguments.at(0).toString();
            for (uint pid : pids.take(name))
                ::kill(pid_t(pid), SIGTERM);
            bus.send(message.createReply(QVariant::fromValue(job)));
            remove(name);
        } else {
            return false;
        }
        return true;
    }

private:
    void announce(const QString& signalName, const QString& name)
    {
        QDBusMessage signal =
            QDBusMessage::createSignal(SystemdBus::ManagerPath, SystemdBus::ManagerInterface, signalName);
        signal << name << QVariant::fromValue(QDBusObjectPath(unitPath(name)));
        bus.send(signal);
    }
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
    QStringList running() const
    {
        QStringList paths;
        for (const HVAppRef& app : catalogue->runningApps())
            paths.append(app->path());
        return paths;
    }

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
        // Launching still works; no scope is asked of anyone.
        QVERIFY(catalogue->appForPath(editor)->launchWithItems(std::nullopt));
        QTest::qWait(200);
        QVERIFY(systemd.calls.isEmpty());

        systemd.add("app-gnome-org.example.Editor-1234.scope");
        QVERIFY(systemd.appear());
        QTRY_COMPARE(running(), QStringList{editor});
        QCOMPARE(systemd.calls.value("Subscribe").size(), 1);
    }

    void unitsAppearingAndLeavingFillAndEmptyTheRunningGroup()
    {
        QSignalSpy terminated(session->runningApps(), &RunningAppsSource::applicationTerminated);
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
        systemd.removeAll();
        QTRY_VERIFY(running().isEmpty());
    }

    void oddNamesAndUnknownApplicationsAreLeftOutWithOneLineEach()
    {
        const QStringList left{"app-.scope", "app-nodash.scope", "app-gnome--5.scope",
                               "app-gnome-org.example.Unknown-5.scope"};
        for (const QString& unit : left)
            systemd.add(unit);
        systemd.add("app-gnome.slice");
        systemd.add("app-gnome-org.example.Viewer-6.scope");
        QTRY_COMPARE(running(), QStringList{viewer});
        // More announcements, more readings: still one line each.
        systemd.add("app-gnome-org.example.Editor-7.scope");
        QTRY_COMPARE(running(), QStringList({viewer, editor}));
        for (const QString& unit : left)
            QCOMPARE(messagesWith(QStringLiteral("\"%1\"").arg(unit)), 1);
        QCOMPARE(messagesWith("org.example.Unknown\", for which no desktop entry"), 1);
        QCOMPARE(messagesWith("app-gnome.slice"), 0);
        systemd.removeAll();
        QTRY_VERIFY(running().isEmpty());
    }

    void ownLaunchGetsAScopeAndQuitStopsIt()
    {
        QVERIFY(catalogue->appForPath(sleeper)->launchWithItems(std::nullopt));
        QTRY_COMPARE(systemd.calls.value("StartTransientUnit").size(), 1);
        const QDBusMessage call = systemd.calls.value("StartTransientUnit").constFirst();
        QCOMPARE(call.signature(), QStringLiteral("ssa(sv)a(sa(sv))"));
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
        QStringList items;
        for (QAction* action : menu->actions())
            items.append(action->text());
        QVERIFY2(items.contains("Quit") && !items.contains("Hide") && !items.contains("Show"),
                 qPrintable(items.join(',')));
        menu->actions().at(items.indexOf("Quit"))->trigger();
        QTRY_COMPARE(systemd.calls.value("StopUnit").size(), 1);
        QCOMPARE(systemd.calls.value("StopUnit")[0].arguments(),
                 QList<QVariant>({unit, QStringLiteral("replace")}));
        QTRY_VERIFY(running().isEmpty());
        QTRY_VERIFY(!commandLine(pids[0]).startsWith("sleep"));
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
        catalogue->setRunningAppsSource(nullptr);
        for (const QList<uint>& scope : std::as_const(systemd.pids)) {
            for (uint pid : scope)
                ::kill(pid_t(pid), SIGTERM);
        }
    }
};

QTEST_MAIN(TestSystemdUnits)
#include "tst_systemdunits.moc"
