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
    return "<rss version=\"2.0\" xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\">"
           "<channel><item><sparkle:releaseNotesLink>https://example.org/notes/" +
           version + "</sparkle:releaseNotesLink><enclosure url=\"u\" sparkle:version=\"" + version +
           "\"/></item></channel></rss>";
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
        server.answer("/newer", 200, feedWith("1.10"));
        server.answer("/same", 200, feedWith("1.9"));
        server.answer("/noversion", 200, feedWith(""));
        server.answer("/huge", 200, QByteArray(HVUpdateCheck::MaximumFeedSize + 1, ' '));
        server.hang("/slow");
        server.redirectForever("/loop");
    }

    // Older than the running version reaches the same comparison as the same version; a missing
    // feed the same read error as endless redirects.
    void check()
    {
        for (const auto& [path, latest, newer, error] :
             {std::tuple("/newer", "1.10", true, ""), std::tuple("/same", "1.9", false, ""),
              std::tuple("/huge", "", false, "the feed is larger than"),
              std::tuple("/slow", "", false, "the feed did not answer within 0.5"),
              std::tuple("/loop", "", false, "the feed could not be read")}) {
            HVUpdateCheck check;
            check.setTimeout(500);
            QSignalSpy finished(&check, &HVUpdateCheck::finished);
            check.start(QUrl(server.url(path)), QStringLiteral("1.9"));
            QVERIFY2(finished.wait(10000), path);
            QTest::qWait(100); // nothing is reported twice
            QCOMPARE(finished.size(), 1);
            const auto result = finished.first().first().value<UpdateCheckResult>();
            QVERIFY2(*error ? result.error.startsWith(error) : result.error.isEmpty(),
                     qPrintable(path + (": " + result.error)));
            QCOMPARE(std::tuple(path, result.latest.version, result.newer),
                     std::tuple(path, QString(latest), newer));
            QVERIFY(!check.isRunning());
        }
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
