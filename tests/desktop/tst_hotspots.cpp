// The cursor hot spot with a running controller on a real X server: the pointer, moved by
// XTest (xdotool), opens the panel after the dwell delay, opens nothing when it leaves
// sooner, and clicks at the spot still reach the window beneath.
#include "support/testenvironment.h"

#include "common/hvuserdefaults.h"
#include "shell/hvcontroller.h"
#include "shell/hvhotspotwindow.h"
#include "shell/pointertracker.h"

#include <QApplication>
#include <QProcess>
#include <QScreen>
#include <QtTest>

namespace {
void xdotool(const QStringList& args)
{
    QCOMPARE(QProcess::execute(QStringLiteral("xdotool"), args), 0);
}

void moveTo(int x, int y)
{
    xdotool({"mousemove", QString::number(x), QString::number(y)});
}

// An ordinary window of another kind, under the top-left corner, that counts its clicks.
class Beneath : public QWidget
{
public:
    int presses = 0;
    Beneath() : QWidget(nullptr, Qt::FramelessWindowHint)
    {
        setGeometry(0, 0, 200, 200);
        setAutoFillBackground(true);
        setPalette(QPalette(Qt::green));
    }

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};
} // namespace

class TestHotSpots : public QObject
{
    Q_OBJECT
    TestEnvironment env;
    std::unique_ptr<HVUserDefaults> defaults;
    std::unique_ptr<HVController> controller;

    HVHotSpotView* view() const
    {
        return controller->hotSpotWindow() ? controller->hotSpotWindow()->view() : nullptr;
    }
    bool panelVisible() const { return controller->mainWindowIsVisible(); }
    void hidePanel()
    {
        if (panelVisible())
            controller->explicitHideMainWindow();
        QTRY_VERIFY(!panelVisible());
    }
    // Away from the corner, and the hot spot knows it.
    void moveAway()
    {
        moveTo(800, 500);
        QTRY_VERIFY(!view()->isHighlighted() && !view()->hasPendingAction());
        QTest::qWait(PointerTracker::InsideIntervalMs + 50);
    }

private slots:
    void initTestCase()
    {
        env.writeFile("data/applications/clock.desktop",
                      "[Desktop Entry]\nType=Application\nName=Clock\nExec=xclock\n");
        defaults = std::make_unique<HVUserDefaults>(env.configHome() + "/Nimbo/Nimbo.conf");
        defaults->setBool(false, "showWindowAtLaunch");
        defaults->setBool(true, "highlightHotSpots");
        defaults->setInteger(HVHotSpotWindow::TopLeftCorner, "cursorHotSpotLocation");
        moveTo(800, 500);
        controller = std::make_unique<HVController>(defaults.get());
        controller->awakeFromNib();
        controller->applicationWillFinishLaunching();
        controller->applicationDidFinishLaunching();
        QVERIFY(view());
    }

    void theCornerOpensThePanelAfterTheDelay()
    {
        QElapsedTimer sinceArrival;
        sinceArrival.start();
        moveTo(0, 0);
        QTRY_VERIFY(view()->hasPendingAction());
        QTest::qWait(200);
        QVERIFY(!panelVisible());
        QTRY_VERIFY(panelVisible());
        QVERIFY(sinceArrival.elapsed() >= 350);

        // Visible, the panel hides as soon as the pointer comes back: hiding needs no dwell.
        moveAway();
        QVERIFY(panelVisible());
        moveTo(0, 0);
        QTRY_VERIFY(view()->isHighlighted());
        QVERIFY(!view()->hasPendingAction());
        QTRY_VERIFY(!panelVisible());
        moveAway();
    }

    void leavingBeforeTheDelayOpensNothing()
    {
        moveTo(0, 0);
        QTRY_VERIFY(view()->hasPendingAction());
        moveTo(800, 500);
        QTRY_VERIFY(!view()->hasPendingAction());
        QTest::qWait(500);
        QVERIFY(!panelVisible());
    }

    void clicksThereReachTheWindowBeneath()
    {
        Beneath beneath;
        beneath.show();
        QVERIFY(QTest::qWaitForWindowExposed(&beneath));
        QTRY_COMPARE(beneath.geometry().topLeft(), QPoint(0, 0));
        moveTo(1, 1);
        QTRY_VERIFY(view()->isHighlighted());
        // Drawn red over the window beneath, and the click goes through to that window.
        const QImage corner = QGuiApplication::primaryScreen()->grabWindow(0, 0, 0, 4, 4).toImage();
        QCOMPARE(corner.pixelColor(1, 1), QColor(Qt::red));
        xdotool({"click", "1"});
        QTRY_COMPARE(beneath.presses, 1);
        QTRY_VERIFY(panelVisible());
        moveAway();
        hidePanel();

        // A drag that arrives at the spot counts as the pointer.
        moveTo(100, 100);
        xdotool({"mousedown", "1"});
        moveTo(0, 0);
        QTRY_VERIFY(panelVisible());
        xdotool({"mouseup", "1"});
        moveAway();
        hidePanel();
    }

    void theSpotFollowsItsLocation()
    {
        defaults->setInteger(HVHotSpotWindow::BottomRightCorner, "cursorHotSpotLocation");
        QCOMPARE(view()->area(), QRect(1596, 996, 4, 4));
        QProcess search;
        search.start("xdotool", {"search", "--name", "^Nimbo Hot Spot$"});
        QVERIFY(search.waitForFinished());
        QCOMPARE(search.readAllStandardOutput().trimmed().split('\n').size(), 1);

        // A code of no place is said once and stands for the top edge.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("cursorHotSpotLocation.*-3.*top edge"));
        defaults->setInteger(-3, "cursorHotSpotLocation");
        QVERIFY(controller->hotSpotWindow());
        QCOMPARE(view()->area(), QRect(28, 0, 1544, 1));
        QTest::failOnWarning(QRegularExpression("cursorHotSpotLocation"));
        controller->updateCursorHotSpot(); // as a change of screens would: nothing more is said
        defaults->setInteger(HVHotSpotWindow::None, "cursorHotSpotLocation");
        QVERIFY(!controller->hotSpotWindow());
    }
};

QTEST_MAIN(TestHotSpots)
#include "tst_hotspots.moc"
