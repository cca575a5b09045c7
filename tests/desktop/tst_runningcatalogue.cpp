// The catalogue's running list, front order and last active application, fed by a source
// whose answers the test sets.
#include "support/catalogueharness.h"

#include "catalogue/hvappmanager.h"
#include "catalogue/iconloader.h"
#include "catalogue/runningappssource.h"
#include "platform/desktopiconsource.h"

#include <QtTest>

namespace {
class FakeSource : public RunningAppsSource
{
public:
    QList<RunningApplication> apps;
    QString active;
    QString own = QStringLiteral("/own/nimbo.desktop");

    QList<RunningApplication> runningApplications() const override { return apps; }
    QString activeApplicationPath() const override { return active; }
    QString ownApplicationPath() const override { return own; }

    void run(const QStringList& paths)
    {
        apps.clear();
        for (const QString& path : paths)
            apps.append({path, QString(), QImage()});
        emit applicationLaunched();
    }
    void bringToFront(const QString& path)
    {
        active = path;
        emit frontApplicationSwitched();
    }
};

const auto pathsOf = &HVAppManager::pathsFromApps;
} // namespace

class TestRunningCatalogue : public QObject
{
    Q_OBJECT
    std::unique_ptr<CatalogueHarness> h;
    std::unique_ptr<FakeSource> m_source;

    HVAppManager& manager() { return h->manager(); }

private slots:
    void init()
    {
        h = std::make_unique<CatalogueHarness>();
        m_source = std::make_unique<FakeSource>();
        manager().setRunningAppsSource(m_source.get()); // cases that fill the source first set it again
    }
    void cleanup() { h.reset(); }

    void givingTheSourceFillsTheListAndStartsTheFrontOrder()
    {
        m_source->apps = {{"/a/B.desktop", {}, {}}, {"/a/A.desktop", {}, {}}};
        m_source->active = "/a/A.desktop";
        QSignalSpy changes(&manager(), &HVAppManager::didChange);
        manager().setRunningAppsSource(m_source.get());
        QCOMPARE(pathsOf(manager().runningApps()), QStringList({"/a/B.desktop", "/a/A.desktop"}));
        QCOMPARE(pathsOf(manager().frontApps()), QStringList({"/a/A.desktop"}));
        QCOMPARE(QList<QVariantList>(changes), QList<QVariantList>{{QStringList{"runningApps"}}});
    }

    void runningRecordsAreTheCataloguesOwnAndSurviveRebuilds()
    {
        const HVAppRef catalogued = manager().appForPath("/a/A.desktop");
        catalogued->setIcon(QImage(4, 4, QImage::Format_ARGB32));
        m_source->run({"/a/A.desktop", "/a/B.desktop"});
        QCOMPARE(manager().runningApps().first().get(), catalogued.get());
        const HVAppRef b = manager().runningApps().at(1);
        m_source->run({"/a/C.desktop", "/a/B.desktop"});
        QCOMPARE(manager().runningApps().at(1).get(), b.get());
        // Running records do not join the everything-set by running.
        QVERIFY(!manager().everythingSet().contains(b));
        // A record made later for the same path is the running one.
        QCOMPARE(manager().appForPath("/a/B.desktop").get(), b.get());
    }

    void aProgramWithoutEntryKeepsItsWindowsIconWhenIconsLoadAgain()
    {
        QImage red(8, 8, QImage::Format_ARGB32);
        red.fill(Qt::red);
        m_source->apps = {{"/usr/bin/xeyes", "XEyes", red}};
        manager().setRunningAppsSource(m_source.get());
        const HVAppRef eyes = manager().runningApps().value(0);
        QVERIFY(eyes);
        // A new icon size loads icons again: the program file has none, so the window's stays.
        DesktopIconSource::Settings icons = DesktopIconSource::userSettings();
        icons.cacheFolder.clear();
        IconLoader::sharedIconLoader()->setIconSource(std::make_shared<DesktopIconSource>(icons));
        h->defaults().setInteger(96, "maximumIconSize");
        manager().loadIconsForApps(manager().runningApps());
        QVERIFY(IconLoader::sharedIconLoader()->waitUntilIdle(10000));
        IconLoader::sharedIconLoader()->setIconSource(nullptr);
        QCOMPARE(eyes->icon().pixel(3, 3), QColor(Qt::red).rgb());
        QCOMPARE(eyes->colorSortParameters().iconSize, quint64(96));
    }

    void withoutLaunchOrderTheListFollowsTheSortOrder()
    {
        h->defaults().setBool(false, "sortRunningByLaunchOrder");
        m_source->run({"/x/Zed.desktop", "/x/Alpha.desktop", "/x/Mid.desktop", "/x/Beta.desktop"});
        QCOMPARE(pathsOf(manager().runningApps()),
                 QStringList({"/x/Alpha.desktop", "/x/Beta.desktop", "/x/Mid.desktop", "/x/Zed.desktop"}));
    }

    void lastActiveAppSkipsThisProgram()
    {
        QVERIFY(!manager().lastActiveApp());
        // When this program is all that runs, the walk ends at the first record: this program.
        m_source->run({m_source->own});
        m_source->bringToFront(m_source->own);
        QCOMPARE(manager().lastActiveApp()->path(), m_source->own);
        // Only this program came to the front: the latest launched other application.
        m_source->run({"/a/A.desktop", "/a/B.desktop", m_source->own});
        QCOMPARE(manager().lastActiveApp()->path(), QString("/a/B.desktop"));
        // Otherwise the latest other application in front.
        m_source->bringToFront("/a/A.desktop");
        m_source->bringToFront(m_source->own);
        QCOMPARE(manager().lastActiveApp()->path(), QString("/a/A.desktop"));
        // Nothing in front (the desktop itself has the focus) changes nothing.
        m_source->bringToFront(QString());
        QCOMPARE(pathsOf(manager().frontApps()), QStringList({"/a/A.desktop", m_source->own}));
    }

    void activeAndRunningAppsAreFoundByPath()
    {
        m_source->run({"/a/A.desktop"});
        QVERIFY(manager().isAppRunning(std::make_shared<HVApp>("/a/./A.desktop")));
        QVERIFY(!manager().isAppRunning(std::make_shared<HVApp>("/a/a.desktop")));
        QVERIFY(!manager().isAppRunning(nullptr));
        // An active application outside the running list.
        m_source->active = "/a/Panel.desktop";
        const HVAppRef active = manager().activeApp();
        QCOMPARE(active->path(), QString("/a/Panel.desktop"));
        QVERIFY(!manager().isAppRunning(active));
        m_source->active = "/a/A.desktop";
        QCOMPARE(manager().activeApp().get(), manager().runningApps().first().get());
    }

    void aSourceThatGoesAwayLeavesNothingRunning()
    {
        m_source->run({"/a/A.desktop"});
        m_source.reset();
        manager().runningAppsListDidChange();
        QVERIFY(manager().runningApps().isEmpty());
        QVERIFY(!manager().activeApp());
        QVERIFY(manager().frontApps().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestRunningCatalogue)
#include "tst_runningcatalogue.moc"
