// The catalogue's lists: derived lists after exclusion and scanning, repairs of the user's
// lists, best matches, and the records' identity and letters.
#include "support/catalogueharness.h"

#include <QtTest>

using Bunches = QList<QStringList>;

class TestCatalogue : public QObject
{
    Q_OBJECT

    static QVariantList paths(const QStringList& list) { return QVariantList(list.begin(), list.end()); }

    void scanned(CatalogueHarness& h, const QList<QStringList>& bunches)
    {
        QVariantList arrays;
        for (const QStringList& bunch : bunches)
            arrays.append(QVariant(paths(bunch)));
        h.writeUserFile(HVListFileNames::AllApplications, arrays);
        h.manager().readAllAppsFromDisk();
    }

private slots:
    void recordsAreOnePerStandardisedPath()
    {
        CatalogueHarness h;
        const HVAppRef foo = h.app("/usr/share/applications/Foo.desktop");
        QCOMPARE(h.app("/usr/share//applications/./x/../Foo.desktop/"), foo);
        QVERIFY(h.app("/usr/share/applications/foo.desktop") != foo);
        QCOMPARE(HVApp("/a/org.gnome.Calculator.desktop").name(), QStringLiteral("org.gnome.Calculator"));
    }

    void lettersFollowWordsCamelCaseAndDigits()
    {
        QCOMPARE(HVApp::lettersForName("eBook Reader"), QByteArray("ebr"));
        QCOMPARE(HVApp::lettersForName("HTMLEditor"), QByteArray("he"));
        QCOMPARE(HVApp::lettersForName("PDFs"), QByteArray("ps"));
        QCOMPARE(HVApp::lettersForName("GNU Image Manipulation Program 2.10"), QByteArray("gimp210"));
        QCOMPARE(HVApp::lettersForName("my-app_name.v2"), QByteArray("manv2"));
        // Bytes outside ASCII are neither letters nor spaces: "É" hides the word it starts.
        QCOMPARE(HVApp::lettersForName(QStringLiteral("Éditeur Ärger Bild ☃")), QByteArray("b"));
        HVApp separators("/a/---.desktop");
        separators.findLetters();
        QVERIFY(separators.letters().isEmpty());
        QVERIFY(!separators.containsLetter(0));
    }

    void exclusionSplitsBunchesAndMissingAppsLeaveTheUserLists()
    {
        CatalogueHarness h;
        scanned(h, {{"/a/A.desktop", "/a/B.desktop"}, {"/b/C.desktop", "/b/D.desktop"}, {"/c/E.desktop"}});
        h.writeUserFile(
            HVListFileNames::UserApplications,
            {QVariant(paths({"/a/A.desktop", "/gone/G.desktop"})), QVariant(paths({"/gone/G.desktop"}))});
        h.manager().readUserAppsFromDisk();
        h.manager().excludeApp(h.app("/b/C.desktop"));
        h.manager().excludeApp(h.app("/b/D.desktop"));
        h.manager().excludeApp(h.app("/gone/G.desktop"));
        HVAppManager& m = h.manager();
        QCOMPARE(h.names(m.includedApps()), (Bunches{{"A", "B"}, {"E"}}));
        QCOMPARE(h.names(m.excludedApps()), (Bunches{{"C", "D"}}));
        QCOMPARE(h.names(m.includedApps1D()), (QStringList{"A", "B", "E"}));
        // An excluded app that scanning no longer finds is missing: gone from the exclusion list
        // in memory and from the user's lists (emptied bunches stay), but not from the file yet.
        QCOMPARE(h.names(m.missingApps()), QStringList{"G"});
        QCOMPARE(h.names(m.excludedApps1D()), (QStringList{"C", "D"}));
        QCOMPARE(h.names(m.userApps()), (Bunches{{"A"}, {}}));
        QCOMPARE(h.names(m.userApps1D()), QStringList{"A"});
        QVERIFY(h.readUserFile(HVListFileNames::ExcludedApplications).contains("/gone/G.desktop"));

        m.includeApp(h.app("/b/C.desktop"));
        QCOMPARE(h.names(m.includedApps()), (Bunches{{"A", "B"}, {"C"}, {"E"}}));
        QCOMPARE(h.readUserFile(HVListFileNames::ExcludedApplications), paths({"/b/D.desktop"}));
        QVERIFY(m.missingApps().isEmpty());
    }

    void exclusionFilesOfUserAndMachineAreUnited()
    {
        CatalogueHarness h;
        h.writeUserFile(HVListFileNames::ExcludedApplications, paths({"/a/B.desktop", "/a/A.desktop"}));
        h.env().writeFile("system/Nimbo/ExcludedApplications.plist", R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><array><string>/a/A.desktop</string><string>/a/./C.desktop</string></array></plist>)");
        h.manager().readExcludedApps1DFromDisk();
        QCOMPARE(h.names(h.manager().excludedApps1D()), (QStringList{"A", "B", "C"}));
    }

