// The icon view's layout: the group it shows, the size it asks the panel for, and the catalogue
// and preference changes that lay it out again.
#include "iconviewfixture.h"

class TestIconViewLayout : public QObject
{
    Q_OBJECT

private slots:
    void theViewTakesTheSizeOfItsGridAndSaysSo()
    {
        IconViewFixture f(IconViewFixture::FiveApps, {}, {{"Alpha"}});
        // (The panel following the size said is seen in tst_resizefade.)
        NotificationSpy resizing("N_SubviewNeedsResizing");
        f.showGroup(8);
        QCOMPARE(resizing.count, 1);
        QCOMPARE(f.view->viewSize(), QSizeF(92, 92)); // one 68-point cell and the margins
        f.view->setGroupToShow(1);
        QCOMPARE(resizing.count, 2);
        // 3 + 2 apps in 2 rows: 2 + 1 columns of 68-point cells, half a cell between the bunches.
        // (The grid's own numbers, and its shrinking, are the layout engine's, in tst_iconlayout.)
        QCOMPARE(f.view->size(), QSize(262, 160));

        f.view->setGroupToShow(1); // nothing changed
        QCOMPARE(resizing.count, 2);
        // A narrow panel: three rows of two columns, whose icons shrink until the grid fits.
        f.view->setMaxIconViewSize(QSizeF(150, 600));
        QCOMPARE(resizing.count, 3);
        QCOMPARE(f.view->viewSize(), QSizeF(149, 174));
        f.view->resizeViewForced(true);
        QCOMPARE(resizing.count, 4);
    }

    void catalogueChangesLayOutOnlyTheGroupTheyConcern()
    {
        IconViewFixture f(IconViewFixture::FiveApps, {}, {{"Alpha"}});
        f.showGroup(1);
        NotificationSpy resizing("N_SubviewNeedsResizing");
        f.manager->removeAppsFromUserApps({f.app("Alpha")});
        QCOMPARE(resizing.count, 0);
        f.manager->excludeApp(f.app("Gamma"));
        f.manager->excludeApp(f.app("Beta"));
        QCOMPARE(f.view->keyFilteredApps1D(), HVAppBunch({f.app("Alpha"), f.app("Delta"), f.app("Epsilon")}));
        // 2 + 2 apps took two rows of two columns; 1 + 2 keep that shape, so the panel stays.
        QCOMPARE(resizing.count, 1);
    }

    void layoutPreferencesLayOutAgain()
    {
        IconViewFixture f;
        f.showGroup(1);
        NotificationSpy resizing("N_SubviewNeedsResizing");
        f.defaults->setInteger(200, "maximumIconSize");
        QCOMPARE(f.view->iconLayout().iconWidth(), 128);
        f.defaults->setInteger(20, "iconPadding");
        QCOMPARE(f.view->iconLayout().cellWidth(), 128 + 16);
        f.defaults->setInteger(3, "iconSpacing");
        QCOMPARE(resizing.count, 3);

        // Stacking the bunches reads down then across; side by side across then down.
        f.defaults->setInteger(1, "groupOrientation");
        QCOMPARE(f.defaults->integerForKey("iconReadingOrder"), 2);
        QCOMPARE(f.view->iconLayout().preferences().groupOrientation, 1);
        f.defaults->setInteger(2, "groupOrientation");
        QCOMPARE(f.defaults->integerForKey("iconReadingOrder"), 1);
        // A reading order that is already right still lets the orientation through.
        f.defaults->setInteger(2, "iconReadingOrder");
        f.defaults->setInteger(1, "groupOrientation");
        QCOMPARE(f.view->iconLayout().preferences().groupOrientation, 1);
        f.defaults->setInteger(0, "groupOrientation");
        QCOMPARE(f.view->groupShown(), 2); // no bunching: the flat twin
        QCOMPARE(f.view->iconLayout().bunchCount(), 1);
    }
};

QTEST_MAIN(TestIconViewLayout)
#include "moc_iconviewfixture.cpp"
#include "tst_iconviewlayout.moc"
