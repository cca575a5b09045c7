// The pointer over the icon view: the selection and what it repaints, clicks that act on
// release, Shift- and Command-clicks, and the modifier keys that change the group shown.
#include "iconviewfixture.h"

class TestIconViewPointer : public QObject
{
    Q_OBJECT

private slots:
    void selectionFollowsThePointerRepaintingOnlyTheCellsThatChangeAndAClickActsOnRelease()
    {
        IconViewFixture f;
        f.showGroup(5);
        // (What the selection announces is shown by the overlay, in tst_overlayview.)
        QTest::mouseMove(f.view.get(), f.centreOf("Alpha"));
        QCOMPARE(f.view->appAtCoords(f.view->selectedCoords()), f.app("Alpha"));
        QCoreApplication::processEvents();
        PaintSpy paints(f.view.get());
        QTest::mouseMove(f.view.get(), f.centreOf("Beta")); // same bunch, next cell
        const QRegion expected = QRegion(f.view->rectOfApp(f.app("Alpha")).toAlignedRect()) +
                                 f.view->rectOfApp(f.app("Beta")).toAlignedRect();
        QTRY_COMPARE(paints.painted, expected);

        // Into the top margin: the cell is left, the margin strip entered.
        paints.painted = QRegion();
        QTest::mouseMove(f.view.get(), QPoint(f.centreOf("Beta").x(), 3));
        QVERIFY(f.view->selectedCoords() == (Coords{.bunch = 0, .margin = 0}));
        QTRY_VERIFY(paints.painted.contains(f.view->iconLayout().marginRects().at(0).toAlignedRect()));

        // An icon that changes repaints only its cell.
        QCoreApplication::processEvents();
        paints.painted = QRegion();
        HVNotificationCenter::defaultCenter()->postNotificationName("N_AppIconChanged",
                                                                    QVariant::fromValue(f.app("Delta")));
        QTRY_COMPARE(paints.painted, QRegion(f.view->rectOfApp(f.app("Delta")).toAlignedRect()));

        // A click acts on release, on the app pressed.
        QSignalSpy launches(f.view.get(), &HVIconView::appLaunchRequested);
        QTest::mousePress(f.view.get(), Qt::LeftButton, {}, f.centreOf("Gamma"));
        QCOMPARE(launches.count(), 0);
        QTest::mouseRelease(f.view.get(), Qt::LeftButton, {}, f.centreOf("Gamma"));
        QCOMPARE(launches.count(), 1);
        QTRY_COMPARE(f.actions->launches(), QStringList({"Gamma"}));

        // Pressing on one icon and releasing on another does nothing to either.
        QTest::mousePress(f.view.get(), Qt::LeftButton, {}, f.centreOf("Alpha"));
        QTest::mouseRelease(f.view.get(), Qt::LeftButton, {}, f.centreOf("Beta"));
        QCOMPARE(launches.count(), 1);

        // Command-click shows the app in the file manager instead.
        QTest::mouseClick(f.view.get(), Qt::LeftButton, Qt::ControlModifier, f.centreOf("Delta"));
        QCOMPARE(launches.count(), 1);
        QCOMPARE(f.actions->revealed, QStringList({"Delta"}));
    }

    void shiftClicksExcludeIncludeAndSettleOptionShowsAllAppsAndFnFadesTheAppsNotRunning()
    {
        IconViewFixture f(IconViewFixture::FiveApps, {"Epsilon"}, {{"Alpha", "Delta"}});
        f.showGroup(1);
        QCOMPARE(f.view->keyFilteredApps1D().size(), 4);
        const QPoint beta = f.centreOf("Beta");
        QTest::mouseClick(f.view.get(), Qt::LeftButton, Qt::ShiftModifier, beta);
        QVERIFY(f.manager->excludedApps1D().contains(f.app("Beta")));
        // While Shift is held the grid stays as it was, with Beta faded under the pointer.
        QCOMPARE(f.view->appAtPoint(beta), f.app("Beta"));
        const Coords cell = f.view->coordsOfApp(f.app("Beta"));
        QVERIFY(!f.view->isOpaqueRow(int(cell.row), int(cell.col)));
        f.modifiers(Qt::NoModifier);
        QCOMPARE(f.view->keyFilteredApps1D().size(), 3);
        QVERIFY(f.view->coordsOfApp(f.app("Beta")).row == Coords::None);

        // In the group of all apps a Shift-click includes an excluded app.
        f.view->setGroupToShow(5);
        QTest::mouseClick(f.view.get(), Qt::LeftButton, Qt::ShiftModifier, f.centreOf("Epsilon"));
        QVERIFY(!f.manager->excludedApps1D().contains(f.app("Epsilon")));

        // In the favourites it removes the favourite and excludes nothing.
        f.view->setGroupToShow(8);
        QTest::mouseClick(f.view.get(), Qt::LeftButton, Qt::ShiftModifier, f.centreOf("Delta"));
        QCOMPARE(f.manager->userApps1D(), HVAppBunch({f.app("Alpha")}));
        QVERIFY(!f.manager->excludedApps1D().contains(f.app("Delta")));

        // Option shows all apps, and Fn fades the apps not running.
        f.view->setGroupToShow(1);
        QSignalSpy shown(f.view.get(), &HVIconView::groupShownChanged);
        f.modifiers(Qt::AltModifier);
        QCOMPARE(f.view->groupShown(), 5);
        QCOMPARE(shown.count(), 1);
        f.modifiers(Qt::NoModifier);
        QCOMPARE(f.view->groupShown(), 1);
        f.defaults->setInteger(0, "groupOrientation");
        f.modifiers(Qt::AltModifier);
        QCOMPARE(f.view->groupShown(), 6);
        QVERIFY(f.view->isOpaqueRow(0, 0));
        f.modifiers(Qt::AltModifier | Qt::MetaModifier); // nothing runs here
        QVERIFY(!f.view->isOpaqueRow(0, 0));
    }
};

QTEST_MAIN(TestIconViewPointer)
#include "moc_iconviewfixture.cpp"
#include "tst_iconviewpointer.moc"
