// The feedback form as a user meets it from Nimbo's menu: the report posted to a server on this
// machine is the JSON the form shows, with and without the system details; a server that refuses,
// hangs, fails or redirects without end gives a clear reason and leaves the report as typed; and
// "Save Report…" writes the same JSON.
#include "localhttpserver.h"

#include "catalogue/hvappmanager.h"
#include "catalogue/listfilestore.h"
#include "common/hvuserdefaults.h"
#include "common/nimboinfo.h"
#include "net/hvfeedbacksender.h"
#include "shell/hvcontroller.h"
#include "shell/hvfeedbackwindow.h"
#include "shell/hvstatusmenu.h"
#include "support/testenvironment.h"

#include <QCheckBox>
#include <QComboBox>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

#include <memory>

class TestFeedback : public QObject
{
    Q_OBJECT
    TestEnvironment env;
    LocalHttpServer server;
    std::unique_ptr<HVUserDefaults> defaults;
    std::unique_ptr<HVController> controller;

    HVFeedbackWindow* form() const { return controller->feedbackWindow(); }
    template<typename T>
    T* control(const char* name) const
    {
        return form()->findChild<T*>(QString::fromLatin1(name)); // every one is there: a missing one crashes
    }
    QString shown() const { return control<QPlainTextEdit>("preview")->toPlainText(); }
    QString status() const { return control<QLabel>("status")->text(); }

    void writeReport(const QString& kind, const QString& message, const QString& replyTo, bool system)
    {
        auto* kinds = control<QComboBox>("kind");
        kinds->setCurrentIndex(kinds->findData(kind));
        control<QPlainTextEdit>("message")->setPlainText(message);
        control<QLineEdit>("replyTo")->setText(replyTo);
        control<QCheckBox>("includeSystem")->setChecked(system);
    }

private slots:
    void initTestCase()
    {
        server.answer("/feedback", 200, "thanks");
        server.answer("/chatty", 200, QByteArray(HVFeedbackSender::MaximumAnswerSize * 4, 'x'));
        server.answer("/broken", 500, "oops");
        server.hang("/slow");
        server.redirectForever("/loop");
        defaults = std::make_unique<HVUserDefaults>(env.configHome() + "/Nimbo/Nimbo.conf");
        controller = std::make_unique<HVController>(defaults.get());
        const QVariantList bunch{"/a/One.desktop", "/a/Two.desktop", "/a/Three.desktop"};
        ListFileStore::writeArray({QVariant(bunch)},
                                  ListFileStore::userFolder() + "/" + HVListFileNames::AllApplications);
        controller->appManager()->readAllAppsFromDisk();
    }

    void theMenuOpensOneForm()
    {
        HVStatusMenu* menu = controller->statusItemMenu();
        menu->feedbackAction()->trigger();
        QVERIFY(form() && form()->isVisible());
        HVFeedbackWindow* first = form();
        emit menu->aboutToShow();
        QVERIFY(!menu->feedbackAction()->isEnabled());
        controller->openFeedback();
        QCOMPARE(form(), first);
        // Nothing to send or save until something is written: blanks are not enough.
        control<QPlainTextEdit>("message")->setPlainText("  \n ");
        QVERIFY(!control<QPushButton>("send")->isEnabled());
        QVERIFY(!control<QPushButton>("saveReport")->isEnabled());
    }

