// The panel as a user meets it, on a real X server with a real window manager: the hot key
// (pressed with xdotool), Escape, losing the focus to another window, the remembered group,
// a second nimbo, nimboctl, and quitting.
#include "desktopfixture.h"

#include "browser/hviconview.h"
#include "shell/hvpanelbutton.h"
#include "shell/hvpanelcontrols.h"
#include "shell/hvtranslations.h"
#include "shell/hvwindow.h"

#include <QMessageBox>
#include <QScreen>
#include <QtTest>

namespace {
const QString Bin = QStringLiteral(NIMBO_BINARY_DIR "/src/");

// Watching the whole application, notes the size of the panel when that is first shown.
class ShowWatch : public QObject
{
public:
    QSize size;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show && qobject_cast<HVWindow*>(watched) && !size.isValid())
            size = static_cast<QWidget*>(watched)->size();
        return false;
    }
};
} // namespace

class TestShell : public QObject
{
    Q_OBJECT
    DesktopFixture desktop;
    HVUserDefaults* defaults = &desktop.defaults();
    HVController* controller = nullptr;

    HVWindow* panel() { return controller->mainWindow(); }

private slots:
    void initTestCase()
    {
        desktop.writeEntry("clock.desktop", "Name=Clock\nExec=xclock\n");
        // The terminal stands in for any application: it records its launch.
        const QByteArray record = QFile::encodeName(desktop.recordFile("terminal"));
        desktop.writeEntry("terminal.desktop",
                           "Name=Terminal\nExec=" NIMBO_ARGV_RECORDER " --no-window " + record);
        ShowWatch shown;
        qApp->installEventFilter(&shown);
        controller = desktop.startNimbo();
        // The panel opens at launch, centred on the screen, with the catalogue already in it:
        // it does not open small and empty and then grow.
        QTRY_VERIFY(controller->mainWindowIsVisible());
        QCOMPARE(shown.size, panel()->size());
        QTRY_COMPARE(QGuiApplication::applicationState(), Qt::ApplicationActive);
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QVERIFY(qAbs(panel()->geometry().center().x() - screen.center().x()) <= 1);
        QVERIFY(qAbs(panel()->geometry().center().y() - screen.center().y()) <= 1);
        QCOMPARE(defaults->integerForKey("applicationLaunchCount"), 1);
    }

    void summonedRightAfterHidingThePanelStays()
    {
        // The hot key hides and shows the panel. The toolkit reports the focus lost at a hide a
        // moment late; the panel summoned again within that moment must keep it, not vanish once
        // the report comes in.
        for (int pause : {0, 60, 120, 200, 320}) { // active: at launch, then as the step before ends
            QVERIFY(xdotool({"key", "ctrl+Tab"}));
            QTRY_VERIFY(!controller->mainWindowIsVisible());
            QTest::qWait(pause);
            QVERIFY(xdotool({"key", "ctrl+Tab"}));
            QTRY_VERIFY(controller->mainWindowIsVisible());
            QTest::qWait(900);
            QVERIFY2(controller->mainWindowIsVisible(), qPrintable(QString("pause %1 ms").arg(pause)));
            QTRY_VERIFY(panel()->isActiveWindow());
        }
    }

    void aFadeStoppedByAnotherEndsAndTheLaterOneWins()
    {
        // Hidden while it fades in: the fade in returns and the panel stays hidden.
        controller->explicitHideMainWindow();
        QVERIFY(!controller->mainWindowIsVisible());
        QTimer::singleShot(80, this, [this] { panel()->hidePanel(); });
        panel()->showPanel();
        QVERIFY(!controller->mainWindowIsVisible());
        QCOMPARE(panel()->windowOpacity(), 1.0);
        // Shown while it fades out: the fade out returns and the panel stays, fully opaque.
        controller->showHideMainWindow();
        QTRY_VERIFY(controller->mainWindowIsVisible());
        QTimer::singleShot(80, this, [this] { panel()->showPanel(); });
        panel()->hidePanel();
        QVERIFY(controller->mainWindowIsVisible());
        QCOMPARE(panel()->windowOpacity(), 1.0);
    }

    void escapeHidesTabStepsTheGroupsAndTheCloseButtonHides()
    {
        QTRY_VERIFY(panel()->isActiveWindow());
        QVERIFY(xdotool({"key", "Escape"}));
        QTRY_VERIFY(!controller->mainWindowIsVisible());
        xdotool({"key", "ctrl+Tab"});
        QTRY_VERIFY(controller->mainWindowIsVisible());
        QTRY_VERIFY(panel()->isActiveWindow());
        QVERIFY(xdotool({"key", "Tab"}));
        QTRY_COMPARE(controller->iconView()->groupToShow(), 8);
        const QPoint close = panel()->controls()->closeButton()->mapToGlobal(QPoint(9, 9));
        QVERIFY(moveTo(close) && xdotool({"click", "1"}));
        QTRY_VERIFY(!controller->mainWindowIsVisible());
    }

    void typingAndReturnLaunchTheSingleMatch()
    {
        xdotool({"key", "ctrl+Tab"});
        QTRY_VERIFY(controller->mainWindowIsVisible());
        QTRY_VERIFY(panel()->isActiveWindow());
        defaults->setInteger(3, "groupShownWhenWindowClosed");
        QVERIFY(xdotool({"type", "--delay", "50", "ter"}));
        QVERIFY(xdotool({"key", "Return"}));
        QTRY_VERIFY(!controller->mainWindowIsVisible());
        // Hidden as Escape hides it: the group remembered, the filter gone for the next showing.
        QCOMPARE(defaults->integerForKey("groupShownWhenWindowClosed"), 1);
        QCOMPARE(controller->iconView()->filterSubstring(), QString());
        QCOMPARE(DesktopFixture::recordedArguments(desktop.recordFile("terminal")), QList<QByteArray>());
    }

