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
    void thePanelTakesItsNewSize()
    {
        for (const bool animated : {false, true}) {
            IconViewFixture f({{"Alpha", "Beta", "Gamma", "Delta", "Epsilon", "Zeta", "Eta", "Theta"}},
                              {"Beta"});
            f.defaults->setBool(animated, "animateWindowResizing");
            HVWindow panel(f.view.release(), f.defaults.get()); // the panel owns the view now
            f.defaults->setInteger(5, "groupToShowWhenWindowOpens");
            panel.showPanel();
            const QSize before = panel.size();
            QSignalSpy finished(panel.resizeFade(), &HVResizeFade::finished);
            panel.iconView()->setGroupToShow(3); // one excluded app: a smaller grid
            if (animated) {
                QVERIFY(panel.resizeFade()->isRunning());
                QCOMPARE(panel.size(), before);
                QVERIFY(!panel.overlayView()->isVisible());
                QVERIFY(finished.wait(5000));
                QVERIFY(!panel.iconView()->graphicsEffect());
            }
            const QSizeF margins(HVWindow::LeftMargin + HVWindow::RightMargin,
                                 HVWindow::TopMargin + HVWindow::BottomMargin);
            QCOMPARE(std::tuple(animated, panel.resizeFade()->isRunning(), panel.overlayView()->isVisible(),
                                panel.size()),
                     std::tuple(animated, false, true, (panel.iconView()->viewSize() + margins).toSize()));
        }
    }
};

QTEST_MAIN(TestResizeFade)
#include "tst_resizefade.moc"
