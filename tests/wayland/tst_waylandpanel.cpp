// The panel on a Wayland compositor, as a user meets it there: nimboctl shows it, typed letters
// (real keys, through the compositor's keyboard) filter it, Return launches the match, another
// window taking the focus hides it; every fade ends opaque or hidden, and nothing asks the
// compositor for window opacity it does not have. The hot key is a shortcut bound through a
// desktop portal: here a small portal of the test's own on the private session bus.
#include "logcollector.h"
#include "support/startnimbo.h"
#include "support/testenvironment.h"

#include "browser/hviconview.h"
#include "common/hvuserdefaults.h"
#include "shell/hvcontroller.h"
#include "shell/hvpreferences.h"
#include "shell/hvpreferenceswindow.h"
#include "shell/hvwindow.h"

#include <QApplication>
#include <QComboBox>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVirtualObject>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

namespace {
using Shortcut = QPair<QString, QVariantMap>; // (sa{sv}): its id and properties

// The desktop portal's GlobalShortcuts, on a bus connection of its own: it opens sessions,
// binds what it is asked to with the preferred trigger, and reports activations when told.
class TestPortal : public QDBusVirtualObject
{
public:
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "testportal");
    QString session;
    QList<Shortcut> bound;
    bool refuse = false; // answers a binding as a desktop whose user said no

    TestPortal()
    {
        qDBusRegisterMetaType<Shortcut>();
        qDBusRegisterMetaType<QList<Shortcut>>();
        bus.registerVirtualObject("/org/freedesktop/portal/desktop", this, QDBusConnection::SubPath);
        bus.registerService("org.freedesktop.portal.Desktop");
    }
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        const QString sender = message.service().mid(1).replace('.', '_');
        const QString member = message.member();
        if (member == "Close") {
            session.clear();
            bus.send(message.createReply());
            return true;
        }
        const QVariantMap options = qdbus_cast<QVariantMap>(message.arguments().constLast());
        const QString request = "/org/freedesktop/portal/desktop/request/" + sender + "/" +
                                options.value("handle_token").toString();
        QVariantMap results;
        if (member == "CreateSession") {
            session = "/org/freedesktop/portal/desktop/session/" + sender + "/" +
                      options.value("session_handle_token").toString();
            results["session_handle"] = session;
        } else if (member == "BindShortcuts" && !refuse) {
            bound = qdbus_cast<QList<Shortcut>>(message.arguments().at(1));
            QList<Shortcut> answer = bound;
            for (Shortcut& shortcut : answer)
                shortcut.second = {{"trigger_description", shortcut.second.value("preferred_trigger")}};
            results["shortcuts"] = QVariant::fromValue(answer);
        } else if (member != "BindShortcuts") {
            return false;
        }
        bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
        QDBusMessage response =
            QDBusMessage::createSignal(request, "org.freedesktop.portal.Request", "Response");
        response << (member == "BindShortcuts" && refuse ? 1u : 0u) << results; // 1: the user said no
        bus.send(response);
        return true;
    }
    void activate(const QString& id)
    {
        QDBusMessage signal = QDBusMessage::createSignal(
            "/org/freedesktop/portal/desktop", "org.freedesktop.portal.GlobalShortcuts", "Activated");
        signal << QVariant::fromValue(QDBusObjectPath(session)) << id << qulonglong(0) << QVariantMap();
        bus.send(signal);
    }
};

} // namespace

class TestWaylandPanel : public QObject
{
    Q_OBJECT
    TestEnvironment env;
    TestPortal portal;
    std::unique_ptr<HVUserDefaults> defaults;
    std::unique_ptr<HVController> controller;

private slots:
    void initTestCase()
    {
        QCOMPARE(QGuiApplication::platformName(), QStringLiteral("wayland"));
        qInstallMessageHandler(LogCollector::collect);
        for (const char* name : {"alpha", "beta", "gamma"})
            env.writeFile(
                QStringLiteral("data/applications/%1.desktop").arg(name),
                QStringLiteral("[Desktop Entry]\nType=Application\nName=%1\nExec=touch %2/launched-%1\n")
                    .arg(name, env.root())
                    .toUtf8());
        defaults = std::make_unique<HVUserDefaults>(env.configHome() + "/Nimbo/Nimbo.conf");
        controller = startNimbo(defaults.get());
        QVERIFY(controller->registerBusService());
        QTRY_VERIFY(controller->mainWindowIsVisible());
        QTRY_VERIFY(controller->mainWindow()->isActiveWindow());
    }

