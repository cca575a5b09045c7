// The panel following its content's size: at once, or with "animateWindowResizing" after the
// icons fade out, and back in, the overlay hidden meanwhile.
#include "browser/iconviewfixture.h"

#include "browser/hviconoverlayview.h"
#include "shell/hvresizefade.h"
#include "shell/hvwindow.h"

class TestResizeFade : public QObject
{
    Q_OBJECT

private slots:
    void thePanelTakesItsNewSize_data()
    {
        QTest::addColumn<bool>("animated");
        QTest::newRow("at once") << false;
        QTest::newRow("faded") << true;
    }
    void thePanelTakesItsNewSize()
    {
        QFETCH(bool, animated);
        IconViewFixture f({{"Alpha", "Beta", "Gamma", "Delta", "Epsilon", "Zeta", "Eta", "Theta"}}, {"Beta"});
        f.defaults->setBool(animated, "animateWindowResizing");
        HVWindow panel(f.view.get(), f.defaults.get());
        f.defaults->setInteger(5, "groupToShowWhenWindowOpens");
        panel.showPanel();
        const QSize before = panel.size();
        QSignalSpy finished(panel.resizeFade(), &HVResizeFade::finished);
        f.view->setGroupToShow(3); // one excluded app: a smaller grid
        if (animated) {
            QVERIFY(panel.resizeFade()->isRunning());
            QCOMPARE(panel.size(), before);
            QVERIFY(!panel.overlayView()->isVisible());
            QVERIFY(finished.wait(5000));
            QVERIFY(!f.view->graphicsEffect());
        }
        QVERIFY(!panel.resizeFade()->isRunning());
        QCOMPARE(panel.size(), (f.view->viewSize() + QSizeF(HVWindow::LeftMargin + HVWindow::RightMargin,
                                                            HVWindow::TopMargin + HVWindow::BottomMargin))
                                   .toSize());
        QVERIFY(panel.overlayView()->isVisible());
        f.view.release(); // the panel owns it now
    }
};

QTEST_MAIN(TestResizeFade)
#include "tst_resizefade.moc"
