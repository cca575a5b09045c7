// The walk through the scan folders: the recursion depth, what is added, descended into or
// left alone, scan folders given twice or inside one another, the query roots, progress, the
// scan-folder preference and its migration, and when the catalogue rescans.
#include "entrytree.h"
#include "support/catalogueharness.h"

#include "catalogue/hvarraycontroller.h"
#include "catalogue/hvdesktopidclaims.h"
#include "catalogue/hvqueryroots.h"
#include "common/hvnotificationcenter.h"
#include "common/notificationnames.h"

#include <QSignalSpy>
#include <QtTest>

using Bunches = QList<QStringList>;

class TestScanWalk : public QObject
{
    Q_OBJECT

    QList<QVariantMap> m_progress;
    QByteArray m_savedHome;

    static QVariantList folderList(const QStringList& paths)
    {
        QVariantList list;
        for (const QString& path : paths)
            list.append(QVariantMap{{"path", path}});
        return list;
    }

    static QStringList sorted(QStringList list)
    {
        list.sort();
        return list;
    }

    static QList<QStringList> bunchNames(const HVAppBunches& bunches)
    {
        QList<QStringList> names;
        for (const HVAppBunch& bunch : bunches)
            names.append(sorted(CatalogueHarness::names(bunch)));
        return names;
    }

    int scansSeen() const
    {
        return int(std::count_if(m_progress.begin(), m_progress.end(),
                                 [](const QVariantMap& step) { return step.value("count").toInt() == 0; }));
    }

public:
    Q_INVOKABLE void progress(const HVNotification& notification)
    {
        m_progress.append(notification.userInfo);
    }

private slots:
    void init()
    {
        m_progress.clear();
        HVNotificationCenter::defaultCenter()->addButFirstRemoveObserver(
            this, "progress", HVNotificationNames::ShowProgressStep);
        m_savedHome = qgetenv("HOME");
    }

    void cleanup()
    {
        HVNotificationCenter::defaultCenter()->removeObserver(this);
        qputenv("HOME", m_savedHome);
    }

    void walkStopsAtTheRecursionDepth_data()
    {
        QTest::addColumn<int>("preference");
        QTest::addColumn<qint64>("limit");
        QTest::addColumn<QStringList>("found");
        const QStringList top{"top"};
        QTest::newRow("negative gives 1") << -3 << qint64(1) << top;
        QTest::newRow("0 gives 1") << 0 << qint64(1) << top;
        QTest::newRow("2") << 2 << qint64(2) << QStringList{"one", "top"};
        QTest::newRow("default 4: three folders down")
            << 4 << qint64(4) << QStringList{"one", "three", "top", "two"};
        QTest::newRow("150 gives 99")
            << 150 << qint64(99) << QStringList{"four", "one", "three", "top", "two"};
    }

    void walkStopsAtTheRecursionDepth()
    {
        QFETCH(int, preference);
        QFETCH(qint64, limit);
        QFETCH(QStringList, found);
        CatalogueHarness h;
        const QString apps = h.env().dataHome() + "/applications";
        EntryTree::app(apps + "/top.desktop");
        EntryTree::app(apps + "/a/one.desktop");
        EntryTree::app(apps + "/a/b/two.desktop");
        EntryTree::app(apps + "/a/b/c/three.desktop");
        EntryTree::app(apps + "/a/b/c/d/four.desktop");
        h.defaults().setInteger(preference, "maxFolderRecursionDepth");
        h.manager().scanSearchFoldersForAllApps();
        QCOMPARE(h.manager().maxRecursionDepth(), limit);
        QCOMPARE(bunchNames(h.manager().allApps()), QList<QStringList>{found});
    }

