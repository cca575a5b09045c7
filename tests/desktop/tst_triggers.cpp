// The ways Nimbo is reached besides the hot key, with a running controller on a real X server
// and session bus: the tray item as a desktop's tray host meets it (through a StatusNotifierWatcher
// of the test's own), the taskbar entry's progress signals, launch at login, and the cursor hot
// spot: the pointer, moved by XTest (xdotool), opens the panel after the dwell delay, opens
// nothing when it leaves sooner, and clicks at the spot still reach the window beneath.
#include "desktopfixture.h"

#include "platform/launchatlogin.h"
#include "shell/hvhotspotwindow.h"
#include "shell/pointertracker.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QPushButton>
#include <QThread>
#include <QtTest>

namespace {
const QString WatcherConnection = QStringLiteral("test-watcher");

// The part of a desktop's tray host that items talk to. It lives on a connection and thread of
// its own, so Nimbo's blocking calls to it are answered while the test's main thread waits.
class StatusNotifierWatcher : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hostRegistered)
public:
    QStringList items() const
    {
        QMutexLocker lock(&m_mutex);
        return m_items;
    }
    bool hostRegistered() const { return true; }

public slots:
    void RegisterStatusNotifierItem(const QString& service)
    {
        QMutexLocker lock(&m_mutex);
        m_items.append(service);
    }

private:
    mutable QMutex m_mutex;
    QStringList m_items;
};

// The id of the item labelled so in a com.canonical.dbusmenu layout (id, properties, children); -1 if none.
int itemLabelled(const QDBusArgument& layout, const QString& label)
{
    int id = 0;
    QVariantMap properties;
    QVariantList children;
    layout.beginStructure();
    layout >> id >> properties >> children;
    layout.endStructure();
    if (properties.value("label").toString() == label)
        return id;
    for (const QVariant& child : children) {
        if (const int found = itemLabelled(child.value<QDBusArgument>(), label); found >= 0)
            return found;
    }
    return -1;
}

// Waits for a D-Bus call while the main thread keeps serving Nimbo's side of it.
QDBusMessage await(const QDBusPendingCall& call)
{
    QDBusPendingCall pending = call;
    if (!QTest::qWaitFor([&] { return pending.isFinished(); }, 10000))
        qWarning() << "No answer on the bus";
    return pending.reply();
}
} // namespace

class TestTriggers : public QObject
{
    Q_OBJECT
    DesktopFixture desktop;
    const TestEnvironment& env = desktop.env();
    HVUserDefaults* defaults = &desktop.defaults();
    HVController* controller = nullptr;
    QThread watcherThread;
    StatusNotifierWatcher* watcher = new StatusNotifierWatcher;
    QString item; // the tray item's bus name
    QList<QVariantList> launcherUpdates;
    int newIcons = 0;

    QDBusConnection bus() const { return QDBusConnection(WatcherConnection); }
    QDBusPendingCall callItem(const QString& path, const QString& interface, const QString& method,
                              const QVariantList& args)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(item, path, interface, method);
        message.setArguments(args);
        return bus().asyncCall(message);
    }
    QString autostart() const { return env.configHome() + "/autostart/com.halvorndesign.Nimbo.desktop"; }

    HVHotSpotView* spot() const
    {
        return controller->hotSpotWindow() ? controller->hotSpotWindow()->view() : nullptr;
    }
    void hidePanel()
    {
        if (controller->mainWindowIsVisible())
            controller->explicitHideMainWindow();
        QTRY_VERIFY(!controller->mainWindowIsVisible());
    }
    // Away from the corner, and the hot spot knows it.
    void moveAway()
    {
        QVERIFY(moveTo({800, 500}));
        QTRY_VERIFY(!spot()->isHighlighted() && !spot()->hasPendingAction());
        QTest::qWait(PointerTracker::InsideIntervalMs + 50);
    }

public slots:
    void launcherUpdated(const QString& app, const QVariantMap& properties)
    {
        launcherUpdates.append({app, properties});
    }
    void iconChanged() { ++newIcons; }

