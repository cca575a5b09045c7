// Live updates through inotify: a burst of new entries gives exactly one full rescan, five
// seconds after the last change; an entry no longer shown goes with the rescan,
// while a change to an application already known does not rescan; folders are watched as
// they appear, down to the recursion depth, and a scan folder that does not exist yet is
// waited for.
#include "entrytree.h"
#include "support/testenvironment.h"

#include "catalogue/hvappmanager.h"
#include "common/hvnotificationcenter.h"
#include "common/hvuserdefaults.h"
#include "common/notificationnames.h"
#include "platform/gioentryreader.h"

#include <QElapsedTimer>
#include <QtTest>

class TestScanLive : public QObject
{
    Q_OBJECT

    QElapsedTimer m_clock;
    QList<qint64> m_scanEnds; // when each scan ended

public:
    Q_INVOKABLE void progress(const HVNotification& notification)
    {
        if (notification.userInfo.value("count").toInt() == 0)
            m_scanEnds.append(m_clock.elapsed());
    }

private slots:
    void init()
    {
        m_scanEnds.clear();
        m_clock.start();
        HVNotificationCenter::defaultCenter()->addButFirstRemoveObserver(
            this, "progress", HVNotificationNames::ShowProgressStep);
    }

    void cleanup() { HVNotificationCenter::defaultCenter()->removeObserver(this); }

    void burstGivesOneRescanFiveSecondsAfterTheLastChange()
    {
        TestEnvironment env;
        HVUserDefaults defaults(env.configHome() + "/Nimbo/Nimbo.conf");
        HVAppManager manager(&defaults, std::make_shared<GioEntryReader>());
        const QString apps = env.dataHome() + "/applications";
        EntryTree::app(apps + "/first.desktop");
        manager.rescanAllAppsPrioritizingGroup(HVAppGroupIncluded);
        manager.startSpotlightQuery(); // a scan here would end before the burst: the delay shows it

        // 500 entries in five quick batches, one of them into folders made on the way.
        qint64 lastChange = 0;
        for (int batch = 0; batch < 5; ++batch) {
            const QString folder = batch == 2 ? apps + "/burst/sub" : apps;
            for (int i = 0; i < 100; ++i)
                EntryTree::app(folder + QString("/b%1-%2.desktop").arg(batch).arg(i));
            lastChange = m_clock.elapsed();
            QTest::qWait(150);
        }
        QTRY_COMPARE_WITH_TIMEOUT(m_scanEnds.size(), 2, 10000);
        const qint64 delay = m_scanEnds.last() - lastChange;
        QVERIFY2(delay >= 5000 && delay < 6500, qPrintable(QString::number(delay)));
        QCOMPARE(manager.allApps1D().size(), 501);

        // Rewriting a known application's entry leaves the catalogue alone...
        EntryTree::app(apps + "/b0-1.desktop");
        QTest::qWait(200);
        QVERIFY(!manager.hasPendingFullScan());
        // ...one that no longer shows goes with the next rescan.
        EntryTree::app(apps + "/b0-2.desktop", "NoDisplay=true\n");
        QTRY_VERIFY(manager.hasPendingFullScan());
        QTRY_COMPARE_WITH_TIMEOUT(m_scanEnds.size(), 3, 10000);
        const QStringList paths = HVAppManager::pathsFromApps(manager.allApps1D());
        QCOMPARE(paths.size(), 500);
        QVERIFY(!paths.contains(apps + "/b0-2.desktop"));
    }

    void foldersAreWatchedAsTheyAppear()
    {
        TestEnvironment env;
        HVUserDefaults defaults(env.configHome() + "/Nimbo/Nimbo.conf");
        HVAppManager manager(&defaults);
        const QString later = env.root() + "/later";
        defaults.setObject(EntryTree::folderList({later}), "searchDirectories");
        defaults.setInteger(2, "maxFolderRecursionDepth");
        manager.awakeFromNib();
        manager.startSpotlightQuery();
        QCOMPARE(manager.spotlightWatchedFolders(), QStringList());

        QVERIFY(QDir().mkpath(later + "/a/b"));
        QTRY_COMPARE(manager.spotlightWatchedFolders(), (QStringList{later, later + "/a"}));
        QVERIFY(!manager.hasPendingFullScan()); // empty folders change nothing
        EntryTree::app(later + "/a/x.desktop");
        QTRY_VERIFY(manager.hasPendingFullScan());

        // A deeper limit watches deeper at once; hidden and ".framework" folders never.
        QVERIFY(QDir().mkpath(later + "/.hidden") && QDir().mkpath(later + "/Kit.framework"));
        defaults.setInteger(3, "maxFolderRecursionDepth");
        QCOMPARE(manager.spotlightWatchedFolders(), (QStringList{later, later + "/a", later + "/a/b"}));

        // A scan folder that goes away is waited for again.
        QVERIFY(QDir(later).removeRecursively());
        QTRY_COMPARE(manager.spotlightWatchedFolders(), QStringList());
        QVERIFY(QDir().mkpath(later));
        QTRY_COMPARE(manager.spotlightWatchedFolders(), QStringList{later});
    }
};

QTEST_GUILESS_MAIN(TestScanLive)
#include "tst_scanlive.moc"