    void onlyVisibleEntriesAndRealFoldersCount()
    {
        CatalogueHarness h; // no entry reader: every entry file shows
        const QString apps = h.env().dataHome() + "/applications";
        EntryTree::app(apps + "/plain.desktop");
        EntryTree::app(apps + "/.hidden.desktop");
        EntryTree::app(apps + "/.hiddenfolder/inside.desktop");
        EntryTree::app(apps + "/Kit.framework/framework.desktop");
        EntryTree::app(apps +
                       "/folder.desktop/nested.desktop"); // a real folder is a folder, whatever its name
        EntryTree::app(h.env().root() + "/elsewhere/linkedfolder.desktop");
        EntryTree::link(h.env().root() + "/elsewhere", apps + "/linkdir");
        EntryTree::link(h.env().root() + "/elsewhere", apps + "/linkdir.desktop");
        EntryTree::link(h.env().root() + "/elsewhere/linkedfolder.desktop", apps + "/linkedfile.desktop");
        EntryTree::write(apps + "/notes.txt", "x");
        EntryTree::app(apps + "/Upper.DESKTOP");
        h.manager().scanSearchFoldersForAllApps();
        QCOMPARE(bunchNames(h.manager().allApps()), (QList<QStringList>{{"linkedfile", "nested", "plain"}}));
        // The record keeps the path as found, not the link's target.
        QVERIFY(CatalogueHarness::names(h.manager().allApps1D()).contains("linkedfile"));
        QVERIFY(HVAppManager::pathsFromApps(h.manager().allApps1D()).contains(apps + "/linkedfile.desktop"));
    }

    void repeatedAndNestedScanFoldersAreWalkedOnce()
    {
        CatalogueHarness h;
        qputenv("HOME", h.env().root().toLocal8Bit());
        const QString outer = h.env().root() + "/Apps";
        EntryTree::app(outer + "/outer.desktop");
        EntryTree::app(outer + "/Utilities/inner.desktop");
        EntryTree::app(outer + "/Utilities/deeper/innerdeep.desktop");
        EntryTree::link(outer, h.env().root() + "/AppsLink");
        h.defaults().setObject(folderList({"~/Apps", outer, outer + "/Utilities", "~/AppsLink", "~/Missing"}),
                               "searchDirectories");
        QCOMPARE(h.manager().pathsToScan(),
                 (QStringList{outer, outer + "/Utilities", h.env().root() + "/Missing"}));
        h.manager().scanSearchFoldersForAllApps();
        QCOMPARE(bunchNames(h.manager().allApps()), (QList<QStringList>{{"outer"}, {"inner", "innerdeep"}}));
        // Progress: one step per folder to scan, then the end.
        QCOMPARE(m_progress.size(), 4);
        QCOMPARE(m_progress.at(1), (QVariantMap{{"step", 2}, {"count", 3}, {"label", outer + "/Utilities"}}));
        QCOMPARE(m_progress.at(3), (QVariantMap{{"step", 0}, {"count", 0}, {"label", QString()}}));
        // The live query watches the outer folder only.
        QCOMPARE(h.manager().spotlightScanPaths(), (QStringList{outer, h.env().root() + "/Missing"}));
    }

    void desktopIdsAreMaskedAcrossFolders()
    {
        CatalogueHarness h;
        const QString user = h.env().dataHome() + "/applications";
        const QString system = h.env().systemDataDir() + "/applications";
        EntryTree::app(user + "/kde-viewer.desktop");
        EntryTree::app(system + "/kde/viewer.desktop"); // the same desktop ID: masked
        EntryTree::app(system + "/kde/editor.desktop");
        EntryTree::app(system + "/other.desktop");
        h.manager().scanSearchFoldersForAllApps();
        QCOMPARE(bunchNames(h.manager().allApps()),
                 (QList<QStringList>{{"kde-viewer"}, {"editor", "other"}}));

        HVDesktopIdClaims claims;
        QCOMPARE(HVDesktopIdClaims::desktopId("/s/apps", "/s/apps/kde/x/y.desktop"),
                 QString("kde-x-y.desktop"));
        QCOMPARE(claims.claim("a.desktop", 0, "/0/a.desktop"), HVDesktopIdClaims::Claimed);
        QString replaced;
        QCOMPARE(claims.claim("a.desktop", 0, "/0/a/../a-x", &replaced), HVDesktopIdClaims::Replaced);
        QCOMPARE(replaced, QString("/0/a.desktop"));
        QCOMPARE(claims.claim("a.desktop", 1, "/1/a.desktop"), HVDesktopIdClaims::Masked);
    }

