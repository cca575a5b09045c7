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
    void tabStepsTheTabbableButtons()
    {
        // Groups: 0 Running, 1 Included, 5 Total, 8 Favorite; Shift+Tab steps back. (Tab from
        // Included to Favorite and back is pressed on a real X server in tst_shell.)
        const std::tuple<int, bool, int> steps[] = {
            {8, false, 0}, {0, false, 1}, {5, false, 1}, {1, true, 0}, {0, true, 8}};
        for (const auto& [from, back, to] : steps) {
            ControlsFixture f;
            f.view->setGroupToShow(from);
            f.key(back ? Qt::Key_Backtab : Qt::Key_Tab, {}, back ? Qt::ShiftModifier : Qt::NoModifier);
            QCOMPARE(std::pair(from, f.view->groupToShow()), std::pair(from, to));
            // A held Tab's repeats do not race through the groups; Ctrl+Tab is not Tab.
            f.key(Qt::Key_Tab, {}, {}, true);
            f.key(Qt::Key_Tab, {}, Qt::ControlModifier);
            QCOMPARE(std::pair(from, f.view->groupToShow()), std::pair(from, to));
        }
    }

    void countsFollowTheCatalogueTheButtonLitTheGroupShownAndAClickShowsItsGroup()
    {
        ControlsFixture f;
        QCOMPARE(f.labels(), QStringList({"5 Total", "4 Included", "1 Excluded", "1 Favorite", "0 Running"}));
        f.manager->excludeApp(f.app("Alpha"));
        QCOMPARE(f.labels(), QStringList({"5 Total", "3 Included", "2 Excluded", "1 Favorite", "0 Running"}));
        // Missing apps light Excluded, the flat lists Total and Favorite.
        for (const auto& [group, button] : {std::pair(7, 2), std::pair(6, 0), std::pair(9, 3)}) {
            f.view->setGroupToShow(group);
            QCOMPARE(std::pair(group, f.stats->indexOfSelectedButton()), std::pair(group, button));
        }
        QVERIFY(QTest::qWaitForWindowExposed(&f.panel));
        QTest::mouseClick(f.stats, Qt::LeftButton, {}, f.stats->buttonRect(4).center());
        QCOMPARE(f.view->groupToShow(), 0);
        QCOMPARE(f.stats->indexOfSelectedButton(), 4);
    }

    void labelsShortenWithTheWidth()
    {
        using Size = HVStatsControl::LabelSize;
        const std::tuple<int, Size, QString> widths[] = {{900, Size::LongLabels, "5 Total"},
                                                         {300, Size::ShortLabels, "5 T"},
                                                         {200, Size::TinyLabels, "T"},
                                                         {40, Size::TinyLabels, "T"}}; // narrower than tiny
        for (const auto& [width, size, total] : widths) {
            ControlsFixture f;
            f.panel.resize(width, 400);
            QCOMPARE(std::pair(width, f.stats->labelSize()), std::pair(width, size));
            QCOMPARE(f.stats->label(0), total);
            // The buttons stay between the close and the gear button.
            QVERIFY(f.stats->geometry().left() >= f.controls->closeButton()->geometry().right());
            QVERIFY(f.stats->geometry().right() < f.controls->gearButton()->geometry().left() || width < 80);
        }
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

    void buttonInkFollowsThePanelColour()
    {
        // Black ink on a light panel, from a value of 0.74 up, and on one that cannot be seen.
        const std::tuple<double, QColor, bool> panels[] = {
            {0.85, QColor::fromHsvF(0, 0, 0.74), true},
            {0.85, QColor::fromHsvF(0, 0, 0.73), false},
            {0.0, QColor(Qt::black), true},
            {7.0, QColor(Qt::black), false}}; // alpha out of range
        for (const auto& [alpha, color, black] : panels) {
            ControlsFixture f;
            f.defaults->setDouble(alpha, "windowAlpha");
            f.defaults->setObject(color, "windowColor");
            QCOMPARE(std::tuple(alpha, color.name(), f.controls->closeButton()->isBlack(),
                                f.controls->gearButton()->isBlack()),
                     std::tuple(alpha, color.name(), black, black));
            QVERIFY(!f.panel.grab().isNull());
        }
    }
};

QTEST_MAIN(TestPanelControls)
#include "tst_panelcontrols.moc"
