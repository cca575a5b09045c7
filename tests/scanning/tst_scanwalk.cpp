// The walk through the scan folders: the recursion depth, what is added, descended into or
// left alone, scan folders given twice or inside one another, the query roots, progress, the
// scan-folder preference and its migration, and when the catalogue rescans.
#include "entrytree.h"
#include "support/catalogueharness.h"

#include "catalogue/hvarraycontroller.h"
#include "catalogue/hvqueryroots.h"
#include "common/hvnotificationcenter.h"
#include "common/notificationnames.h"

#include <QtTest>

using Bunches = QList<QStringList>;
using EntryTree::folderList;

class TestScanWalk : public QObject
{
    Q_OBJECT

    QList<QVariantMap> m_progress;
    QByteArray m_savedHome;

    // The names in each bunch, sorted: a scan on its own keeps the order the walk met them in.
    static Bunches sortedNames(const HVAppBunches& bunches)
    {
        Bunches names = CatalogueHarness::names(bunches);
        for (QStringList& bunch : names)
            bunch.sort();
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

    void walkStopsAtTheRecursionDepth()
    {
        for (const auto& [preference, limit, found] :
             {std::tuple(0, qint64(1), QStringList{"top"}),
              std::tuple(150, qint64(99), QStringList{"four", "one", "top"})}) {
            CatalogueHarness h;
            const QString apps = h.env().dataHome() + "/applications";
            EntryTree::app(apps + "/top.desktop");
            EntryTree::app(apps + "/a/one.desktop");
            EntryTree::app(apps + "/a/b/c/d/four.desktop");
            h.defaults().setInteger(preference, "maxFolderRecursionDepth");
            h.manager().scanSearchFoldersForAllApps();
            QCOMPARE(
                std::tuple(preference, h.manager().maxRecursionDepth(), sortedNames(h.manager().allApps())),
                std::tuple(preference, limit, Bunches{found}));
        }
    }

    // Hidden names, ".framework" folders, links to folders and file names that are almost entries
    // are in the tree the catalogue is compared with GIO on; here no entry reader vets what the
    // walk lets through.
    void foldersNamedLikeEntriesCountAndIdsMask()
    {
        CatalogueHarness h; // no entry reader: every entry file shows
        const QString apps = h.env().dataHome() + "/applications";
        const QString system = h.env().systemDataDir() + "/applications";
        EntryTree::app(apps + "/plain.desktop");
        // A real folder is a folder, whatever its name; a link to one is neither.
        EntryTree::app(apps + "/folder.desktop/nested.desktop");
        EntryTree::app(h.env().root() + "/elsewhere/linkedfolder.desktop");
        EntryTree::link(h.env().root() + "/elsewhere", apps + "/linkdir.desktop");
        // A later folder's entry with a desktop ID an earlier folder holds is masked.
        EntryTree::app(apps + "/kde-x-viewer.desktop");
        EntryTree::app(system + "/kde/x/viewer.desktop");
        EntryTree::app(system + "/kde/editor.desktop");
        h.manager().scanSearchFoldersForAllApps();
        QCOMPARE(sortedNames(h.manager().allApps()),
                 (Bunches{{"kde-x-viewer", "nested", "plain"}, {"editor"}}));
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
        QCOMPARE(sortedNames(h.manager().allApps()), (Bunches{{"outer"}, {"inner", "innerdeep"}}));
        // Progress: one step per folder to scan, then the end (whose count of 0 the live test counts).
        QCOMPARE(m_progress.size(), 4);
        QCOMPARE(m_progress.at(1), (QVariantMap{{"step", 2}, {"count", 3}, {"label", outer + "/Utilities"}}));
        // The live query watches the outer folder only.
        QCOMPARE(h.manager().spotlightScanPaths(), (QStringList{outer, h.env().root() + "/Missing"}));
    }

    void scanWritesTheCatalogueWhileFlaggedBusy()
    {
        CatalogueHarness h;
        const QString entry = EntryTree::app(h.env().dataHome() + "/applications/a.desktop");
        QList<bool> seen;
        connect(&h.manager(), &HVAppManager::didChange, this, [&](const QStringList& keys) {
            if (keys.contains(HVAppListKeys::IsBusyScanning))
                seen.append(h.manager().isBusyScanning());
        });
        h.manager().scanSearchFoldersForAllApps();
        QCOMPARE(seen, (QList<bool>{true, false}));
        QCOMPARE(h.readUserFile(HVListFileNames::AllApplications), (QVariantList{QVariantList{entry}}));

        // No scan folders: an empty catalogue is written over the last one, and nothing is watched.
        m_progress.clear();
        h.defaults().setObject(QVariantList(), "searchDirectories");
        h.manager().scanSearchFoldersForAllApps();
        QCOMPARE(h.readUserFile(HVListFileNames::AllApplications), QVariantList());
        QCOMPARE(m_progress.size(), 1); // only the end
        QVERIFY(h.manager().spotlightScanPaths().isEmpty());
    }

    // Folders reach the query roots resolved and once each (the scan folders' list above shows it,
    // and that a folder inside another is left out); here a root given after folders inside it.
    void queryRootsLeaveOutFoldersInsideOthers()
    {
        QCOMPARE(HVQueryRoots::rootsOfTree(*HVQueryRoots::treeForFolders({"/a/b", "/", "/c"})),
                 QStringList{"/"});
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
        QVERIFY(!h.defaults().hasUserValue("scanDirectories")); // so that it happens once only
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
        QTest::qWait(50);
        QCOMPARE(scansSeen(), 1);
        QCOMPARE(h.names(m.missingApps()), QStringList{"gone"});
        m.tearDown();
    }

    void rescanningFollowsFolderChanges()
    {
        CatalogueHarness h;
        HVAppManager& m = h.manager();
        const QString apps = h.env().dataHome() + "/applications";
        EntryTree::app(apps + "/a.desktop");
        h.writeUserFile(HVListFileNames::AllApplications, {QVariant(QVariantList{apps + "/saved.desktop"})});
        // The first call shows the saved catalogue without scanning; the next one scans.
        m.rescanAllAppsPrioritizingGroup(HVAppGroupIncluded);
        QCOMPARE(h.names(m.allApps1D()), QStringList{"saved"});
        m.rescanAllAppsPrioritizingGroup(HVAppGroupIncluded);
        QCOMPARE(h.names(m.allApps1D()), QStringList{"a"});

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
        QCOMPARE(sortedNames(m.allApps()), (Bunches{{"b"}, {"a"}}));
        QCOMPARE(m.spotlightWatchedFolders(), (QStringList{apps, more}));

        // A depth change waits for the next scan.
        h.defaults().setInteger(1, "maxFolderRecursionDepth");
        QCoreApplication::processEvents();
        QCOMPARE(m.maxRecursionDepth(), qint64(1));
        QCOMPARE(scansSeen(), 2);
        m.tearDown();
    }
};

QTEST_GUILESS_MAIN(TestScanWalk)
#include "tst_scanwalk.moc"
