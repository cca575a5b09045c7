// Ordering by path, name and colour, the lists that are never sorted, and the triggers that
// re-sort: the sort-order preference and the one-second colour re-sort after icon changes.
#include "support/catalogueharness.h"

#include "common/hvnotificationcenter.h"
#include "common/notificationnames.h"

#include <QtTest>

namespace {
// Names as desktop entries would give them, keyed by file name.
class NamedEntries : public DesktopEntryReader
{
public:
    QString localisedName(const QString& path) const override
    {
        static const QHash<QString, QString> names{{"z.desktop", "alpha"},
                                                   {"y.desktop", "Beta"},
                                                   {"x.desktop", "Écran"},
                                                   {"w.desktop", "Beta"},
                                                   {"v.desktop", "Fichiers"}};
        return names.value(path.section('/', -1));
    }
};
} // namespace

class TestOrdering : public QObject
{
    Q_OBJECT

    static QStringList paths(const HVAppBunch& apps) { return HVAppManager::pathsFromApps(apps); }

private slots:
    void threeOrders()
    {
        TestEnvironment env;
        HVUserDefaults defaults(env.configHome() + "/Nimbo/Nimbo.conf");
        HVAppManager m(&defaults, std::make_shared<NamedEntries>());
        HVAppBunch apps = m.appsFromPaths({"/B/y.desktop", "/a/x.desktop", "/c/z.desktop", "/A/w.desktop"});

        // By the whole path, ignoring case.
        defaults.setInteger(0, "groupContentsSortOrder");
        m.sortArray(apps);
        QCOMPARE(paths(apps), (QStringList{"/A/w.desktop", "/a/x.desktop", "/B/y.desktop", "/c/z.desktop"}));

        // By display name, ignoring case; equal names by file name. In English "Écran" sorts
        // with the e's; in the C locale after every ASCII letter.
        defaults.setInteger(1, "groupContentsSortOrder");
        HVAppBunch withF = apps + m.appsFromPaths({"/v.desktop"});
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        m.sortArray(withF);
        QCOMPARE(paths(withF),
                 (QStringList{"/c/z.desktop", "/A/w.desktop", "/B/y.desktop", "/a/x.desktop", "/v.desktop"}));
        QLocale::setDefault(QLocale::c());
        m.sortArray(withF);
        QCOMPARE(paths(withF),
                 (QStringList{"/c/z.desktop", "/A/w.desktop", "/B/y.desktop", "/v.desktop", "/a/x.desktop"}));

        // By colour: ascending values, equal values keep their order. Unknown orders sort by name.
        apps[0]->setColorSortValue(1.5);
        apps[1]->setColorSortValue(0.2);
        apps[2]->setColorSortValue(10.0);
        apps[3]->setColorSortValue(0.2);
        defaults.setInteger(2, "groupContentsSortOrder");
        m.sortArray(apps);
        // "Écran" and "alpha" tie: by name or path "alpha" would come first.
        QCOMPARE(paths(apps), (QStringList{"/a/x.desktop", "/c/z.desktop", "/A/w.desktop", "/B/y.desktop"}));
        // Resetting the colour options leaves the order itself alone.
        m.resetColorSortingOptions();
        QCOMPARE(m.sortOrder(), int(HVAppManager::SortByColor));
        defaults.setInteger(7, "groupContentsSortOrder");
        QCOMPARE(m.sortOrder(), int(HVAppManager::SortByName));
    }

    void sortOrderObserverResortsOnceAndNeverTouchesTheUserLists()
    {
        CatalogueHarness h;
        h.writeUserFile(HVListFileNames::AllApplications,
                        {QVariant(QVariantList{"/b/A.desktop", "/a/B.desktop"})});
        h.writeUserFile(HVListFileNames::UserApplications,
                        {QVariant(QVariantList{"/b/A.desktop", "/a/B.desktop"})});
        h.manager().readAllAppsFromDisk();
        h.manager().readUserAppsFromDisk();
        h.manager().awakeFromNib();
        QSignalSpy spy(&h.manager(), &HVAppManager::didChange);

        h.defaults().setInteger(0, "groupContentsSortOrder");
        QCOMPARE(paths(h.manager().allApps1D()), (QStringList{"/a/B.desktop", "/b/A.desktop"}));
        QCOMPARE(paths(h.manager().userApps1D()), (QStringList{"/b/A.desktop", "/a/B.desktop"}));
        const int changes = spy.count();
        QVERIFY(changes > 0);
        // Writing the same value again, as another type, does nothing.
        h.defaults().setDouble(0.0, "groupContentsSortOrder");
        QCOMPARE(spy.count(), changes);
        h.manager().tearDown();
        h.defaults().setInteger(1, "groupContentsSortOrder");
        QCOMPARE(spy.count(), changes);
    }

    void colourChangesResortOnceASecondAfterTheLastIcon()
    {
        CatalogueHarness h;
        h.writeUserFile(HVListFileNames::AllApplications,
                        {QVariant(QVariantList{"/a/A.desktop", "/a/B.desktop", "/a/C.desktop"})});
        h.manager().readAllAppsFromDisk();
        h.defaults().setInteger(2, "groupContentsSortOrder");
        h.manager().awakeFromNib();
        const HVAppBunch apps = h.manager().allApps1D();
        HVNotificationCenter* center = HVNotificationCenter::defaultCenter();

        QElapsedTimer clock;
        clock.start();
        for (int i = 0; i < 3; ++i) {
            apps[i]->setColorSortValue(3 - i);
            center->postNotificationName(HVNotificationNames::AppIconChanged, QVariant::fromValue(apps[i]));
            QTest::qWait(300);
        }
        QCOMPARE(paths(h.manager().allApps1D()),
                 (QStringList{"/a/A.desktop", "/a/B.desktop", "/a/C.desktop"}));
        QTRY_COMPARE(paths(h.manager().allApps1D()),
                     (QStringList{"/a/C.desktop", "/a/B.desktop", "/a/A.desktop"}));
        QVERIFY(clock.elapsed() >= 1500); // one second after the last change, not after the first

        // A notification without a record only cancels a pending re-sort.
        apps[0]->setColorSortValue(0);
        center->postNotificationName(HVNotificationNames::AppIconChanged, QVariant::fromValue(apps[0]));
        center->postNotificationName(HVNotificationNames::AppIconChanged);
        QVERIFY(!h.manager().hasPendingColorSort());
        QTest::qWait(1200);
        QCOMPARE(paths(h.manager().allApps1D()).first(), QStringLiteral("/a/C.desktop"));
        h.manager().tearDown();
    }
};

QTEST_GUILESS_MAIN(TestOrdering)
#include "tst_ordering.moc"