    void theHotKeyIsBoundThroughThePortalAndToggles()
    {
        QTRY_COMPARE(portal.bound.size(), 1);
        QCOMPARE(portal.bound[0].second.value("preferred_trigger").toString(), QStringLiteral("CTRL+Tab"));
        // Activated in the session Nimbo opened: toggling shows that there is one, and that it is Nimbo's.
        portal.activate("toggle");
        QTRY_VERIFY(!controller->mainWindowIsVisible());
        portal.activate("another");
        QTest::qWait(300);
        QVERIFY(!controller->mainWindowIsVisible());
        portal.activate("toggle");
        QTRY_VERIFY(controller->mainWindowIsVisible());
        QTRY_VERIFY(controller->mainWindow()->isActiveWindow());
    }

    void typingFiltersAndReturnLaunches()
    {
        QVERIFY(QProcess::execute("xdotool", {"type", "--delay", "60", "bet"}) == 0);
        QTRY_COMPARE(controller->iconView()->filterSubstring(), QStringLiteral("bet"));
        QVERIFY(QProcess::execute("xdotool", {"key", "Return"}) == 0);
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(env.root() + "/launched-beta"), 10000);
        QTRY_VERIFY(!controller->mainWindowIsVisible());
    }

    void nimboctlTogglesAndAnotherWindowTakingTheFocusHides()
    {
        for (const bool shown : {true, false, true}) {
            QProcess nimboctl;
            nimboctl.start(NIMBO_BINARY_DIR "/src/nimboctl", {"toggle"});
            QVERIFY(nimboctl.waitForStarted());
            // The call is answered by this process: the event loop runs while nimboctl waits.
            QTRY_COMPARE(nimboctl.state(), QProcess::NotRunning);
            QCOMPARE(nimboctl.exitCode(), 0);
            QTRY_COMPARE(controller->mainWindowIsVisible(), shown);
        }
        QCOMPARE(controller->mainWindow()->panelOpacity(), 1.0);
        QTRY_VERIFY(controller->mainWindow()->isActiveWindow());
        QProcess other;
        other.start("weston-terminal");
        QVERIFY(other.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(!controller->mainWindowIsVisible(), 10000);
        other.kill();
        other.waitForFinished();
    }

    // Refused, the hot key is explained once, in plain words, and in the preferences for as long
    // as it lasts; the hot spots, which Wayland cannot have, are offered there as unavailable.
    void aRefusedShortcutIsExplainedOnceAndInThePreferences()
    {
        QSignalSpy alerts(controller.get(), &HVController::alertShown);
        QSignalSpy needed(controller.get(), &HVController::desktopShortcutNeeded);
        portal.refuse = true;
        for (int refusals = 1; refusals <= 2; ++refusals) {
            QVERIFY(controller->registerHotKey());
            QTRY_COMPARE(needed.count(), refusals);
        }
        QCOMPARE(alerts.count(), 1);
        QVERIFY(alerts[0][1].toString().contains("\"nimboctl toggle\""));
        controller->openPrefs();
        HVPreferencesWindow* prefs = controller->preferences()->window();
        QCOMPARE(prefs->findChild<QLabel*>("hotKeyProblem")->text(), alerts[0][1].toString());
        QVERIFY(!prefs->findChild<QComboBox*>("cursorHotSpotLocation")->isEnabled());
        QVERIFY(prefs->findChild<QLabel*>("hotSpotsUnavailable"));

        portal.refuse = false;
        portal.bound.clear();
        QVERIFY(controller->registerHotKey());
        QTRY_COMPARE(portal.bound.size(), 1);
        // The portal has the binding before Nimbo has its answer.
        QTRY_VERIFY(controller->desktopShortcutAdvice().isEmpty());
        QCOMPARE(alerts.count(), 1);
    }

    // Last, over every fade above: any such line is on standard error above.
    void noFadeAskedForWindowOpacity()
    {
        const QRegularExpression opacity("(?is)^(?!.*paints its own).*opacity");
        QCOMPARE(LogCollector::lines().filter(opacity), QStringList());
    }
};

QTEST_MAIN(TestWaylandPanel)
#include "tst_waylandpanel.moc"
