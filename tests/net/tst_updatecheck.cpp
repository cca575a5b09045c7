// The update check against a feed served on this machine: newer, same and older releases, and
// the ways a feed goes wrong; and nimboctl updates printing the result.
#include "localhttpserver.h"

#include "common/nimboinfo.h"
#include "net/hvupdatecheck.h"
#include "support/testenvironment.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSignalSpy>
#include <QtTest>

namespace {
QByteArray feedWith(const QByteArray& version)
{
    return "<rss version=\"2.0\" "
           "xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\"><channel>"
           "<item><title>Nimbo " +
           version + "</title><sparkle:releaseNotesLink>https://example.org/notes/" + version +
           "</sparkle:releaseNotesLink><enclosure url=\"https://example.org/nimbo.deb\" sparkle:version=\"" +
           version + "\"/></item></channel></rss>";
}
} // namespace

class TestUpdateCheck : public QObject
{
    Q_OBJECT
    TestEnvironment env;
    LocalHttpServer server;

private slots:
    void initTestCase()
    {
        QVERIFY(server.isListening());
        server.answer("/newer", 200, feedWith("1.10"));
        server.answer("/same", 200, feedWith("1.9"));
        server.answer("/older", 200, feedWith("1.8.3"));
        server.answer("/noversion", 200, feedWith(""));
        server.answer("/gone", 404, "no such feed");
        server.answer("/huge", 200, QByteArray(HVUpdateCheck::MaximumFeedSize + 1, ' '));
        server.hang("/slow");
        server.redirectForever("/loop");
    }

    void check_data()
    {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QString>("latest");
        QTest::addColumn<bool>("newer");
        QTest::addColumn<QString>("error");
        QTest::newRow("newer") << QByteArray("/newer") << "1.10" << true << "";
        QTest::newRow("same") << QByteArray("/same") << "1.9" << false << "";
        QTest::newRow("older") << QByteArray("/older") << "1.8.3" << false << "";
        QTest::newRow("not found") << QByteArray("/gone") << "" << false << "the feed could not be read";
        QTest::newRow("huge") << QByteArray("/huge") << "" << false << "the feed is larger than";
        QTest::newRow("slow") << QByteArray("/slow") << "" << false << "the feed did not answer within 0.5";
        QTest::newRow("redirects forever")
            << QByteArray("/loop") << "" << false << "the feed could not be read";
    }
    void check()
    {
        QFETCH(QByteArray, path);
        QFETCH(QString, latest);
        QFETCH(bool, newer);
        QFETCH(QString, error);
        HVUpdateCheck check;
        check.setTimeout(500);
        QSignalSpy finished(&check, &HVUpdateCheck::finished);
        check.start(QUrl(server.url(path)), QStringLiteral("1.9"));
        QVERIFY(finished.wait(10000));
        QTest::qWait(100); // nothing is reported twice
        QCOMPARE(finished.size(), 1);
        const auto result = finished.first().first().value<UpdateCheckResult>();
        QVERIFY2(error.isEmpty() ? result.error.isEmpty() : result.error.startsWith(error),
                 qPrintable(result.error));
        QCOMPARE(result.latest.version, latest);
        QCOMPARE(result.newer, newer);
        QVERIFY(!check.isRunning());
    }

    // nimboctl updates prints what it found as JSON, or why it found nothing and fails.
    void nimboctlPrintsTheResult()
    {
        const QJsonObject newer{{"current", NimboInfo::version()},
                                {"latest", "1.10"},
                                {"newer", true},
                                {"url", "https://example.org/notes/1.10"}};
        const QJsonObject failed{{"error", "no release in the feed names a version"}};
        for (const auto& [path, exitCode, printed] :
             {std::tuple("/newer", 0, newer), std::tuple("/noversion", 1, failed)}) {
            QProcess ctl;
            QSignalSpy done(&ctl, &QProcess::finished);
            ctl.start(QStringLiteral(NIMBO_BINARY_DIR "/src/nimboctl"),
                      {"updates", "--feed", server.url(path), "--timeout", "5"});
            QVERIFY(done.wait(20000)); // the server answers from this event loop
            QCOMPARE(ctl.exitCode(), exitCode);
            QCOMPARE(QJsonDocument::fromJson(ctl.readAllStandardOutput()).object(), printed);
        }
    }
};

QTEST_GUILESS_MAIN(TestUpdateCheck)
#include "tst_updatecheck.moc"
