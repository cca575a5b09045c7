// What the desktop does for a record beyond its windows, through real desktop entries, GIO and
// the private session bus: launching with hostile file names (the stand-in program records the
// arguments it gets), a launch whose entry or program is gone, revealing in the file manager
// (a FileManager1 service of the test's own, then no file manager at all) and handing an
// application to the remover.
#include "desktopfixture.h"

#include "catalogue/hvappmanager.h"
#include "common/hvnotificationcenter.h"
#include "common/notificationnames.h"
#include "platform/desktopappactions.h"
#include "platform/gioentryreader.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QRegularExpression>

#include <cstdio>
#include <fstream>
#include <thread>

namespace {
// A file manager that only remembers what it was asked to show.
class FileManagerService : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")
public:
    QList<QStringList> shown;

public slots:
    void ShowItems(const QStringList& uris, const QString&) { shown.append(uris); }
};

// Names a shell, an option parser or a field code expander would trip over, and one that is not
// UTF-8 at all. Each argument is compared whole, so one name can carry many such characters.
const QList<QByteArray> HostileNames = {"--rf -n with  two spaces quote's \"double\" back\\slash\ttab.txt",
                                        "line\nbreak\r.txt", "ünïcødé ✓ 名前 100% %F %u %%.txt",
                                        "$(touch pwned) `touch pwned` a;touch pwned&|b>c *?[x]{a,b}~ #!",
                                        "\xff\xfe latin-1 \xe9.txt"};
} // namespace

class TestDesktopActions : public QObject
{
    Q_OBJECT
    DesktopFixture m_fixture;
    std::shared_ptr<DesktopAppActions> m_actions =
        std::make_shared<DesktopAppActions>(nullptr, nullptr, QProcess::systemEnvironment());
    QString m_drops;
    QStringList m_events; // what a failed launch set off, in order
    HVAppBunch m_missing;

    // Writes nimbotest-<id>.desktop, which runs the recorder (without a window) with the Exec tail
    // given, recording into the record file named.
    void writeRecorderEntry(const QString& id, const QString& record, const QByteArray& tail,
                            const QByteArray& lines = QByteArray()) const
    {
        m_fixture.writeEntry("nimbotest-" + id + ".desktop",
                             "Exec=\"" NIMBO_ARGV_RECORDER "\" --no-window \"" +
                                 QFile::encodeName(m_fixture.recordFile(record)) + "\" " + tail + "\n" +
                                 lines);
    }
    HVAppRef recordFor(const QString& path) const
    {
        auto app = std::make_shared<HVApp>(path);
        app->setActions(m_actions);
        return app;
    }

public slots:
    // The catalogue's word that a record's application has gone.
    void appIsMissing(const HVNotification& notification)
    {
        m_missing.append(notification.object.value<HVAppRef>());
        m_events.append(QStringLiteral("missing"));
    }

private slots:
    void initTestCase()
    {
        HVNotificationCenter::defaultCenter()->addObserver(this, "appIsMissing",
                                                           HVNotificationNames::AppIsMissing);
        m_drops = m_fixture.env().root() + QStringLiteral("/drops");
        QVERIFY(QDir().mkpath(m_drops));
        for (const QByteArray& name : HostileNames) {
            QVERIFY(std::ofstream((QFile::encodeName(m_drops) + "/" + name).constData()));
        }
        // GIO reads the application folders and mimeapps.list once: every entry is there before.
        const QByteArray inDrops = "Path=" + QFile::encodeName(m_drops) + "\n";
        writeRecorderEntry("paths", "paths", "%F", inDrops);
        writeRecorderEntry("uris", "uris", "%U", inDrops + "X-GIO-NoFuse=true\n");
        writeRecorderEntry("folders", "folder", "%U", "MimeType=inode/directory;\n");
        m_fixture.env().writeFile("config/mimeapps.list",
                                  "[Default Applications]\ninode/directory=nimbotest-folders.desktop\n");
        writeRecorderEntry("remover", "remover", "%U", "MimeType=x-scheme-handler/appstream;\n");
        writeRecorderEntry("notremover", "remover", "%U", "MimeType=text/plain;\n");
    }

    void cleanupTestCase()
    {
        // QDir cannot name the file whose name is not UTF-8 to remove it.
        for (const QByteArray& name : HostileNames)
            std::remove(QFile::encodeName(m_drops) + "/" + name);
    }

