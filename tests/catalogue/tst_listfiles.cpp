// The list files on disk: round trips (the catalogue's own file is written by every scan and
// read by every catalogue test; the exclusion file is written as the flat favourites are, and
// read in the catalogue test), the flat order's migration, and files that are corrupt or of
// the wrong shape (kept aside or ignored, never lost).
#include "support/catalogueharness.h"

#include "catalogue/listfilestore.h"

#include <QDir>
#include <QtTest>

using Bunches = QList<QStringList>;

class TestListFiles : public QObject
{
    Q_OBJECT

    static QVariantList paths(const QStringList& list) { return QVariantList(list.begin(), list.end()); }

    static QStringList corruptCopies(const QString& fileName)
    {
        return QDir(ListFileStore::userFolder()).entryList({fileName + ".corrupt-*"});
    }

private slots:
    void everyFileRoundTrips()
    {
        CatalogueHarness h;
        HVAppManager& m = h.manager();
        const HVAppBunches apps{h.apps({"/a/Ä b.desktop", "/a/<&>.desktop"}), {}, h.apps({"/b/C.desktop"})};
        QVERIFY(m.writeAppArrays(apps, HVListFileNames::UserApplications));
        QVERIFY(
            m.writeAppArray(h.apps({"/b/C.desktop", "/a/Ä b.desktop"}), HVListFileNames::UserApplications1D));

        m.readUserAppsFromDisk();
        QCOMPARE(h.names(m.userApps()), (Bunches{{"Ä b", "<&>"}, {}, {"C"}}));
        QCOMPARE(h.names(m.userApps1D()), (QStringList{"C", "Ä b"}));

        // The files are XML property lists; an empty list is written as an empty array.
        QVERIFY(m.writeAppArray(HVAppBunch(), HVListFileNames::UserApplications1D));
        QFile file(ListFileStore::userFolder() + "/" + HVListFileNames::UserApplications1D);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray xml = file.readAll();
        QVERIFY(xml.startsWith("<?xml"));
        QVERIFY(xml.contains("<array/>") || xml.contains("<array></array>") ||
                xml.contains("<array>\n</array>"));
        // Writes leave no temporary files behind.
        QCOMPARE(QDir(ListFileStore::userFolder()).entryList(QDir::Files).size(), 2);
    }

    // An empty flat order, as a missing one (which the catalogue test's derived flat list reads),
    // is derived once...
    void flatOrderIsDerivedOnceWhenMissingOrEmpty()
    {
        CatalogueHarness h;
        h.writeUserFile(HVListFileNames::UserApplications, {QVariant(paths({"/a/B.desktop", "/a/A.desktop"})),
                                                            QVariant(paths({"/a/C.desktop"}))});
        h.writeUserFile(HVListFileNames::UserApplications1D, {});
        h.manager().readUserAppsFromDisk();
        QCOMPARE(h.names(h.manager().userApps1D()), (QStringList{"B", "A", "C"}));
        // ... and saved with the next change.
        h.manager().moveApp(h.app("/a/C.desktop"), HVAppGroupUser1D, 0, 0);
        QCOMPARE(h.readUserFile(HVListFileNames::UserApplications1D),
                 paths({"/a/C.desktop", "/a/B.desktop", "/a/A.desktop"}));
    }

    void corruptFilesAreKeptAsideAndNeverOverwritten()
    {
        CatalogueHarness h;
        const QByteArray garbage = "<?xml version=\"1.0\"?><plist><array><string>/a/A.desktop</str";
        h.env().writeFile("data/Nimbo/UserApplications.plist", garbage);
        h.env().writeFile("data/Nimbo/AllApplications.plist", QByteArray("\0\1\2bplist00\xff", 12));
        h.manager().readUserAppsFromDisk();
        h.manager().readAllAppsFromDisk();
        QCOMPARE(std::tuple(h.manager().userApps().isEmpty(), h.manager().allApps().isEmpty()),
                 std::tuple(true, true));
        const QStringList aside = corruptCopies(HVListFileNames::UserApplications);
        QCOMPARE(aside.size(), 1);
        QCOMPARE(corruptCopies(HVListFileNames::AllApplications).size(), 1);
        QFile kept(ListFileStore::userFolder() + "/" + aside.first());
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QCOMPARE(kept.readAll(), garbage);

        // A corrupt file that appears later is set aside before a write replaces it.
        h.env().writeFile("data/Nimbo/ExcludedApplications.plist", "not a plist at all");
        h.manager().excludeApp(h.app("/a/A.desktop"));
        QCOMPARE(corruptCopies(HVListFileNames::ExcludedApplications).size(), 1);
        QCOMPARE(h.readUserFile(HVListFileNames::ExcludedApplications), paths({"/a/A.desktop"}));
    }

    void filesOfTheWrongShapeAreIgnored()
    {
        CatalogueHarness h;
        // Flat where bunches belong, bunches where a flat list belongs, and a dictionary.
        h.writeUserFile(HVListFileNames::AllApplications, paths({"/a/A.desktop"}));
        h.writeUserFile(HVListFileNames::ExcludedApplications, {QVariant(paths({"/a/A.desktop"}))});
        h.env().writeFile("data/Nimbo/UserApplications.plist",
                          "<?xml version=\"1.0\"?><plist "
                          "version=\"1.0\"><dict><key>a</key><string>b</string></dict></plist>");
        h.manager().readAllAppsFromDisk();
        h.manager().readExcludedApps1DFromDisk();
        h.manager().readUserAppsFromDisk();
        QCOMPARE(std::tuple(h.manager().allApps().isEmpty(), h.manager().excludedApps1D().isEmpty(),
                            h.manager().userApps().isEmpty()),
                 std::tuple(true, true, true));
        // Wrong shape is not corruption: nothing is renamed.
        QVERIFY(corruptCopies(HVListFileNames::UserApplications).isEmpty());

        // Stray non-path elements inside a good file are dropped, the rest kept; so are strings
        // holding a NUL byte, at the top and inside a bunch, where reading one once stopped the program.
        const QByteArray nul("/a/B\0.desktop", 14);
        h.env().writeFile("data/Nimbo/UserApplications.plist",
                          "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><array><string>/a/A.desktop"
                          "</string><integer>3</integer><string>" +
                              nul + "</string></array><true/><string>" + nul + "</string></array></plist>");
        h.manager().readUserAppsFromDisk();
        QCOMPARE(h.names(h.manager().userApps()), Bunches{{"A"}});
    }
};

QTEST_GUILESS_MAIN(TestListFiles)
#include "tst_listfiles.moc"