    void postsWhatTheFormShows()
    {
        // An answer that never ends is passed over; its status says the report arrived.
        for (const auto& [path, system, replyTo] :
             {std::tuple("/feedback", true, "me@example.org"), std::tuple("/chatty", false, "")}) {
            const auto named = qScopeGuard([&] {
                if (QTest::currentTestFailed())
                    qWarning("posting to %s", path);
            });
            defaults->setString(server.url(path), "feedbackURL");
            server.requests.clear();
            controller->openFeedback();
            const QString message = QStringLiteral("The panel flickers on the second screen.\n«Ünïcode» ✓");
            writeReport("feature", message, replyTo, system);
            const QString preview = shown();

            control<QPushButton>("send")->click();
            // Sending: the form can't change under the report, and nothing waits on the answer.
            QVERIFY(!control<QPlainTextEdit>("message")->isEnabled());
            QVERIFY(!control<QPushButton>("send")->isEnabled());
            QTRY_COMPARE(server.requests.size(), 1);
            const LocalHttpServer::Request request = server.requests.first();
            QCOMPARE(request.method, QByteArray("POST"));
            QVERIFY(request.headers.value("content-type").startsWith("application/json"));
            QCOMPARE(QString::fromUtf8(request.body), preview);

            // No empty reply address, and the system details only when asked for.
            const QJsonObject counts{
                {"total", 3}, {"included", 0}, {"excluded", 0}, {"favorites", 0}, {"running", 0}};
            QJsonObject expected{{"kind", "feature"}, {"message", message}};
            if (*replyTo)
                expected["replyTo"] = replyTo;
            if (system)
                expected["system"] = QJsonObject{{"nimboVersion", NimboInfo::version()},
                                                 {"qtVersion", qVersion()},
                                                 {"windowSystem", "offscreen"},
                                                 {"desktop", qEnvironmentVariable("XDG_CURRENT_DESKTOP")},
                                                 {"appCounts", counts}};
            QCOMPARE(QJsonDocument::fromJson(request.body).object(), expected);

            // Thanks, then the form closes, emptied for the next report.
            QTRY_VERIFY(status().startsWith("Thank you"));
            QTRY_VERIFY(!form()->isVisible());
            QVERIFY(control<QPlainTextEdit>("message")->toPlainText().isEmpty());
            QVERIFY(control<QPlainTextEdit>("message")->isEnabled());
        }
    }

    void failuresKeepTheReport()
    {
        LocalHttpServer closed; // nothing listens on its port once it has closed
        const QString refusing = closed.url("/feedback");
        closed.close();
        const std::pair<QString, QString> cases[] = {
            {refusing, "The feedback server 127.0.0.1:%1 refused the connection."},
            {server.url("/slow"), "The feedback server 127.0.0.1:%1 did not answer within 0.3 seconds."},
            {server.url("/broken"), "The feedback server 127.0.0.1:%1 answered with HTTP status 500 X."},
            {server.url("/loop"), "The feedback address http://127.0.0.1:%1"},
            {"mailto:nimbo@example.org", "The feedback address \"mailto:nimbo@example.org\" is not"},
            {server.url("/slow"), "Sending stopped."}, // by Cancel
        };
        for (const auto& [address, reason] : cases) {
            const auto named = qScopeGuard([&] {
                if (QTest::currentTestFailed())
                    qWarning("sending to %s for \"%s\"", qPrintable(address), qPrintable(reason));
            });
            defaults->setString(address, "feedbackURL");
            controller->openFeedback();
            form()->feedbackSender()->setTimeout(300);
            writeReport("bug", "It crashed.", "me@example.org", true);
            const QString preview = shown();
            control<QPushButton>("send")->click();
            if (reason.startsWith("Sending stopped")) {
                QTest::qWait(100);
                control<QPushButton>("cancel")->click();
            }
            const QString expected = reason.contains("%1") ? reason.arg(QUrl(address).port()) : reason;
            QTRY_VERIFY2(status().startsWith(expected), qPrintable(status()));
            // Nothing typed is lost, and the report can go again.
            QVERIFY(form()->isVisible());
            QCOMPARE(shown(), preview);
            QVERIFY(control<QPlainTextEdit>("message")->isEnabled());
            QVERIFY(control<QPushButton>("send")->isEnabled());
            // A hidden panel takes the form along, text and all (none of which was lost above).
            controller->hideMainWindow();
            QVERIFY(!form()->isVisible());
            controller->openFeedback();
            QCOMPARE(control<QPlainTextEdit>("message")->toPlainText(), "It crashed.");
        }
    }

    void savesTheSameJson()
    {
        controller->openFeedback();
        writeReport("question", "Where are the favourites kept?", "", true);
        const QString path = env.root() + "/report.json";
        QVERIFY(form()->saveReport(path));
        QFile saved(path);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(saved.readAll()), shown());
        QVERIFY(status().contains(path));
        QVERIFY(!form()->saveReport(env.root() + "/no such folder/report.json"));
        QVERIFY(status().startsWith("Nimbo could not save the report to"));
    }
};

QTEST_MAIN(TestFeedback)
#include "tst_feedback.moc"