    // Every name arrives as one argument of its own, exactly as it is: with %F as a path, with %U
    // (and X-GIO-NoFuse, without which GIO turns local URIs into paths as for %F) as the URI it was
    // dropped as; nothing on the way is a shell.
    void launchingWithFilesPassesHostileNamesIntact()
    {
        for (const QString kind : {"paths", "uris"}) {
            const bool asUris = kind == "uris";
            QList<QUrl> items;
            QList<QByteArray> expected; // URIs or paths: a failing kind shows in them
            for (const QByteArray& name : HostileNames) {
                const QByteArray path = QFile::encodeName(m_drops) + "/" + name;
                // A drop of a name that is not UTF-8 can only come as its percent-encoded URI.
                const QUrl url = QString::fromUtf8(name).toUtf8() == name
                                     ? QUrl::fromLocalFile(QString::fromUtf8(path))
                                     : QUrl::fromEncoded("file://" + path.toPercentEncoding("/"));
                items.append(url);
                expected.append(asUris ? url.toEncoded() : path);
            }
            QVERIFY2(recordFor(m_fixture.entryPath("nimbotest-" + kind))->launchWithItems(items),
                     qPrintable(kind));
            QCOMPARE(DesktopFixture::recordedArguments(m_fixture.recordFile(kind)), expected);
        }
        QVERIFY(!QFile::exists(m_drops + QStringLiteral("/pwned")));
    }

    // A launch that fails says so in one log line naming the call made. When the entry or its
    // program went after the scan found it, the shell is asked to bring its panel back, then the
    // catalogue hears of the record and rescans at once (what a rescan makes of a favourite that
    // is gone is the catalogue test's); an entry that cannot launch as it stands is not missing,
    // and nothing is rescanned, the favourite stays. Launching runs on a worker thread, as from the panel;
    // the catalogue answers on the main thread.
    void aFailedLaunchSaysWhyAndAGoneEntryIsMissing_data()
    {
        QTest::addColumn<QByteArray>("exec"); // the entry's lines at the launch; none: deleted
        QTest::addColumn<QString>("logged");
        QTest::addColumn<bool>("missing");
        const QString gone = "g_desktop_app_info_new_from_filename() returned err: -43";
        QTest::newRow("entry deleted") << QByteArray() << gone << true;
        QTest::newRow("program gone") << QByteArray("Exec=/nonexistent/nimbo-program %F\n") << gone << true;
        QTest::newRow("TryExec gone")
            << QByteArray("Exec=sh\nTryExec=nimbo-no-such-program\n") << gone << true;
        QTest::newRow("empty Exec") << QByteArray("Exec=\n")
                                    << "g_app_info_get_commandline() returned err: -1" << false;
        QTest::newRow("malformed Exec") << QByteArray("Exec=\"sh -c\n")
                                        << "g_desktop_app_info_new_from_filename() returned err: -1" << false;
    }
    void aFailedLaunchSaysWhyAndAGoneEntryIsMissing()
    {
        QFETCH(QByteArray, exec);
        QFETCH(QString, logged);
        QFETCH(bool, missing);
        const QString entry = m_fixture.writeEntry(QStringLiteral("nimbotest-doomed.desktop"), "Exec=sh\n");
        HVUserDefaults defaults(m_fixture.env().root() +
                                QStringLiteral("/missing-%1/Nimbo.conf").arg(QTest::currentDataTag()));
        auto actions = std::make_shared<DesktopAppActions>(nullptr, nullptr, QProcess::systemEnvironment());
        HVAppManager manager(&defaults, std::make_shared<GioEntryReader>(), actions);
        actions->setRecordLookup([&manager](const QString& path) { return manager.appForPath(path); });
        m_events.clear();
        m_missing.clear();
        actions->setOpenUntitledFile([this] { m_events.append(QStringLiteral("panel")); });
        manager.awakeFromNib();

        manager.fullScan();
        const HVAppRef doomed = manager.appForPath(entry);
        QVERIFY(manager.allApps1D().contains(doomed));
        manager.moveApp(doomed, HVAppGroupUser1D, 0, 0);

        if (exec.isEmpty())
            QVERIFY(QFile::remove(entry));
        else
            m_fixture.writeEntry(QStringLiteral("nimbotest-doomed.desktop"), exec);
        QTest::ignoreMessage(
            QtWarningMsg,
            QRegularExpression(QStringLiteral("^%1 for URL: %2$")
                                   .arg(QRegularExpression::escape(logged),
                                        QRegularExpression::escape(doomed->url().toEncoded()))));
        bool launched = true;
        std::thread worker([&] { launched = doomed->launchWithItems(std::nullopt); });
        worker.join();
        QVERIFY(!launched);
        if (missing) {
            QTRY_COMPARE(m_events, QStringList({"panel", "missing"}));
            QCOMPARE(m_missing, HVAppBunch({doomed}));
            QVERIFY(!manager.allApps1D().contains(doomed)); // rescanned
        } else {
            QTest::qWait(100); // time for a wrongly queued announcement to arrive
            QVERIFY(m_events.isEmpty());
            QCOMPARE(manager.userApps1D(), HVAppBunch({doomed}));
        }
        manager.tearDown(); // the next row writes the entry again
    }