private slots:
    void initTestCase()
    {
        // The tray host is there before Nimbo starts, as on a desktop that has one.
        QDBusConnection watcherBus =
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, WatcherConnection);
        watcher->moveToThread(&watcherThread);
        connect(&watcherThread, &QThread::finished, watcher, &QObject::deleteLater);
        watcherThread.start();
        QVERIFY(watcherBus.registerObject("/StatusNotifierWatcher", watcher,
                                          QDBusConnection::ExportAllSlots |
                                              QDBusConnection::ExportAllProperties));
        QVERIFY(watcherBus.registerService("org.kde.StatusNotifierWatcher"));
        QVERIFY(watcherBus.connect({}, {}, "com.canonical.Unity.LauncherEntry", "Update", this,
                                   SLOT(launcherUpdated(QString, QVariantMap))));

        desktop.writeEntry("clock.desktop", "Exec=xclock\n");
        QVERIFY(moveTo({800, 500}));
        controller = desktop.startNimbo({{"showWindowAtLaunch", false},
                                         {"highlightHotSpots", true},
                                         {"cursorHotSpotLocation", HVHotSpotWindow::TopLeftCorner}});
        QVERIFY(spot());
    }

    void cleanupTestCase()
    {
        desktop.stopNimbo();
        watcherThread.quit();
        watcherThread.wait();
    }

    void theTrayItemRegistersAndAClickTogglesThePanel()
    {
        QTRY_COMPARE(watcher->items().size(), 1);
        item = watcher->items().first();
        QVERIFY(bus().connect(item, "/StatusNotifierItem", "org.kde.StatusNotifierItem", "NewIcon", this,
                              SLOT(iconChanged())));
        for (const bool visible : {true, false}) {
            QCOMPARE(await(callItem("/StatusNotifierItem", "org.kde.StatusNotifierItem", "Activate", {0, 0}))
                         .type(),
                     QDBusMessage::ReplyMessage);
            QTRY_COMPARE(controller->mainWindowIsVisible(), visible);
        }
    }

    void theExportedMenuRescansAndTheIconShowsTheProgress()
    {
        // Choosing the shared status menu's rescan, as the tray host shows it, runs a scan: the
        // tray image and the taskbar entry follow it.
        // Where the item says its menu is.
        const QDBusMessage get =
            await(callItem("/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get",
                           {QString("org.kde.StatusNotifierItem"), QString("Menu")}));
        const QString menu =
            get.arguments().value(0).value<QDBusVariant>().variant().value<QDBusObjectPath>().path();
        const QDBusMessage layout =
            await(callItem(menu, "com.canonical.dbusmenu", "GetLayout", {0, -1, QStringList()}));
        QCOMPARE(layout.arguments().size(), 2);
        const int rescan =
            itemLabelled(layout.arguments().at(1).value<QDBusArgument>(), "Rescan Applications");
        QVERIFY(rescan > 0);
        newIcons = 0;
        launcherUpdates.clear();
        await(callItem(menu, "com.canonical.dbusmenu", "Event",
                       {rescan, QString("clicked"), QVariant::fromValue(QDBusVariant(0)), 0u}));
        QTRY_VERIFY(!launcherUpdates.isEmpty() &&
                    !launcherUpdates.last().at(1).toMap().value("progress-visible").toBool());
        QTRY_VERIFY(newIcons >= 2); // the progress image, then the normal one again
        const QVariantMap during = launcherUpdates.first().at(1).toMap();
        QCOMPARE(launcherUpdates.first().at(0).toString(), "application://com.halvorndesign.Nimbo.desktop");
        QVERIFY(during.value("progress-visible").toBool());
        QVERIFY(during.value("progress").toDouble() >= 0 && during.value("progress").toDouble() <= 1);
    }

    void turningTheTrayOffRemovesTheItem()
    {
        defaults->setBool(false, "showAppInStatusBar");
        QVERIFY(!controller->hasStatusItem());
        defaults->setBool(true, "showAppInStatusBar");
        QVERIFY(controller->hasStatusItem());
    }

    void launchAtLoginFollowsThePreferenceAndTheFile()
    {
        const QString self = QCoreApplication::applicationFilePath();
        // Turning it on writes an entry that starts this very program.
        defaults->setBool(true, "startAtLogin");
        QFile entry(autostart());
        QVERIFY(entry.open(QIODevice::ReadOnly) &&
                entry.readAll().contains("\nExec=" + self.toUtf8() + "\n"));

        // Entries that do not start this program at login read as off when the preferences open.
        const QList<QPair<const char*, QByteArray>> notOurs = {
            {"hidden", "[Desktop Entry]\nType=Application\nExec=" + self.toUtf8() + "\nHidden=true\n"},
            {"another copy", "[Desktop Entry]\nType=Application\nExec=/opt/other/nimbo\n"},
        };
        for (const auto& [what, text] : notOurs) {
            env.writeFile("config/autostart/com.halvorndesign.Nimbo.desktop", text);
            controller->readStartAtLogin();
            QVERIFY2(!defaults->boolForKey("startAtLogin"), what);
            defaults->setBool(true, "startAtLogin"); // turning it on again replaces the entry with ours
            QVERIFY2(LaunchAtLogin().launchAtLogin(), what);
        }

        // Turning it off removes the entry; a program path with spaces survives the quoting.
        defaults->setBool(false, "startAtLogin");
        QVERIFY(!QFile::exists(autostart()));
        LaunchAtLogin spaced(env.writeFile("my apps/nimbo", "#!/bin/sh\n"));
        QVERIFY(spaced.setLaunchAtLogin(true));
        QVERIFY(spaced.launchAtLogin());
        QVERIFY(LaunchAtLogin().setLaunchAtLogin(false)); // not ours: left alone
        QVERIFY(QFile::exists(autostart()));
        QVERIFY(spaced.setLaunchAtLogin(false));

        // An entry that is a folder is said in the log and leaves the preference off.
        QDir().mkpath(autostart());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("autostart entry.*folder"));
        defaults->setBool(true, "startAtLogin");
        QVERIFY(!defaults->boolForKey("startAtLogin"));
        QVERIFY(QFileInfo(autostart()).isDir());
        QDir(autostart()).removeRecursively();
    }

    void theCornerOpensThePanelAfterTheDelayOnly()
    {
        hidePanel();
        // Left before the delay: nothing opens.
        QVERIFY(moveTo({0, 0}));
        QTRY_VERIFY(spot()->hasPendingAction());
        moveAway();
        QTest::qWait(500);
        QVERIFY(!controller->mainWindowIsVisible());

        QElapsedTimer sinceArrival;
        sinceArrival.start();
        QVERIFY(moveTo({0, 0}));
        QTRY_VERIFY(controller->mainWindowIsVisible());
        QVERIFY(sinceArrival.elapsed() >= 350);

        // Visible, the panel hides as soon as the pointer comes back: hiding needs no dwell.
        moveAway();
        QVERIFY(controller->mainWindowIsVisible());
        QVERIFY(moveTo({0, 0}));
        QTRY_VERIFY(spot()->isHighlighted());
        QVERIFY(!spot()->hasPendingAction());
        QTRY_VERIFY(!controller->mainWindowIsVisible());
        moveAway();
    }

    void clicksThereReachTheWindowBeneath()
    {
        // An ordinary window of another kind under the top-left corner, whose presses are counted.
        QPushButton beneath;
        beneath.setWindowFlag(Qt::FramelessWindowHint);
        beneath.setGeometry(0, 0, 200, 200);
        QSignalSpy presses(&beneath, &QPushButton::pressed);
        beneath.show();
        QVERIFY(QTest::qWaitForWindowExposed(&beneath));
        QTRY_COMPARE(beneath.geometry().topLeft(), QPoint(0, 0));
        QVERIFY(moveTo({1, 1}));
        QTRY_VERIFY(spot()->isHighlighted());
        QVERIFY(xdotool({"click", "1"}));
        QTRY_COMPARE(presses.count(), 1);
        moveAway();
        hidePanel();

        // A drag that arrives at the spot counts as the pointer.
        QVERIFY(moveTo({100, 100}));
        QVERIFY(xdotool({"mousedown", "1"}));
        QVERIFY(moveTo({0, 0}));
        QTRY_VERIFY(controller->mainWindowIsVisible());
        QVERIFY(xdotool({"mouseup", "1"}));
        moveAway();
        hidePanel();
    }

    void theSpotFollowsItsLocation()
    {
        defaults->setInteger(HVHotSpotWindow::BottomRightCorner, "cursorHotSpotLocation");
        QCOMPARE(spot()->area(), QRect(1596, 996, 4, 4));
        const ProgramRun search = runToEnd("xdotool", {"search", "--name", "^Nimbo Hot Spot$"});
        QCOMPARE(search.out.trimmed().split('\n').size(), 1);

        // A code of no place is said once and stands for the top edge.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("cursorHotSpotLocation.*-3.*top edge"));
        defaults->setInteger(-3, "cursorHotSpotLocation");
        QVERIFY(controller->hotSpotWindow());
        QCOMPARE(spot()->area(), QRect(28, 0, 1544, 1));
        QTest::failOnWarning(QRegularExpression("cursorHotSpotLocation"));
        controller->updateCursorHotSpot(); // as a change of screens would: nothing more is said
        defaults->setInteger(HVHotSpotWindow::None, "cursorHotSpotLocation");
        QVERIFY(!controller->hotSpotWindow());
    }
};

QTEST_MAIN(TestTriggers)
#include "tst_triggers.moc"