    void noScanFoldersWriteAnEmptyCatalogue()
    {
        CatalogueHarness h;
        h.writeUserFile(HVListFileNames::AllApplications, {QVariant(QVariantList{"/old/x.desktop"})});
        h.defaults().setObject(QVariantList(), "searchDirectories");
        h.manager().scanSearchFoldersForAllApps();
        QVERIFY(h.manager().allApps().isEmpty());
        QVERIFY(QFile::exists(ListFileStore::userFolder() + "/AllApplications.plist"));
        QCOMPARE(h.readUserFile(HVListFileNames::AllApplications), QVariantList());
        QCOMPARE(m_progress.size(), 1); // only the end
        QVERIFY(h.manager().spotlightScanPaths().isEmpty());
    }

    void busyFlagSpansTheScan()
    {
        CatalogueHarness h;
        EntryTree::app(h.env().dataHome() + "/applications/a.desktop");
        QSignalSpy will(&h.manager(), &HVAppManager::willChange);
        QList<bool> seen;
        connect(&h.manager(), &HVAppManager::didChange, this, [&](const QStringList& keys) {
            if (keys.contains(HVAppListKeys::IsBusyScanning))
                seen.append(h.manager().isBusyScanning());
        });
        h.manager().scanSearchFoldersForAllApps();
        QCOMPARE(seen, (QList<bool>{true, false}));
        QVERIFY(!h.manager().isBusyScanning());
        QCOMPARE(h.readUserFile(HVListFileNames::AllApplications),
                 (QVariantList{QVariantList{h.env().dataHome() + "/applications/a.desktop"}}));
    }

    void queryRootsLeaveOutFoldersInsideOthers()
    {
        const auto tree =
            HVQueryRoots::treeForFolders({"/usr/share/applications", "/opt/apps/",
                                          "/usr/share/applications/kde", "/usr/share", "/opt/apps"});
        QCOMPARE(tree->name(), QString("root"));
        QVERIFY(tree->isRoot());
        QCOMPARE(HVQueryRoots::rootsOfTree(*tree), (QStringList{"/usr/share", "/opt/apps"}));
        const HVNode* slash = tree->children().first();
        QCOMPARE(slash->name(), QString("/"));
        QCOMPARE(slash->children().size(), 2);
        QCOMPARE(HVQueryRoots::rootsOfTree(*HVQueryRoots::treeForFolders({"/a/b", "/", "/c"})),
                 QStringList{"/"});

        HVNode node("n");
        QVERIFY(node.isLeaf());
        QCOMPARE(node.addChildWithName(QString()), nullptr);
        HVNode* child = node.addChildWithName("x");
        QCOMPARE(node.addChildWithName("x"), child);
        QCOMPARE(child->parent(), &node);
        QVERIFY(!node.isLeaf() && !child->isRoot());
    }

    void scanFolderDefaultsAndMigration()
    {
        CatalogueHarness h;
        qputenv("HOME", h.env().root().toLocal8Bit());
        qputenv("XDG_DATA_DIRS", QByteArray("/usr/share:") + h.env().systemDataDir().toLocal8Bit());
        QCOMPARE(HVArrayController::defaultSearchDirectories(),
                 folderList({"~/data/applications", "/usr/share/applications", "~/system/applications"}));

        h.defaults().setObject(QVariantList{"/x", "~/y", 7}, "scanDirectories");
        h.defaults().setObject(folderList({"/replaced"}), "searchDirectories");
        HVArrayController::initialize(&h.defaults());
        QCOMPARE(h.defaults().objectForKey("searchDirectories").toList(), folderList({"/x", "~/y"}));
        QVERIFY(!h.defaults().hasUserValue("scanDirectories"));
        HVArrayController::initialize(&h.defaults()); // once only
        QCOMPARE(h.defaults().objectForKey("searchDirectories").toList(), folderList({"/x", "~/y"}));
    }