    // The file manager on the bus is asked to show the entry itself; with none there, the
    // entry's folder opens with the default handler for folders.
    void revealReachesTheFileManagerOnTheSessionBus()
    {
        QDBusConnection bus =
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("fm"));
        FileManagerService service;
        QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), &service,
                                   QDBusConnection::ExportAllSlots));
        QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.FileManager1")));
        const QString folderRecord = m_fixture.recordFile(QStringLiteral("folder"));

        const QString entry =
            m_fixture.writeEntry(QStringLiteral("sub dir ü/nimbotest reveal #1.desktop"), "Exec=sh\n");
        recordFor(entry)->revealInFinder();
        QTRY_COMPARE(service.shown.size(), 1);
        QCOMPARE(service.shown.first(),
                 QStringList({QString::fromUtf8(QUrl::fromLocalFile(entry).toEncoded())}));
        // The file manager answered: no folder is opened as well.
        QTest::qWait(300);
        QVERIFY(!QFile::exists(folderRecord));

        QVERIFY(bus.unregisterService(QStringLiteral("org.freedesktop.FileManager1")));
        QTRY_VERIFY(!QDBusConnection::sessionBus().interface()->isServiceRegistered(
            QStringLiteral("org.freedesktop.FileManager1")));
        recordFor(entry)->revealInFinder();
        QCOMPARE(DesktopFixture::recordedArguments(folderRecord),
                 QList<QByteArray>({QFile::encodeName(QFileInfo(entry).absolutePath())}));
        QCOMPARE(service.shown.size(), 1);
    }

    // The remover is launched with the entry's desktop ID as an appstream: URI; a remover that is
    // not installed, or that does not open such links, is not launched and says why in one line.
    void theRemoverIsLaunchedWithTheAppstreamUri()
    {
        const QString record = m_fixture.recordFile(QStringLiteral("remover"));
        const QString nested = m_fixture.writeEntry(QStringLiteral("vendor/tool.desktop"), "Exec=sh\n");
        const QString outside =
            m_fixture.env().writeFile(QStringLiteral("elsewhere/Odd Name+ü.desktop"), "[Desktop Entry]\n");

        // Inside the application folders an entry's desktop ID names its sub-folders too.
        QVERIFY(recordFor(nested)->sendForDeletionWithAppBundleIdentifier("nimbotest-remover.desktop"));
        QCOMPARE(DesktopFixture::recordedArguments(record), QList<QByteArray>({"appstream://vendor-tool"}));
        QVERIFY(QFile::remove(record));
        QVERIFY(recordFor(outside)->sendForDeletionWithAppBundleIdentifier("nimbotest-remover.desktop"));
        QCOMPARE(DesktopFixture::recordedArguments(record),
                 QList<QByteArray>({"appstream://Odd%20Name%2B%C3%BC"}));
        QVERIFY(QFile::remove(record));

        QTest::ignoreMessage(QtWarningMsg,
                             "The application remover \"nimbotest-notremover.desktop\" does not "
                             "open x-scheme-handler/appstream links");
        QVERIFY(!recordFor(nested)->sendForDeletionWithAppBundleIdentifier("nimbotest-notremover.desktop"));
        QTest::ignoreMessage(QtWarningMsg,
                             "The application remover \"org.gnome.Software.desktop\" is not installed");
        QVERIFY(!recordFor(nested)->sendForDeletionWithAppBundleIdentifier("org.gnome.Software.desktop"));
        QTest::qWait(300);
        QVERIFY(!QFile::exists(record));
    }
};

QTEST_GUILESS_MAIN(TestDesktopActions)
#include "tst_desktopactions.moc"