    void theGroupShownLastIsRemembered()
    {
        defaults->setInteger(-1, "groupToShowWhenWindowOpens");
        defaults->setInteger(3, "groupShownWhenWindowClosed");
        controller->showHideMainWindow();
        QTRY_VERIFY(controller->mainWindowIsVisible());
        QCOMPARE(controller->iconView()->groupToShow(), 3); // stored at a hide: the launch case shows it
        defaults->setInteger(1, "groupToShowWhenWindowOpens");
    }

    void losingTheFocusHidesUnlessThePanelWasDraggedAside()
    {
        // A window that takes the keyboard focus when activated (xclock would not).
        QProcess other;
        other.start("xterm", {"-name", "otherwindow"});
        QVERIFY(other.waitForStarted());
        // Asked again until it happens: the window manager ignores a request for a window it has
        // not taken on yet.
        const auto activateOther = [] {
            return xdotool({"search", "--onlyvisible", "--classname", "otherwindow", "windowactivate"});
        };
        QTRY_VERIFY_WITH_TIMEOUT(activateOther() && !controller->mainWindowIsVisible(), 20000);

        // Shown again and dragged aside, it stays when the focus goes, for a while.
        controller->showHideMainWindow();
        QTRY_VERIFY(controller->mainWindowIsVisible());
        QTRY_COMPARE(QGuiApplication::applicationState(), Qt::ApplicationActive);
        panel()->move(panel()->pos() + QPoint(200, 120));
        QTRY_VERIFY(panel()->hasBeenMoved());
        QTRY_VERIFY_WITH_TIMEOUT(
            activateOther() && QGuiApplication::applicationState() == Qt::ApplicationInactive, 20000);
        QVERIFY(controller->mainWindowIsVisible());
        QVERIFY(controller->hasWindowCloseTimer());
        // Coming back cancels the close timer.
        controller->showHideMainWindow();
        QTRY_COMPARE(QGuiApplication::applicationState(), Qt::ApplicationActive);
        QVERIFY(!controller->hasWindowCloseTimer());
        controller->explicitHideMainWindow(); // the other window goes with its QProcess
    }

    void quittingAsksOnlyWhenNimboCouldNotBeReachedAgain()
    {
        QSignalSpy quit(controller, &HVController::quitRequested);
        controller->quitApp(); // a taskbar entry remains: no question
        QCOMPARE(quit.count(), 1);

        // The question in the user's language.
        defaults->setBool(false, "showIconInDock"); // no taskbar entry: asked
        HVTranslations::install(*qApp, QLocale("de"));
        bool asked = false;
        QTimer::singleShot(300, this, [&asked] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            asked = box->text() == "Möchten Sie Nimbo wirklich beenden?";
            for (QAbstractButton* button : box->buttons()) {
                if (button->text() == "Nicht beenden")
                    button->click();
            }
        });
        controller->quitApp();
        QVERIFY(asked);
        QCOMPARE(quit.count(), 1);
        HVTranslations::install(*qApp, QLocale("en"));
        defaults->setBool(true, "showIconInDock");
    }

    void oneNimboAtATimeAndNimboctlReachesIt()
    {
        desktop.stopNimbo(); // this process's catalogue and bus name go away
        const ProgramRun alone = nimboctl({"toggle"});
        QCOMPARE(alone.exitCode, 1);
        QVERIFY(alone.err.contains("not running"));

        QProcess first;
        first.start(Bin + "nimbo", {});
        QVERIFY(first.waitForStarted());
        // Asked to show while it starts up, it shows once it has started (slowly, under a sanitizer).
        QTRY_COMPARE_WITH_TIMEOUT(nimboctl({"show"}).exitCode, 0, 10000);
        QTRY_VERIFY_WITH_TIMEOUT(xdotool({"search", "--onlyvisible", "--name", "^Nimbo Main$"}), 20000);
        QCOMPARE(nimboctl({"hide"}).exitCode, 0);
        QTRY_VERIFY_WITH_TIMEOUT(!xdotool({"search", "--onlyvisible", "--name", "^Nimbo Main$"}), 20000);
        // A second one hands over and ends; the first one, still running, shows.
        QCOMPARE(runToEnd(Bin + "nimbo", {}).exitCode, 0);
        QTRY_VERIFY_WITH_TIMEOUT(xdotool({"search", "--onlyvisible", "--name", "^Nimbo Main$"}), 20000);
        QCOMPARE(nimboctl({"toggle"}).exitCode, 0);
        QTRY_VERIFY_WITH_TIMEOUT(!xdotool({"search", "--onlyvisible", "--name", "^Nimbo Main$"}), 20000);
        QCOMPARE(nimboctl({"quit"}).exitCode, 0);
        QTRY_COMPARE_WITH_TIMEOUT(first.state(), QProcess::NotRunning, 20000); // it may be gone already
        QCOMPARE(first.exitStatus(), QProcess::NormalExit);
    }
};

QTEST_MAIN(TestShell)
#include "tst_shell.moc"
