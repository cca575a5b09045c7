// Running applications on a real X server with a real window manager: xterm, xlogo and xcalc
// (windows that take the focus when activated) launched through desktop entries, tracked, brought
// forward and quit. Hiding and showing are the organising test's, through the panel's menu.
#include "desktopfixture.h"

#include "catalogue/hvappmanager.h"
#include "platform/desktopappactions.h"
#include "platform/gioentryreader.h"
#include "platform/procfs.h"
#include "platform/x11runningapps.h"

#include <QFileInfo>

#include <csignal>

namespace {
const auto pathsOf = &HVAppManager::pathsFromApps;
} // namespace

class TestRunningApps : public QObject
{
    Q_OBJECT
    DesktopFixture m_fixture;
    std::shared_ptr<LaunchedProcesses> m_launched = std::make_shared<LaunchedProcesses>();
    std::shared_ptr<X11RunningApps> m_tracker;
    std::unique_ptr<HVAppManager> m_manager;
    QString m_xterm, m_logo, m_calc, m_sleeper;
    QProcess m_stranger;

    HVAppRef record(const QString& path) { return m_manager->appForPath(path); }
    QString activePath()
    {
        const HVAppRef active = m_manager->activeApp();
        return active ? active->path() : QString();
    }

private slots:
    void initTestCase()
    {
        // Matched by the process Nimbo launched, by desktop ID and by StartupWMClass.
        m_xterm = m_fixture.writeEntry("nimbotest-xterm.desktop", "Exec=xterm -geometry 40x8\n");
        m_logo = m_fixture.writeEntry("xlogo.desktop", "Exec=xlogo\n");
        m_calc = m_fixture.writeEntry("nimbotest-calc.desktop", "Exec=xcalc\nStartupWMClass=XCalc\n");
        m_sleeper = m_fixture.writeEntry("nimbotest-sleeper.desktop", "Exec=sleep 300\n");
        m_tracker = std::make_shared<X11RunningApps>(m_launched);
        QVERIFY(m_tracker->isTracking());
        m_manager = std::make_unique<HVAppManager>(
            &m_fixture.defaults(), std::make_shared<GioEntryReader>(),
            std::make_shared<DesktopAppActions>(m_tracker, m_launched, QProcess::systemEnvironment()));
        m_manager->setRunningAppsSource(m_tracker.get());
    }

    void cleanupTestCase()
    {
        for (const QString& entry : {m_xterm, m_logo, m_calc, m_sleeper}) {
            for (qint64 pid : m_launched->pidsForEntry(entry))
                ::kill(pid_t(pid), SIGKILL);
        }
    }

    void launchingPutsAppsInTheRunningListInLaunchOrder()
    {
        for (const QString& entry : {m_xterm, m_logo, m_calc}) {
            QVERIFY(record(entry)->launchWithItems(std::nullopt));
            QTRY_VERIFY_WITH_TIMEOUT(m_manager->isAppRunning(record(entry)), 10000);
        }
        QCOMPARE(pathsOf(m_manager->runningApps()), QStringList({m_xterm, m_logo, m_calc}));
        QCOMPARE(m_launched->pidsForEntry(m_xterm).size(), 1); // the process quitting ends below
    }

    void switchingFocusUpdatesFrontOrderAndLastActiveApp()
    {
        for (const QString& entry : {m_xterm, m_logo, m_xterm, m_calc, m_logo}) {
            QVERIFY(record(entry)->activate());
            QTRY_COMPARE(activePath(), entry);
        }
        QCOMPARE(pathsOf(m_manager->frontApps()).mid(m_manager->frontApps().size() - 3),
                 QStringList({m_xterm, m_calc, m_logo}));
        QCOMPARE(pathsOf(m_manager->frontApps()).count(m_logo), 1);
    }

    void launchingARunningAppActivatesIt()
    {
        QVERIFY(record(m_calc)->activate());
        QTRY_COMPARE(activePath(), m_calc);
        const int launches = m_launched->count();
        QVERIFY(record(m_xterm)->launchWithItems(QList<QUrl>()));
        QTRY_COMPARE(activePath(), m_xterm);
        QCOMPARE(m_launched->count(), launches);
    }

    void quittingClosesTheAppAndItLeavesTheListOrEndsItsProcess()
    {
        const qint64 pid = m_launched->pidsForEntry(m_xterm).value(0);
        m_manager->quitApp(record(m_xterm));
        QTRY_VERIFY_WITH_TIMEOUT(!m_manager->isAppRunning(record(m_xterm)), 10000);
        QCOMPARE(pathsOf(m_manager->runningApps()), QStringList({m_logo, m_calc}));
        QTRY_VERIFY(!ProcFs::isLiveProcessOfUser(pid));
        // xcalc names no process on its window: it is known by its window's class alone.
        m_manager->quitApp(record(m_calc));
        QTRY_COMPARE(pathsOf(m_manager->runningApps()), QStringList({m_logo}));
        QVERIFY(!m_manager->frontApps().contains(record(m_calc)));

        // An application without windows is not running, but quitting it ends its process.
        QVERIFY(record(m_sleeper)->launchWithItems(std::nullopt));
        QTRY_COMPARE(m_launched->pidsForEntry(m_sleeper).size(), 1);
        const qint64 sleeper = m_launched->pidsForEntry(m_sleeper).first();
        QVERIFY(!m_manager->isAppRunning(record(m_sleeper)));
        m_manager->quitApp(record(m_sleeper));
        QTRY_VERIFY(!ProcFs::isLiveProcessOfUser(sleeper));
    }

    void aWindowNoEntryClaimsCountsAsItsProgram()
    {
        const QString recorder = QFileInfo(QStringLiteral(NIMBO_ARGV_RECORDER)).canonicalFilePath();
        m_stranger.start(recorder, {m_fixture.recordFile("stranger")});
        QTRY_VERIFY_WITH_TIMEOUT(m_manager->isAppRunning(record(recorder)), 10000);
        const HVAppRef stranger = record(recorder); // the running record
        // Named by its window's class, which the toolkit sets to the program's name.
        QCOMPARE(stranger->name(), QString("argvrecorder"));
        QCOMPARE(stranger->icon().size(), QSize(32, 32));
        QCOMPARE(stranger->icon().pixel(16, 16), QColor(Qt::red).rgb());
        m_stranger.terminate();
        QTRY_VERIFY(!m_manager->isAppRunning(stranger));
    }
};

QTEST_MAIN(TestRunningApps)
#include "tst_runningapps.moc"
