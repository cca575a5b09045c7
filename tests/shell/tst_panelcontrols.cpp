// The panel's controls over a real catalogue: the count buttons follow the lists, light the
// group shown, step with Tab, shorten their labels with the width and spring under a drag; the
// close and gear buttons take their ink from the panel colour.
#include "browser/iconviewfixture.h"

#include "browser/hvstatscontrol.h"
#include "shell/hvpanelbutton.h"
#include "shell/hvpanelcontrols.h"

#include <QMimeData>

class ControlsFixture : public IconViewFixture
{
public:
    ControlsFixture()
        : IconViewFixture({{"Alpha", "Beta", "Gamma"}, {"Delta", "Epsilon"}}, {"Gamma"}, {{"Beta"}})
    {
        panel.resize(900, 400);
        view->setParent(&panel);
        view->move(20, 26);
        controls = new HVPanelControls(&panel, view.get(), defaults.get());
        stats = controls->statsControl();
        view->setGroupToShow(1);
        panel.show();
    }
    ~ControlsFixture() { view.release()->setParent(nullptr); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(view.get(), &event);
    }
    QStringList labels() const
    {
        QStringList all;
        for (int i = 0; i < HVStatsControl::ButtonCount; ++i)
            all.append(stats->label(i));
        return all;
    }

    QWidget panel;
    HVPanelControls* controls;
    HVStatsControl* stats;
};

class TestPanelControls : public QObject
{
    Q_OBJECT

private slots:
    void countsFollowTheCatalogue()
    {
        ControlsFixture f;
        QCOMPARE(f.labels(), QStringList({"5 Total", "4 Included", "1 Excluded", "1 Favorite", "0 Running"}));
        f.manager->excludeApp(f.app("Alpha"));
        QCOMPARE(f.labels(), QStringList({"5 Total", "3 Included", "2 Excluded", "1 Favorite", "0 Running"}));
    }

    void tabStepsTheTabbableButtons_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<bool>("back");
        QTest::addColumn<int>("to");
        QTest::newRow("Favorite -> Running") << 8 << false << 0;
        QTest::newRow("Running -> Included") << 0 << false << 1;
        QTest::newRow("Included -> Favorite") << 1 << false << 8;
        QTest::newRow("Total -> Included") << 5 << false << 1;
        QTest::newRow("Included <- Running") << 1 << true << 0;
        QTest::newRow("Running <- Favorite") << 0 << true << 8;
    }
    void tabStepsTheTabbableButtons()
    {
        QFETCH(int, from);
        QFETCH(bool, back);
        QFETCH(int, to);
        ControlsFixture f;
        f.view->setGroupToShow(from);
        f.press(back ? Qt::Key_Backtab : Qt::Key_Tab, back ? Qt::ShiftModifier : Qt::NoModifier);
        QCOMPARE(f.view->groupToShow(), to);
        QCOMPARE(f.stats->groupForSelectedButton(), to);
        // A held Tab's repeats do not race through the groups; Ctrl+Tab is not Tab.
        QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(f.view.get(), &repeat);
        f.press(Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(f.view->groupToShow(), to);
    }

    void theButtonLitFollowsTheGroupShown_data()
    {
        QTest::addColumn<int>("group");
        QTest::addColumn<int>("button");
        QTest::newRow("missing lights Excluded") << 7 << 2;
        QTest::newRow("flat all lights Total") << 6 << 0;
        QTest::newRow("flat favourites") << 9 << 3;
        QTest::newRow("running") << 0 << 4;
    }
    void theButtonLitFollowsTheGroupShown()
    {
        QFETCH(int, group);
        QFETCH(int, button);
        ControlsFixture f;
        f.view->setGroupToShow(group);
        QCOMPARE(f.stats->indexOfSelectedButton(), button);
    }

    void aClickOnAButtonShowsItsGroup()
    {
        ControlsFixture f;
        QVERIFY(QTest::qWaitForWindowExposed(&f.panel));
        QTest::mouseClick(f.stats, Qt::LeftButton, {}, f.stats->buttonRect(4).center());
        QCOMPARE(f.view->groupToShow(), 0);
        QCOMPARE(f.stats->indexOfSelectedButton(), 4);
    }

    void labelsShortenWithTheWidth_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("size");
        QTest::addColumn<QString>("total");
        QTest::newRow("wide") << 900 << int(HVStatsControl::LongLabels) << "5 Total";
        QTest::newRow("narrow") << 300 << int(HVStatsControl::ShortLabels) << "5 T";
        QTest::newRow("tight") << 200 << int(HVStatsControl::TinyLabels) << "T";
        QTest::newRow("narrower than tiny") << 40 << int(HVStatsControl::TinyLabels) << "T";
    }
    void labelsShortenWithTheWidth()
    {
        QFETCH(int, width);
        QFETCH(int, size);
        QFETCH(QString, total);
        ControlsFixture f;
        f.panel.resize(width, 400);
        QCOMPARE(int(f.stats->labelSize()), size);
        QCOMPARE(f.stats->label(0), total);
        // The buttons stay between the close and the gear button.
        QVERIFY(f.stats->geometry().left() >= f.controls->closeButton()->geometry().right());
        QVERIFY(f.stats->geometry().right() < f.controls->gearButton()->geometry().left() || width < 80);
    }

    void aDragHeldOverAButtonSwitchesTheGroup()
    {
        ControlsFixture f;
        QSignalSpy shown(f.view.get(), &HVIconView::groupShownChanged);
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile("/tmp/file.txt")});
        const QPoint over = f.stats->buttonRect(4).center();
        QDragEnterEvent enter(over, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(f.stats, &enter);
        QDragMoveEvent move(over + QPoint(1, 0), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(f.stats, &move);
        QVERIFY(!move.isAccepted()); // nothing is dropped on the buttons
        QVERIFY(shown.wait(3000));
        QCOMPARE(f.view->groupToShow(), 0);
        // Left before the delay, nothing springs.
        QDragMoveEvent toTotal(f.stats->buttonRect(0).center(), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(f.stats, &toTotal);
        QDragLeaveEvent leave;
        QApplication::sendEvent(f.stats, &leave);
        QTest::qWait(HVStatsControl::SpringDelayMs + 200);
        QCOMPARE(f.view->groupToShow(), 0);
    }

    void buttonInkFollowsThePanelColour_data()
    {
        QTest::addColumn<double>("alpha");
        QTest::addColumn<QColor>("color");
        QTest::addColumn<bool>("black");
        QTest::newRow("light 0.74") << 0.85 << QColor::fromHsvF(0, 0, 0.74) << true;
        QTest::newRow("dark 0.73") << 0.85 << QColor::fromHsvF(0, 0, 0.73) << false;
        QTest::newRow("invisible") << 0.0 << QColor(Qt::black) << true;
        QTest::newRow("alpha out of range") << 7.0 << QColor(Qt::black) << false;
    }
    void buttonInkFollowsThePanelColour()
    {
        QFETCH(double, alpha);
        QFETCH(QColor, color);
        QFETCH(bool, black);
        ControlsFixture f;
        f.defaults->setDouble(alpha, "windowAlpha");
        f.defaults->setObject(color, "windowColor");
        QCOMPARE(f.controls->closeButton()->isBlack(), black);
        QCOMPARE(f.controls->gearButton()->isBlack(), black);
        QVERIFY(!f.panel.grab().isNull());
    }
};

QTEST_MAIN(TestPanelControls)
#include "tst_panelcontrols.moc"
