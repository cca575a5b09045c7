// Reading release feeds and comparing versions.
#include "common/appcast.h"

#include <QtTest>

namespace {
QByteArray feed(const QByteArray& items)
{
    return "<?xml version=\"1.0\"?>\n<rss version=\"2.0\" "
           "xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\"><channel><title>Nimbo</"
           "title>" +
           items + "</channel></rss>";
}
} // namespace

class TestAppcast : public QObject
{
    Q_OBJECT
private slots:
    void compareVersions()
    {
        const std::tuple<QString, QString, int> pairs[] = {
            {"1.10", "1.9", 1},                                      // numbers, not text
            {"1.0", "1.0.0", 0},                                     // trailing zero
            {"1.0", "1.0.1", -1},                                    // a further number
            {"1.0b1", "1.0", -1},                                    // beta before release
            {"1.0b2", "1.0b10", -1},                                 // betas in order
            {"1.0.1", "1.0b", 1},                                    // patch after beta
            {"1.010", "1.9", 1},                                     // leading zeros
            {"1.99999999999999999999", "1.99999999999999999998", 1}, // longer than 64 bits
        };
        for (const auto& [a, b, expected] : pairs) {
            QCOMPARE(std::tuple(a, b, Appcast::compareVersions(a, b)), std::tuple(a, b, expected));
            QCOMPARE(std::tuple(b, a, Appcast::compareVersions(b, a)), std::tuple(b, a, -expected));
        }
    }

    void parse()
    {
        const struct
        {
            QString name;
            QByteArray xml;
            QString latest, notes, error; // no latest: an error is expected
        } cases[] = {
            {"enclosure attributes, newest not first",
             feed("<item><title>1.9</title><sparkle:releaseNotesLink>https://x/1.9</sparkle:releaseNotesLink>"
                  "<enclosure url=\"https://x/1.9.deb\" sparkle:version=\"190\" "
                  "sparkle:shortVersionString=\"1.9\"/></item>"
                  "<item><title>1.10</title><sparkle:releaseNotesLink>https://x/1.10</"
                  "sparkle:releaseNotesLink>"
                  "<enclosure url=\"https://x/1.10.deb\" sparkle:version=\"1100\" "
                  "sparkle:shortVersionString=\"1.10\"/></item>"),
             "1.10", "https://x/1.10", ""},
            {"elements, link as notes",
             feed("<item><link>https://x/2</link><sparkle:version> 2.0 </sparkle:version></item>"), "2.0",
             "https://x/2", ""},
            {"items without version are left out",
             feed("<item><title>none</title></item><item><enclosure url=\"u\" "
                  "sparkle:version=\"0.3\"/></item>"),
             "0.3", "", ""},
            {"attribute of another namespace is no version",
             feed("<item><enclosure url=\"u\" version=\"9.0\"/></item>"), "", "",
             "no release in the feed names a version"},
            {"no items", feed(""), "", "", "the feed lists no release"},
            {"not RSS", "<html><body>503</body></html>", "", "", "the feed is not an RSS feed"},
            {"empty", QByteArray(), "", "", "the feed is not"},
        };
        for (const auto& c : cases) {
            const AppcastFeed result = Appcast::parse(c.xml);
            QVERIFY2(c.error.isEmpty() ? result.error.isEmpty() : result.error.startsWith(c.error),
                     qPrintable(c.name + ": " + result.error));
            const auto* item = result.latest(); // none when the feed names no release
            QCOMPARE(std::tuple(c.name, item ? item->version : QString(),
                                item ? item->releaseNotes.toString() : QString()),
                     std::tuple(c.name, c.latest, c.notes));
        }
    }
};

QTEST_GUILESS_MAIN(TestAppcast)
#include "tst_appcast.moc"