    // Started as the application starts it (observing first, then the first scan), the catalogue
    // scans once: taking up the default scan folders is no change of them. The excluded
    // application that is gone stays in the missing list that scan made.
    void startingUpScansOnce()
    {
        CatalogueHarness h;
        HVAppManager& m = h.manager();
        const QString apps = h.env().dataHome() + "/applications";
        EntryTree::app(apps + "/a.desktop");
        h.writeUserFile(HVListFileNames::ExcludedApplications, {apps + "/gone.desktop"});
        m.awakeFromNib();
        m.rescanAllAppsPrioritizingGroup(HVAppGroupIncluded);
        QCOMPARE(scansSeen(), 1);
        QCOMPARE(CatalogueHarness::names(m.missingApps()), QStringList{"gone"});
        QTest::qWait(50);
        QCOMPARE(scansSeen(), 1);
        QCOMPARE(CatalogueHarness::names(m.missingApps()), QStringList{"gone"});
        m.tearDown();
    }

    void rescanningFollowsFolderChangesAndMissingApps()
    {
        CatalogueHarness h;
        HVAppManager& m = h.manager();
        const QString apps = h.env().dataHome() + "/applications";
        EntryTree::app(apps + "/a.desktop");
        h.writeUserFile(HVListFileNames::AllApplications, {QVariant(QVariantList{apps + "/saved.desktop"})});
        // The first call shows the saved catalogue without scanning; the next one scans.
        m.rescanAllAppsPrioritizingGroup(HVAppGroupIncluded);
        QCOMPARE(CatalogueHarness::names(m.allApps1D()), QStringList{"saved"});
        QCOMPARE(scansSeen(), 0);
        m.rescanAllAppsPrioritizingGroup(HVAppGroupIncluded);
        QCOMPARE(CatalogueHarness::names(m.allApps1D()), QStringList{"a"});
        QCOMPARE(scansSeen(), 1);

        m.awakeFromNib();
        // Folder edits are coalesced into one scan once the event loop is idle.
        const QString more = h.env().root() + "/more";
        EntryTree::app(more + "/b.desktop");
        h.defaults().setObject(folderList({apps, more}), "searchDirectories");
        h.defaults().setObject(folderList({more, apps}), "searchDirectories");
        h.defaults().setObject(QVariantList(), "scanDirectories");
        QCOMPARE(scansSeen(), 1);
        QTRY_COMPARE(scansSeen(), 2);
        QCoreApplication::processEvents();
        QCOMPARE(scansSeen(), 2);
        QCOMPARE(bunchNames(m.allApps()), (QList<QStringList>{{"b"}, {"a"}}));
        QCOMPARE(m.spotlightWatchedFolders(), (QStringList{apps, more}));

        // A depth change waits for the next scan.
        h.defaults().setInteger(1, "maxFolderRecursionDepth");
        QCoreApplication::processEvents();
        QCOMPARE(m.maxRecursionDepth(), qint64(1));
        QCOMPARE(scansSeen(), 2);

        // A launch that found its entry gone rescans at once.
        QFile::remove(apps + "/a.desktop");
        HVNotificationCenter::defaultCenter()->postNotificationName(HVNotificationNames::AppIsMissing);
        QCOMPARE(scansSeen(), 3);
        QCOMPARE(bunchNames(m.allApps()), (QList<QStringList>{{"b"}}));
        m.tearDown();
    }
};

QTEST_GUILESS_MAIN(TestScanWalk)
#include "tst_scanwalk.moc"