    // The longest shared tail, a match by file name alone and no match at all are in the repair
    // below and in the moved favourite nimboctl finds again.
    void bestMatchOfSameNamesNeedsASharedTail()
    {
        CatalogueHarness h;
        QCOMPARE(h.manager().bestMatchForApp(h.app("/x/Foo.desktop"), HVAppBunch()), HVAppRef());
        // Same names whose tails share nothing are no match, nor is the first of two equal ties.
        const HVAppBunch twins = h.apps({"/p/Foo.x", "/q/Foo.y"});
        QCOMPARE(h.manager().bestMatchForApp(h.app("/r/Foo.z"), twins), HVAppRef());
        const HVAppBunch ties = h.apps({"/p/Foo.desktop", "/q/Foo.desktop"});
        QCOMPARE(h.manager().bestMatchForApp(h.app("/r/Foo.desktop"), ties), ties.at(0));
    }

    void locateUserAppsRepairsMovedFavourites()
    {
        CatalogueHarness h;
        scanned(h, {{"/new/Apps/Foo.desktop", "/new/Foo.desktop", "/new/Bar.desktop", "/new/Kept.desktop"}});
        h.writeUserFile(HVListFileNames::UserApplications,
                        {QVariant(paths({"/old/Apps/Foo.desktop", "/new/Kept.desktop"})),
                         QVariant(paths({"/old/Nothing.desktop", "/old2/Foo.desktop"}))});
        h.writeUserFile(HVListFileNames::UserApplications1D,
                        paths({"/new/Kept.desktop", "/old2/Foo.desktop", "/old/Apps/Foo.desktop",
                               "/old/Nothing.desktop"}));
        h.manager().readUserAppsFromDisk();
        h.app("/new/Kept.desktop")->setPathIsValid(true);
        h.manager().locateUserApps();
        // Unmatched entries stay; no found record is handed out twice. The file is written from
        // the bunches in memory.
        const QStringList kept{"/new/Apps/Foo.desktop", "/new/Kept.desktop"};
        const QStringList unmatched{"/old/Nothing.desktop", "/new/Foo.desktop"};
        QCOMPARE(h.readUserFile(HVListFileNames::UserApplications),
                 (QVariantList{QVariant(paths(kept)), QVariant(paths(unmatched))}));
        // The repaired arrangement resets the flat order, and both files are saved.
        QCOMPARE(h.manager().pathsFromApps(h.manager().userApps1D()), kept + unmatched);
        QCOMPARE(h.readUserFile(HVListFileNames::UserApplications1D), paths(kept + unmatched));
    }

    void automaticExclusionByNameAndByTheDesktopsFavourites()
    {
        CatalogueHarness h;
        scanned(h,
                {{"/a/Foo Uninstaller.desktop", "/a/Editor.desktop", "/a/Files.desktop", "/a/Term.desktop"}});
        for (const HVAppRef& app : h.manager().allApps1D())
            app->findExcludedStringsInName();
        h.manager().setKeptApplicationsSource([] {
            return QStringList{"/a/Files.desktop", "/elsewhere/X.desktop"};
        });
        h.manager().autoExcludeDockApps(false, true);
        QCOMPARE(h.names(h.manager().excludedApps1D()), QStringList{"Foo Uninstaller"});
        h.manager().autoExcludeDockApps(true, true);
        // The excluded bunch keeps the order of the scanned bunch.
        QCOMPARE(h.names(h.manager().excludedApps()), (Bunches{{"Foo Uninstaller", "Files"}}));
        QCOMPARE(h.readUserFile(HVListFileNames::ExcludedApplications).size(), 2);
    }

    // Each group has a list of its own, the one the panel shows for it.
    void groupsAndTheirLists()
    {
        CatalogueHarness h;
        scanned(h, {{"/a/A.desktop"}});
        HVAppManager& m = h.manager();
        for (int group = HVAppGroupRunning; group <= HVAppGroupUser1D; ++group)
            QCOMPARE(m.groupForAppArray(m.appArrayForGroup(group)), group);
        QVERIFY(m.appArrayForGroup(10).isNull());
        QVERIFY(m.appArrayForGroup(HVAppGroupAll).is2D());
        QVERIFY(!m.appArrayForGroup(HVAppGroupUser).is2D()); // an empty grouped list counts as flat
    }
};

QTEST_GUILESS_MAIN(TestCatalogue)
#include "tst_catalogue.moc"
